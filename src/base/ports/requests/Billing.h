#pragma once

#include "base/Money.h"

/// Requests that open the screens of invoices, payments and balances.
namespace quillary {

struct OpenPaymentsList {};
struct OpenDebtors {};
struct OpenInvoicesList {
  bool monthly = false;  // in the mode of the monthly run
};

struct CreateInvoiceFor {
  using Result = bool;
  qint64 billingClientId = 0;
  qint64 diaryId = 0;
};
struct EditInvoice {
  using Result = bool;
  qint64 invoiceId = 0;
};
/// A payment of the client that is not recorded yet.
struct AddPayment {
  using Result = bool;
  qint64 clientId = 0;
};
struct ViewPayment {
  using Result = bool;
  qint64 paymentId = 0;
};
/// Asks how a job is paid and makes the payment; with `markDone` saving it marks the job done.
struct PayForJob {
  using Result = bool;
  qint64 billingClientId = 0;
  qint64 diaryId = 0;
  Money price;  // tax included
  bool markDone = false;
};

}  // namespace quillary
