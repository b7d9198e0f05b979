#include "billing/payments/PaymentRecord.h"

#include "balances/ClientBalance.h"
#include "billing/payments/PaymentJobs.h"
#include "domain/ClientStatus.h"
#include "domain/EntryStatus.h"
#include "domain/Payer.h"
#include "domain/TaxRate.h"

#include <algorithm>
#include <array>
#include <set>

namespace quillary::billing {
namespace {

constexpr char kCash[] = "CASH";
/// The only methods by which nothing, or less than nothing, can be received.
constexpr std::array kAnyAmountMethods = {"ADJUSTMENT", "CREDIT V"};

QStringList WordsOf(const Recordset& rows) {
  QStringList words;
  for (const Record row : rows) words += row[size_t{0}].ToText();
  return words;
}

QString ShownMethod(const QString& stored) {
  return stored.isEmpty() ? QString(kCash) : stored.toUpper();
}

bool TakesAnyAmount(const QString& paymentMethod) {
  return std::ranges::any_of(
      kAnyAmountMethods, [&](const char* word) { return paymentMethod == QLatin1String(word); });
}

Id<Payment> InsertEmptyPayment(Business& business, Id<Client> clientId) {
  return business.InsertReturningKey<Payment>(
      Sql("INSERT INTO Payments (Client_ID) VALUES ({});", clientId));
}

void WriteFields(Business& business, const PaymentForm& form) {
  business.Write(
      Sql("UPDATE Payments SET Client_ID = {}, Amount = {}, GST_Included = {}, Tax_Exempt = {}, "
          "Payment_Date = {}, Payment_Method = {}, Cheque_Number = {}, Bank = {}, "
          "Bank_Branch = {}, Bank_Account_Name = {}, Description = {} WHERE Payment_ID = {}; ",
          form.clientId, form.amount, form.gst, form.taxExempt, form.paymentDate,
          form.paymentMethod, form.chequeNumber, form.bank, form.bankBranch, form.bankAccountName,
          form.description, form.paymentId),
      Rows::Exactly(1));
}

QString NameOf(Business& business, Id<Client> client) {
  return business.FirstField(Sql("SELECT Display_Name FROM Clients WHERE Client_ID = {}", client))
      .ToText();
}

void MarkInvoicesAsPaid(Business& business, Id<Payment> paymentId) {
  std::set<Id<Invoice>> invoices;
  for (const PaidService& service : LoadPaidServices(business, paymentId).rows)
    if (service.invoiceId) invoices.insert(*service.invoiceId);
  for (const Id<Invoice> invoice : invoices)
    business.Write(Sql("UPDATE Invoices SET IsPaid = 1 WHERE Invoice_ID = {}", invoice),
                   Rows::Exactly(1));
}

}  // namespace

void PaymentForm::TakeHabits(const PaymentHabits& habits) {
  paymentMethod = habits.paymentMethod;
  bank = habits.bank;
  bankBranch = habits.bankBranch;
  bankAccountName = habits.bankAccountName;
}

std::vector<lists::Choice<Client>> ListPayerChoices(Business& business,
                                                    std::optional<Id<Client>> also) {
  const Sql columns(lists::kClientChoiceColumns);
  std::vector<lists::Choice<Client>> payers = lists::ChoicesOfClients(
      business.RunSQL(Sql("SELECT {} FROM Clients WHERE Status IN {} AND Is_Billed_To = True "
                          "ORDER BY Display_Name; ",
                          columns, StatusesOf(ClientGroup::MayPay))));
  const auto isAlso = [also](const lists::Choice<Client>& choice) { return choice.id == also; };
  if (also && std::ranges::none_of(payers, isAlso))
    for (const auto& payer : lists::ChoicesOfClients(
             business.RunSQL(Sql("SELECT {} FROM Clients WHERE Client_ID = {}", columns, *also))))
      payers.push_back(payer);
  return payers;
}

QStringList ListPaymentMethodWords(Business& business) {
  return WordsOf(business.RunSQL(
      Sql("SELECT Payment_Method FROM lstPayment_Methods ORDER BY Payment_Method;")));
}

QString ListedPaymentMethod(Business& business, const QString& word) {
  for (const QString& listed : ListPaymentMethodWords(business))
    if (listed.compare(word.trimmed(), Qt::CaseInsensitive) == 0) return listed;
  return {};
}

QStringList ListBankNames(Business& business) {
  return WordsOf(business.RunSQL(Sql("SELECT Bank FROM lstBanks ORDER BY Bank;")));
}

bool IsPaidByCheque(const QString& paymentMethod) {
  return paymentMethod.toUpper() == QLatin1StringView("CHEQUE");
}

Money TaxWithin(Business& business, Money amount, bool taxExempt) {
  if (taxExempt) return {};
  return TaxRate::Of(business).CalculateGSTComponent(amount);
}

PaymentHabits HabitsOf(Business& business, Id<Client> clientId) {
  const Recordset latest =
      business.RunSQL(Sql("SELECT TOP 1 * FROM Payments WHERE Client_ID = {} AND Amount <> 0 "
                          "ORDER BY Payment_Date DESC, Payment_ID DESC;",
                          clientId));
  if (latest.EndOfFile()) return {};
  return {ShownMethod(latest.Field(u"Payment_Method").ToText()), latest.Field(u"Bank").ToText(),
          latest.Field(u"Bank_Branch").ToText(), latest.Field(u"Bank_Account_Name").ToText()};
}

PaymentForm BlankPayment(Business& business) {
  PaymentForm form;
  form.paymentDate = business.Today();
  form.TakeHabits({});
  return form;
}

PaymentForm NewPayment(Business& business, Id<Client> clientId, Money amount,
                       std::optional<Id<Entry>> forJob) {
  PaymentForm form = BlankPayment(business);
  form.amount = amount;
  form.gst = TaxWithin(business, amount, false);
  form.forJob = forJob;
  const auto payer = PayerOf(business, clientId);
  const auto isPayer = [payer](const lists::Choice<Client>& choice) { return choice.id == payer; };
  if (!std::ranges::any_of(ListPayerChoices(business), isPayer)) return form;
  form.clientId = payer;
  form.TakeHabits(HabitsOf(business, *payer));
  return form;
}

std::optional<PaymentForm> LoadPayment(Business& business, Id<Payment> paymentId) {
  const Recordset stored =
      business.RunSQL(Sql("SELECT * FROM Payments WHERE Payment_ID = {}", paymentId));
  if (stored.EndOfFile()) return std::nullopt;
  PaymentForm form;
  form.paymentId = paymentId;
  form.clientId = stored.Field(u"Client_ID").ToId<Client>();
  form.amount = stored.Field(u"Amount").ToMoney();
  form.gst = stored.Field(u"GST_Included").ToMoney();
  form.taxExempt = stored.Field(u"Tax_Exempt").ToBool();
  form.paymentDate = stored.Field(u"Payment_Date").ToDate(business.Today());
  form.paymentMethod = ShownMethod(stored.Field(u"Payment_Method").ToText());
  form.chequeNumber = stored.Field(u"Cheque_Number").ToText();
  form.bank = stored.Field(u"Bank").ToText();
  form.bankBranch = stored.Field(u"Bank_Branch").ToText();
  form.bankAccountName = stored.Field(u"Bank_Account_Name").ToText();
  form.description = stored.Field(u"Description").ToText();
  return form;
}

std::optional<Refusal> CheckPayment(const PaymentForm& form) {
  const auto refuse = [](const char* message, const char* field) {
    return Refusal{QString(message), QString(field)};
  };
  if (!form.clientId) return refuse("Please select a client.", "client");
  // The two words are matched to the letter: a method that the owner spelled otherwise is the
  // owner's own, and does not let a refund through by accident.
  if (!TakesAnyAmount(form.paymentMethod) && form.amount <= Money())
    return refuse("Please enter the payment amount.", "amount");
  if (form.paymentMethod.isEmpty())
    return refuse("Please select the payment method.", "paymentMethod");
  return std::nullopt;
}

std::optional<Refusal> SavePaymentDetails(Business& business, PaymentForm& form) {
  if (std::optional<Refusal> refusal = CheckPayment(form)) return refusal;
  Transaction save(business);
  PaymentForm stored = form;
  std::optional<Id<Client>> clientBefore;
  if (form.IsNew())
    stored.paymentId = InsertEmptyPayment(business, *form.clientId);
  else
    clientBefore =
        business
            .FirstField(Sql("SELECT Client_ID FROM Payments WHERE Payment_ID = {}", form.paymentId))
            .ToId<Client>();
  WriteFields(business, stored);
  if (form.forJob) {
    business.Write(Sql("UPDATE Diary SET Payment_ID = {}, Status = {} WHERE Diary_ID = {}",
                       stored.paymentId, EntryStatus::JobDone, *form.forJob),
                   Rows::Exactly(1));
  }
  if (form.markInvoicesAsPaid) MarkInvoicesAsPaid(business, *stored.paymentId);
  balances::RecalculateClientBalance(business, *form.clientId);
  // The payer of the job need not be the one who pays, and what was open counts as done now.
  const auto payer = form.forJob ? PayerOf(business, *form.forJob) : std::nullopt;
  if (payer && payer != form.clientId) balances::RecalculateClientBalance(business, payer);
  if (clientBefore && clientBefore != form.clientId)
    balances::RecalculateClientBalance(business, *clientBefore);
  business.Write(
      Sql("UPDATE General_Ledger_Entries SET GL_Entry_Description = {}, Entry_Date = {} "
          "WHERE Payment_ID = {}",
          form.description, form.paymentDate, stored.paymentId));
  save.Commit();
  business.PastCommands().Describe(
      QStringLiteral("Payment of %1 from %2")
          .arg(form.amount.ToCurrencyText(), NameOf(business, *form.clientId)));
  form = stored;
  return std::nullopt;
}

}  // namespace quillary::billing
