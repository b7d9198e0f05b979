#include "accounts/banking/BankLists.h"
#include "accounts/banking/Cheques.h"
#include "accounts/banking/Deposits.h"
#include "billing/payments/PaymentRecord.h"
#include "cli/Command.h"
#include "cli/LedgerLineOptions.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"

#include <algorithm>

/// Takings on their way to the bank and cheques on theirs, for scripts.
namespace quillary::cli {
namespace {

constexpr int kMostCheques = 10'000;

const char* NameOf(PaymentGroup kind) {
  return kind == PaymentGroup::BankedAsCash     ? "cash"
         : kind == PaymentGroup::BankedAsCheque ? "cheques"
                                                : "other";
}

PaymentGroup KindOf(Business& business, Id<Payment> id) {
  const auto payment = billing::LoadPayment(business, id);
  if (!payment) throw CommandFailure(QStringLiteral("there is no payment %1").arg(id.Number()));
  const Stored<PaymentMethod> method(payment->paymentMethod);
  for (const PaymentGroup kind : accounts::kBankedKinds)
    if (method.IsIn(kind)) return kind;
  throw CommandFailure(QStringLiteral("payment %1 is by %2, which is not taken to the bank")
                           .arg(id.Number())
                           .arg(payment->paymentMethod));
}

/// The tabs as the screen would show them, with these payments ticked.
accounts::DepositForm Ticked(Business& business, const std::vector<Id<Payment>>& payments) {
  accounts::DepositForm form;
  const auto tabOf = [&form](PaymentGroup kind) -> accounts::BankedPayments& {
    return kind == PaymentGroup::BankedAsCash     ? form.cash
           : kind == PaymentGroup::BankedAsCheque ? form.cheques
                                                  : form.others;
  };
  for (const Id<Payment> id : payments) tabOf(KindOf(business, id)).ticked.push_back(id);
  for (const PaymentGroup kind : accounts::kBankedKinds) {
    for (const accounts::BankablePayment& payment : accounts::LoadUndeposited(business, kind)) {
      const bool isTicked = std::ranges::find(payments, payment.payment) != payments.end();
      if (!isTicked) tabOf(kind).unticked.push_back(payment.payment);
      if (isTicked && kind == PaymentGroup::BankedAsCash) form.cashBanked += payment.amount;
    }
  }
  return form;
}

std::optional<Id<BankAccount>> AccountOf(Business& business, const Arguments& arguments) {
  const auto account = arguments.Key<BankAccount>("account");
  const auto listed = accounts::ListBankAccounts(business);
  const auto isIt = [&](const accounts::ListedBankAccount& one) { return one.id == account; };
  return std::ranges::any_of(listed, isIt) ? account : std::nullopt;
}

ResultTable DepositsTable(const Call& call, const std::vector<accounts::Deposit>& deposits) {
  ResultTable table({"Banking_ID", "Bank_Account_ID", "Banking_Date", "Cash_Banked",
                     "Cash_Unbanked", "Total_Banked"});
  for (const accounts::Deposit& deposit : deposits)
    table.AddRow({deposit.banking, deposit.bankAccount, DayCell(call, deposit.bankingDate),
                  deposit.cashBanked, deposit.cashUnbanked, deposit.totalBanked});
  return table;
}

void RunBank(const Call& call) {
  QStringList words;
  for (const QString& word : call.arguments.All("payments")) words += word.split(u',');
  if (words.isEmpty()) throw WrongUsage(QStringLiteral("--payments is missing"));
  const auto payments = ParseIds<Payment>(words);
  const auto business = OpenCurrentBusiness(call);
  accounts::DepositForm form = Ticked(*business, payments);
  form.bankAccount = AccountOf(*business, call.arguments);
  form.bankingDate = call.arguments.Date("date").value_or(business->Today());
  if (call.arguments.Has("cash")) form.cashBanked = AmountOf(call.arguments, "cash");
  const auto outcome = accounts::SaveDeposit(*business, call.world.prompter, form);
  ThrowIf(outcome.refusal);
  if (!outcome.banking)
    throw CommandFailure(
        QStringLiteral("the cash banked is not the cash received; --yes banks it all the same"));
  const auto deposit = accounts::LoadDeposit(*business, *outcome.banking);
  business->CloseConnection();
  PrintTable(call, DepositsTable(call, {*deposit}));
}

void RunBankings(const Call& call) {
  const auto business = OpenCurrentBusiness(call);
  const auto deposits = accounts::ListDeposits(*business);
  business->CloseConnection();
  PrintTable(call, DepositsTable(call, deposits));
}

void RunBankingDelete(const Call& call) {
  const auto banking = ParseId<Banking>(call.arguments.positional.at(1));
  const auto business = OpenCurrentBusiness(call);
  if (!accounts::LoadDeposit(*business, banking))
    throw CommandFailure(QStringLiteral("there is no deposit %1").arg(banking.Number()));
  accounts::RemoveDeposit(*business, banking);
  business->CloseConnection();
  if (call.json)
    call.out << "{\"deleted\": " << banking.Number() << "}\n";
  else
    call.out << "deposit " << banking.Number() << " deleted\n";
}

void RunUndeposited(const Call& call) {
  const auto business = OpenCurrentBusiness(call);
  ResultTable table({"Tab", "Payment_ID", "Payment_Date", "Display_Name", "Amount", "Cheque_Number",
                     "Bank", "Lost_Its_Deposit"});
  Money total;
  for (const PaymentGroup kind : accounts::kBankedKinds) {
    for (const accounts::BankablePayment& payment : accounts::LoadUndeposited(*business, kind)) {
      table.AddRow({QString::fromLatin1(NameOf(kind)), payment.payment,
                    DayCell(call, payment.paymentDate), payment.displayName, payment.amount,
                    payment.chequeNumber, payment.bank, payment.lostItsDeposit});
      total += payment.amount;
    }
  }
  const accounts::PaymentsOnNoTab none = accounts::CountPaymentsOnNoTab(*business);
  business->CloseConnection();
  if (call.json) {
    call.out << "{\"rows\": ";
    table.PrintJson(call.out);
    call.out << ", \"Total\": " << total.ToText() << ", \"On_No_Tab\": " << none.count << "}\n";
    return;
  }
  table.PrintAligned(call.out);
  call.out << "total:     " << total.ToCurrencyText() << '\n'
           << "on no tab: " << none.count << " payments of " << none.total.ToCurrencyText() << '\n';
}

void RunCheques(const Call& call) {
  const auto business = OpenCurrentBusiness(call);
  const auto cheques = accounts::ListUnpresentedCheques(*business);
  business->CloseConnection();
  ResultTable table({"Purchase_ID", "Cheque_Number", "Supplier_Name", "Purchase_Date", "Amount"});
  for (const accounts::UnpresentedCheque& cheque : cheques)
    table.AddRow({cheque.purchase, cheque.chequeNumber, cheque.supplierName,
                  DayCell(call, cheque.purchaseDate), cheque.amount});
  PrintTable(call, table);
}

void RunChequesClear(const Call& call) {
  const auto ids = ParseIds<Purchase>(call.arguments.positional.mid(1));
  const auto business = OpenCurrentBusiness(call);
  const auto cheques = accounts::ListUnpresentedCheques(*business);
  for (const Id<Purchase> id : ids) {
    const auto isIt = [id](const accounts::UnpresentedCheque& one) { return one.purchase == id; };
    if (std::ranges::none_of(cheques, isIt))
      throw CommandFailure(
          QStringLiteral("purchase %1 is no cheque that is to be cleared").arg(id.Number()));
  }
  accounts::ClearCheques(*business, ids);
  business->CloseConnection();
  if (call.json)
    call.out << "{\"cleared\": " << ids.size() << "}\n";
  else
    call.out << ids.size() << " cheques cleared\n";
}

}  // namespace

std::vector<Command> BankingCommands() {
  return {
      {"bank",
       "FILE --account ID --payments ID,... [--cash A] [--date DATE]",
       "Makes a deposit of payments. When the cash banked is not all the cash received, only --yes "
       "lets it pass.",
       {{"account", "ID", "the bank account"},
        {"payments", "ID,...", "what is banked"},
        {"cash", "A", "the cash taken to the bank; that of the payments when missing"},
        {"date", "DATE", "when; today when missing"}},
       1,
       1,
       RunBank},
      {"bankings", "FILE", "Lists the deposits, the newest first.", {}, 1, 1, RunBankings},
      {"banking-delete",
       "FILE BANKING_ID",
       "Deletes a deposit; its payments are not banked any more.",
       {},
       2,
       2,
       RunBankingDelete},
      {"undeposited",
       "FILE",
       "Lists the payments that no deposit holds, by the way they are banked.",
       {},
       1,
       1,
       RunUndeposited},
      {"cheques",
       "FILE",
       "Lists the cheques to suppliers that are not cleared.",
       {},
       1,
       1,
       RunCheques},
      {"cheques-clear",
       "FILE PURCHASE_ID...",
       "Marks cheques as cleared: all of them or none.",
       {},
       2,
       kMostCheques,
       RunChequesClear},
  };
}

}  // namespace quillary::cli
