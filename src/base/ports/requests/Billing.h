#pragma once

#include "base/DateRange.h"
#include "base/Id.h"
#include "base/Money.h"

#include <QString>

#include <optional>
#include <vector>

/// Requests that open the screens of invoices, payments and balances.
namespace quillary {

/// The payments of this month, unless days are named.
struct OpenPaymentsList {
  std::optional<DateRange> days = {};
};
struct OpenDebtors {
  std::optional<int> age = {};  // those who owe in the n-th of the ages that debts are listed by
};
struct OpenInvoicesList {
  bool monthly = false;                  // in the mode of the monthly run
  std::optional<DateRange> days = {};    // instead of this month
  std::vector<Id<Invoice>> ticked = {};  // of these days
};

/// Asks whether one job gets an invoice, or all jobs of those days of clients who are billed with
/// each job.
struct ChooseInvoiceFor {
  using Result = bool;
  std::optional<Id<Client>> payer;
  Id<Entry> entry;
  DateRange days;
};
/// An invoice that its first save will store: of a client, for one job, or for whom the screen
/// lets choose. True when it was saved.
struct AddInvoice {
  using Result = bool;
  std::optional<Id<Client>> client = {};
  std::optional<Id<Entry>> entry = {};
};
struct EditInvoice {
  using Result = bool;
  Id<Invoice> invoice;
};

/// A payment that its first save will store: of the client's payer, and, when a job is named, for
/// that job alone.
struct AddPayment {
  using Result = bool;
  std::optional<Id<Client>> client = {};
  Money amount = {};  // tax included
  std::optional<Id<Entry>> entry = {};
};
struct ViewPayment {
  using Result = bool;
  Id<Payment> payment;
};
/// Asks whether a job is paid by a new payment, which marks it done, or by one recorded before.
struct PayForJob {
  using Result = bool;
  Id<Client> payer;
  Id<Entry> entry;
  Money price;  // tax included
};
/// The jobs that a stored payment covers.
struct AllocatePayment {
  using Result = bool;
  Id<Payment> payment;
};

/// One date, today proposed unless told. Nothing when the user gives up.
struct PickDate {
  using Result = std::optional<QDate>;
  QString label;
  std::optional<QDate> proposed = {};
};

/// What a list of invoices is to hold, and in which order. Nothing when the user gives up.
struct InvoiceListCriteria {
  enum class Order { Name, Number, Date };
  DateRange days;
  Order order = Order::Name;
};
struct PickInvoiceList {
  using Result = std::optional<InvoiceListCriteria>;
};

}  // namespace quillary
