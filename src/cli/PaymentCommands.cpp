#include "accounts/TaxRepair.h"
#include "billing/LedgerLines.h"
#include "billing/payments/JobsAndPaymentChecker.h"
#include "billing/payments/PaymentJobs.h"
#include "billing/payments/PaymentsList.h"
#include "cli/Command.h"
#include "cli/LedgerLineOptions.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "diary/DiaryDay.h"

#include <algorithm>
#include <limits>

namespace quillary::cli {
namespace {

Id<Client> ClientOf(const Arguments& arguments) {
  const auto client = arguments.Key<Client>("client");
  if (!client) throw WrongUsage(QStringLiteral("--client is missing"));
  return *client;
}

/// The screen offers only the jobs of those who are billed to the payer, and only revenue accounts.
void RequirePayable(Business& business, Id<Client> payer, Id<Entry> entry) {
  if (!billing::IsPayable(business, payer, entry))
    throw CommandFailure(QStringLiteral("entry %1 is no job that client %2 is billed for")
                             .arg(entry.Number())
                             .arg(payer.Number()));
}

void RequireRevenueAccount(Business& business, Id<Account> account) {
  const auto accounts = lists::ListRevenueAccountChoices(business);
  const auto isAccount = [&](const lists::Choice<Account>& one) { return one.id == account; };
  if (std::ranges::none_of(accounts, isAccount))
    throw CommandFailure(QStringLiteral("there is no revenue account %1").arg(account.Number()));
}

billing::PaymentForm AskedFor(Business& business, const Arguments& arguments, Money amount,
                              const std::vector<Id<Entry>>& jobs) {
  billing::PaymentForm form =
      billing::NewPayment(business, ClientOf(arguments), amount,
                          jobs.size() == 1 ? std::optional(jobs.front()) : std::nullopt);
  const QString method = arguments.options.value(QStringLiteral("method"), form.paymentMethod);
  form.paymentMethod = billing::ListedPaymentMethod(business, method);
  form.paymentDate = arguments.Date("date").value_or(form.paymentDate);
  return form;
}

/// The lines get the payment's date from the save that follows them.
void StoreLines(Business& business, billing::PaymentForm& form,
                std::vector<billing::LedgerLineForm> lines) {
  for (billing::LedgerLineForm& line : lines) {
    RequireRevenueAccount(business, *line.glAccountId);
    line.gst = billing::TaxWithin(business, line.amount, form.taxExempt);
    if (form.IsNew()) ThrowIf(billing::SavePaymentDetails(business, form));
    ThrowIf(billing::SaveAccount(business, *form.paymentId, line, billing::SaveLedgerLine::AsNew));
  }
  if (!lines.empty()) ThrowIf(billing::SavePaymentDetails(business, form));
}

void RunPay(const Call& call) {
  const Money amount = AmountOf(call.arguments, "amount");
  const auto jobs = ParseIds<Entry>(call.arguments.All("job"));
  const std::vector<billing::LedgerLineForm> lines = LedgerLinesOf(call.arguments, "revenue");
  const auto business = OpenCurrentBusiness(call);
  Transaction all(*business);
  billing::PaymentForm form = AskedFor(*business, call.arguments, amount, jobs);
  ThrowIf(billing::CheckPayment(form));
  for (const Id<Entry> job : jobs) RequirePayable(*business, *form.clientId, job);
  ThrowIf(billing::SavePaymentDetails(*business, form));
  StoreLines(*business, form, lines);
  if (!form.forJob)
    for (const Id<Entry> job : jobs) billing::TickJob(*business, *form.paymentId, job, true);
  all.Commit();
  business->CloseConnection();
  ResultTable table({"Payment_ID", "Client_ID", "Payment_Date", "Amount", "GST_Included",
                     "Payment_Method", "Jobs"});
  table.AddRow({form.paymentId, *form.clientId, DayCell(call, form.paymentDate), form.amount,
                form.gst, form.paymentMethod, static_cast<qint64>(jobs.size())});
  if (call.json) {
    table.PrintJson(call.out);
    call.out << '\n';
  } else {
    table.PrintAligned(call.out);
  }
}

void RunPayments(const Call& call) {
  const auto from = call.arguments.Date("from");
  const auto to = call.arguments.Date("to");
  if (!from || !to) throw WrongUsage(QStringLiteral("payments needs --from and --to"));
  if (*from > *to) throw CommandFailure(QString::fromLatin1(diary::kInvalidDateRange));
  const auto business = OpenCurrentBusiness(call);
  const billing::PaymentsList list = billing::LoadPaymentsList(*business, {*from, *to});
  business->CloseConnection();
  ResultTable table({"Payment_ID", "Display_Name", "Payment_Date", "Amount", "Payment_Method",
                     "Client_ID", "Accounts", "GL_Amount", "Matches"});
  for (const billing::PaymentRow& row : list.rows)
    table.AddRow({row.paymentId, row.displayName, DayCell(call, row.paymentDate), row.amount,
                  row.paymentMethod, row.clientId, row.accounts, row.glAmount, !row.IsMismatch()});
  if (call.json) {
    call.out << "{\"rows\": ";
    table.PrintJson(call.out);
    call.out << ", \"Total_Count\": " << list.TotalCount()
             << ", \"Total_Amount\": " << list.totalAmount.ToText()
             << ", \"Total_Being_Paid_For\": " << list.totalBeingPaidFor.ToText()
             << ", \"Total_Without_Account\": " << list.totalWithoutAccount.ToText() << "}\n";
    return;
  }
  table.PrintAligned(call.out);
  call.out << "payments:                  " << list.TotalCount() << '\n'
           << "total amount:              " << list.totalAmount.ToCurrencyText() << '\n'
           << "total of jobs paid for:    " << list.totalBeingPaidFor.ToCurrencyText() << '\n'
           << "without a revenue account: " << list.totalWithoutAccount.ToCurrencyText() << '\n';
}

void RunPaymentDelete(const Call& call) {
  const auto paymentId = ParseId<Payment>(call.arguments.positional.at(1));
  const auto business = OpenCurrentBusiness(call);
  const auto payment = billing::LoadPayment(*business, paymentId);
  if (!payment)
    throw CommandFailure(QStringLiteral("there is no payment %1").arg(paymentId.Number()));
  billing::RemovePayment(*business, payment->clientId, paymentId);
  business->CloseConnection();
  if (call.json)
    call.out << "{\"deleted\": " << paymentId.Number() << "}\n";
  else
    call.out << "payment " << paymentId.Number() << " deleted\n";
}

void RunRecalculate(const Call& call) {
  const auto business = OpenCurrentBusiness(call);
  accounts::RecalculateGSTOfAllRecords(*business);
  business->CloseConnection();
  call.out << (call.json ? "{\"done\": true}\n" : "Re-calculation done.\n");
}

}  // namespace

std::vector<Command> PaymentCommands() {
  return {
      {"pay",
       "FILE --client ID --amount A [--method M] [--date D] [--job DIARY_ID]... "
       "[--revenue ACCOUNT_ID=AMOUNT]...",
       "Records money received under whom the client's bills go to, and computes what that client "
       "owes. A payment for one job marks it done; several jobs keep their status.",
       {{"client", "ID", "the client, or a site of the client who pays"},
        {"amount", "A", "tax included"},
        {"method", "M", "a word of the list; the client's habit when missing"},
        {"date", "DATE", "when it was received; today when missing"},
        {"job", "DIARY_ID", "a job that it covers; may be given several times"},
        {"revenue", "ID=A", "an account and what it gets; may be given several times"}},
       1,
       1,
       RunPay},
      {"payments",
       "FILE --from DATE --to DATE",
       "Lists the payments of a period beside what the jobs on them come to.",
       {{"from", "DATE", "the first day, YYYY-MM-DD"}, {"to", "DATE", "the last day"}},
       1,
       1,
       RunPayments},
      {"payment-delete",
       "FILE PAYMENT_ID",
       "Deletes a payment with its ledger entries and takes its jobs off it.",
       {},
       2,
       2,
       RunPaymentDelete},
      {"gst-recalculate",
       "FILE",
       "Computes the tax of everything stored anew, at today's rate.",
       {},
       1,
       1,
       RunRecalculate},
  };
}

}  // namespace quillary::cli
