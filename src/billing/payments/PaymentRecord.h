#pragma once

#include "base/Refusal.h"
#include "data/Business.h"
#include "lists/Choices.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

/// One payment: money received from the client who is billed. It stands by itself; which jobs it
/// covers is told in PaymentJobs.h, which revenue it is booked to in billing/LedgerLines.h.
namespace quillary::billing {

/// How a client is used to paying.
struct PaymentHabits {
  QString paymentMethod = QStringLiteral("CASH");
  QString bank = {};
  QString bankBranch = {};
  QString bankAccountName = {};

  bool operator==(const PaymentHabits&) const = default;
};

/// What the payment screen holds. A choice that is not made is empty.
struct PaymentForm {
  std::optional<Id<Payment>> paymentId;  // nothing until it is stored
  std::optional<Id<Client>> clientId;    // who pays, never a site
  Money amount = {};                     // tax included
  Money gst = {};                        // the tax within it, as computed or as typed over
  bool taxExempt = false;
  QDate paymentDate = {};
  QString paymentMethod = {};  // a word of the list
  QString chequeNumber = {};
  QString bank = {};
  QString bankBranch = {};
  QString bankAccountName = {};
  QString description = {};
  std::optional<Id<Entry>> forJob =
      {};                           // the entry of the diary that it was opened for; never loaded
  bool markInvoicesAsPaid = false;  // never loaded

  bool IsNew() const { return !paymentId; }
  void TakeHabits(const PaymentHabits& habits);
};

/// Whom money can come from: the clients who are billed, former ones too, by name; and last
/// `also`: who paid once may be billed to another by now, and the payment is still its own.
std::vector<lists::Choice<Client>> ListPayerChoices(Business& business,
                                                    std::optional<Id<Client>> also = {});
/// The words that a payment can be made by, by name, as the list spells them.
QStringList ListPaymentMethodWords(Business& business);
/// The list's spelling of a method, whatever its case; empty when the list does not hold it.
QString ListedPaymentMethod(Business& business, const QString& word);
/// The names of the banks, in their order.
QStringList ListBankNames(Business& business);

/// Whether cheque number and bank belong to a payment made that way.
bool IsPaidByCheque(const QString& paymentMethod);

/// The tax within an amount at the business's rate; 0 for an exempt one.
Money TaxWithin(Business& business, Money amount, bool taxExempt);

/// From the latest payment of the client that was not 0; cash without one.
PaymentHabits HabitsOf(Business& business, Id<Client> clientId);

/// A payment of today that is not stored yet: in cash and nobody's.
PaymentForm BlankPayment(Business& business);
/// The same under whom the client's bills go to, with that payer's habits and the tax within
/// `amount`. Nobody is chosen when the payer is not among the choices.
PaymentForm NewPayment(Business& business, Id<Client> clientId, Money amount,
                       std::optional<Id<Entry>> forJob = std::nullopt);
/// Nothing when there is no such payment. A stored payment without a method shows as cash, and
/// every other method in upper case.
std::optional<PaymentForm> LoadPayment(Business& business, Id<Payment> paymentId);

/// Refuses, in this order, a payment without client, one that is not above 0 and no adjustment,
/// and one without method.
std::optional<Refusal> CheckPayment(const PaymentForm& form);

/// Writes the payment to Payments, inserting it first when it is new, and gives `form` its key.
/// One that was opened for a job pays that job and makes it done and not invoiced, whatever it
/// was. Marks the invoices of its jobs as paid when the form says so, recomputes the balance
/// of the client, and of the client it was taken from, and gives its ledger entries its date and
/// note. Writes nothing when CheckPayment() refuses.
std::optional<Refusal> SavePaymentDetails(Business& business, PaymentForm& form);

}  // namespace quillary::billing
