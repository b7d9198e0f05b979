#include "balances/ClientBalance.h"

#include "balances/BalanceRules.h"
#include "data/ActivityLog.h"

namespace quillary::balances {
namespace {

Money Total(Business& business, const Sql& statement) {
  return business.FirstField(statement).ToMoney();
}

/// Of all who are billed to the client, itself included when it is billed to itself.
Money JobsOfGroup(Business& business, qint64 billingClientId) {
  return Total(business, Sql("SELECT SUM(Total_Price) AS TotalPrice FROM Diary "
                             "INNER JOIN Clients ON Diary.Client_ID = Clients.Client_ID "
                             "WHERE Billing_Client_ID = {} "
                             "AND Diary.Status IN ('JP', 'JU', 'JD', 'JI');",
                             billingClientId));
}

Money JobsOfTheOthers(Business& business, qint64 clientId) {
  return Total(business, Sql("SELECT SUM(Total_Price) AS TotalPrice FROM Diary "
                             "INNER JOIN Clients ON Diary.Client_ID = Clients.Client_ID "
                             "WHERE Billing_Client_ID = {} "
                             "AND Diary.Status IN ('JP', 'JU', 'JD', 'JI') "
                             "AND Diary.Client_ID <> {};",
                             clientId, clientId));
}

Money JobsOfClient(Business& business, qint64 clientId) {
  return Total(business, Sql("SELECT SUM(Total_Price) AS TotalPrice FROM Diary "
                             "WHERE Client_ID = {} AND Status IN ('JP', 'JU', 'JD', 'JI');",
                             clientId));
}

Money PaidByClient(Business& business, qint64 clientId) {
  return Total(business, Sql("SELECT SUM(Amount) AS TotalAmount FROM Payments WHERE Client_ID = {}",
                             clientId));
}

Money PaidByGroup(Business& business, qint64 billingClientId) {
  return Total(business, Sql("SELECT SUM(Amount) AS TotalAmount FROM Payments "
                             "INNER JOIN Clients ON Payments.Client_ID = Clients.Client_ID "
                             "WHERE Billing_Client_ID = {}",
                             billingClientId));
}

void StoreBalance(Business& business, qint64 clientId, Money balance) {
  business.RunSQL(
      Sql("UPDATE Clients SET Account_Balance = {} WHERE Client_ID = {}", balance, clientId));
}

Value OldestUnpaidJob(Business& business, qint64 clientId) {
  return business.FirstField(
      Sql("SELECT TOP 1 Diary.Schedule_Date "
          "FROM (Clients INNER JOIN Clients AS Clients_1 "
          "ON Clients.Client_ID = Clients_1.Billing_Client_ID) "
          "INNER JOIN Diary ON Clients_1.Client_ID = Diary.Client_ID "
          "WHERE Clients.Client_ID = {} AND Diary.Schedule_Date < {} "
          "AND Diary.Status = 'JD' AND Diary.Payment_ID IS NULL ORDER BY Diary.Schedule_Date; ",
          clientId, business.Now()));
}

}  // namespace

ClientBillingInfo GetClientBillingInfo(Business& business, qint64 clientId) {
  const Recordset client = business.RunSQL(
      Sql("SELECT Status, Billing_Client_ID FROM Clients WHERE Client_ID = {}", clientId));
  if (!client.HasRows()) return {};
  return {client.Field(u"Billing_Client_ID").ToLong(), client.Field(u"Status").ToText()};
}

void RecalculateClientBalance(Business& business, qint64 clientId) {
  if (clientId == 0) return;
  Transaction recalculation(business);
  const ClientBillingInfo info = GetClientBillingInfo(business, clientId);
  const qint64 billed = info.billingClientId;
  switch (BalanceKindOf(clientId, billed, info.status)) {
    case BalanceKind::PaysForItself: {
      const Money jobs = JobsOfClient(business, clientId) + JobsOfTheOthers(business, clientId);
      StoreBalance(business, clientId, RoundedBalance(PaidByClient(business, clientId), jobs));
      break;
    }
    case BalanceKind::BillingAddress:
      StoreBalance(
          business, clientId,
          RoundedBalance(PaidByGroup(business, clientId), JobsOfGroup(business, clientId)));
      break;
    case BalanceKind::BilledToAnother:
      StoreBalance(business, clientId, Money());
      StoreBalance(business, billed, PaidByGroup(business, billed) - JobsOfGroup(business, billed));
      break;
  }
  RefreshDebtorSince(business, clientId);
  recalculation.Commit();
}

void RefreshDebtorSince(Business& business, qint64 clientId) {
  const Recordset client = business.RunSQL(
      Sql("SELECT Account_Balance, Debtor_Since FROM Clients WHERE Client_ID = {}", clientId));
  if (!client.HasRows()) return;
  const Value since =
      NextDebtorSince(client.Field(u"Account_Balance").ToMoney(), client.Field(u"Debtor_Since"),
                      business.Today(), [&] { return OldestUnpaidJob(business, clientId); });
  business.RunSQL(
      Sql("UPDATE Clients SET Debtor_Since = {} WHERE Client_ID = {}", since, clientId));
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
