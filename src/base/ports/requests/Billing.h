#pragma once

#include "base/Money.h"

#include <QDate>

#include <optional>

/// Requests that open the screens of invoices, payments and balances.
namespace quillary {

struct OpenPaymentsList {};
struct OpenDebtors {};
struct OpenInvoicesList {
  bool monthly = false;  // in the mode of the monthly run
};

/// Asks whether one job gets an invoice, or all jobs of clients billed with each job from `from`
/// to `to`.
struct ChooseInvoiceFor {
  using Result = bool;
  qint64 billingClientId = 0;
  qint64 diaryId = 0;
  QDate from;
  QDate to;
};
/// An invoice that its first save will store: of a client, for one job, or for whom the screen
/// lets choose. True when it was saved.
struct AddInvoice {
  using Result = bool;
  std::optional<qint64> clientId;
  std::optional<qint64> diaryId;
};
struct EditInvoice {
  using Result = bool;
  qint64 invoiceId = 0;
};
/// The jobs that an invoice can take; what is ticked is attached to it.
struct AttachJobsToInvoice {
  using Result = bool;
  qint64 invoiceId = 0;
  qint64 clientId = 0;
};

/// A payment that its first save will store: of the client's payer, and, when a job is named, for
/// that job alone.
struct AddPayment {
  using Result = bool;
  std::optional<qint64> clientId;
  Money amount = {};  // tax included
  std::optional<qint64> diaryId = {};
};
struct ViewPayment {
  using Result = bool;
  qint64 paymentId = 0;
};
/// Asks whether a job is paid by a new payment, which marks it done, or by one recorded before.
struct PayForJob {
  using Result = bool;
  qint64 billingClientId = 0;
  qint64 diaryId = 0;
  Money price;  // tax included
};
/// The jobs that a stored payment covers.
struct AllocatePayment {
  using Result = bool;
  qint64 paymentId = 0;
};

/// One date, today proposed. Nothing when the user gives up.
struct PickDate {
  using Result = std::optional<QDate>;
  QString label;
};

/// What a list of invoices is to hold, and in which order. Nothing when the user gives up.
struct InvoiceListCriteria {
  enum class Order { Name, Number, Date };
  QDate from;
  QDate to;
  Order order = Order::Name;
};
struct PickInvoiceList {
  using Result = std::optional<InvoiceListCriteria>;
};

}  // namespace quillary
