#include "balances/ClientBalance.h"

#include "balances/BalanceRules.h"
#include "data/ActivityLog.h"
#include "domain/EntryStatus.h"
#include "domain/Payer.h"

namespace quillary::balances {
namespace {

Money Total(Business& business, const Sql& statement) {
  return business.FirstField(statement).ToMoney();
}

/// Of all whom the client pays for, itself included when it pays for itself.
Money JobsOfGroup(Business& business, Id<Client> payer) {
  return Total(business, Sql("SELECT SUM(Total_Price) AS TotalPrice FROM Diary "
                             "INNER JOIN Clients ON Diary.Client_ID = Clients.Client_ID "
                             "WHERE {} AND Diary.Status IN {};",
                             IsPaidBy("Clients", payer), CodesOf(EntryGroup::WorkDone)));
}

Money JobsOfTheOthers(Business& business, Id<Client> client) {
  return Total(business, Sql("SELECT SUM(Total_Price) AS TotalPrice FROM Diary "
                             "INNER JOIN Clients ON Diary.Client_ID = Clients.Client_ID "
                             "WHERE Billing_Client_ID = {} AND Diary.Status IN {} "
                             "AND Diary.Client_ID <> {};",
                             client, CodesOf(EntryGroup::WorkDone), client));
}

Money JobsOfClient(Business& business, Id<Client> client) {
  return Total(business, Sql("SELECT SUM(Total_Price) AS TotalPrice FROM Diary "
                             "WHERE Client_ID = {} AND Status IN {};",
                             client, CodesOf(EntryGroup::WorkDone)));
}

Money PaidByClient(Business& business, Id<Client> client) {
  return Total(business,
               Sql("SELECT SUM(Amount) AS TotalAmount FROM Payments WHERE Client_ID = {}", client));
}

Money PaidByGroup(Business& business, Id<Client> payer) {
  return Total(business, Sql("SELECT SUM(Amount) AS TotalAmount FROM Payments "
                             "INNER JOIN Clients ON Payments.Client_ID = Clients.Client_ID "
                             "WHERE {}",
                             IsPaidBy("Clients", payer)));
}

void StoreBalance(Business& business, Id<Client> client, Money balance, Rows rows) {
  business.Write(
      Sql("UPDATE Clients SET Account_Balance = {} WHERE Client_ID = {}", balance, client), rows);
}

Value OldestUnpaidJob(Business& business, Id<Client> payer) {
  return business.FirstField(
      Sql("SELECT TOP 1 Diary.Schedule_Date "
          "FROM Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID "
          "WHERE {} AND Diary.Schedule_Date < {} "
          "AND Diary.Status = {} AND Diary.Payment_ID IS NULL ORDER BY Diary.Schedule_Date; ",
          IsPaidBy("Clients", payer), business.Now(), EntryStatus::JobDone));
}

}  // namespace

std::optional<ClientBillingInfo> GetClientBillingInfo(Business& business, Id<Client> client) {
  const Recordset row = business.RunSQL(
      Sql("SELECT Status, Billing_Client_ID FROM Clients WHERE Client_ID = {}", client));
  if (row.EndOfFile()) return std::nullopt;
  return ClientBillingInfo{PayerFrom(client, row.Field(u"Billing_Client_ID")),
                           StoredClientStatus(row.Field(u"Status").ToText())};
}

void RecalculateClientBalance(Business& business, std::optional<Id<Client>> client) {
  if (!client) return;
  Transaction recalculation(business);
  const auto info = GetClientBillingInfo(business, *client);
  if (!info) return;
  const Id<Client> payer = info->payer;
  switch (BalanceKindOf(*client, payer, info->status)) {
    case BalanceKind::PaysForItself: {
      const Money jobs = JobsOfClient(business, *client) + JobsOfTheOthers(business, *client);
      StoreBalance(business, *client, RoundedBalance(PaidByClient(business, *client), jobs),
                   Rows::Exactly(1));
      break;
    }
    case BalanceKind::BillingAddress:
      StoreBalance(business, *client,
                   RoundedBalance(PaidByGroup(business, payer), JobsOfGroup(business, payer)),
                   Rows::Exactly(1));
      break;
    case BalanceKind::BilledToAnother:
      StoreBalance(business, *client, Money(), Rows::Exactly(1));
      // The payer may be one who has been deleted: then nobody owes it.
      StoreBalance(business, payer, PaidByGroup(business, payer) - JobsOfGroup(business, payer),
                   Rows::Any());
      break;
  }
  RefreshDebtorSince(business, *client);
  recalculation.Commit();
}

void RecalculateClientAndPayer(Business& business, std::optional<Id<Client>> client) {
  if (!client) return;
  RecalculateClientBalance(business, client);
  const auto payer = PayerOf(business, *client);
  if (payer != client) RecalculateClientBalance(business, payer);
}

void RefreshDebtorSince(Business& business, Id<Client> client) {
  const Recordset row = business.RunSQL(
      Sql("SELECT Account_Balance, Debtor_Since FROM Clients WHERE Client_ID = {}", client));
  if (row.EndOfFile()) return;
  const Value since =
      NextDebtorSince(row.Field(u"Account_Balance").ToMoney(), row.Field(u"Debtor_Since"),
                      business.Today(), [&] { return OldestUnpaidJob(business, client); });
  business.Write(Sql("UPDATE Clients SET Debtor_Since = {} WHERE Client_ID = {}", since, client),
                 Rows::Exactly(1));
}

bool RecomputeAmountOwingAfterAsking(Business& business, Prompter& prompter) {
  const Answer answer = prompter.Ask(
      QStringLiteral("Are you sure you want to re-calculate and update the Amount owing of clients "
                     "based on the formula : \n\nAmount owing = Payments - Total amount of Jobs"));
  if (answer != Answer::Yes) return false;
  {
    const BusyWhile busy(business.World().busy);
    LogActivity(business, QStringLiteral("Recalculate Amount Owing of All Clients"));
    RecalculateAmountOwingOfAllClients(business);
  }
  prompter.Tell(Tone::Information, QStringLiteral("Re-calculation done."));
  return true;
}

}  // namespace quillary::balances
