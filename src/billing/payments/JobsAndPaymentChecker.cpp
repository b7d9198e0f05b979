#include "billing/payments/JobsAndPaymentChecker.h"

#include "balances/ClientBalance.h"
#include "domain/Payer.h"

#include <QHash>
#include <QStringList>

namespace quillary::billing {
namespace {

/// The names of the revenue accounts that the payments of the group are booked to.
QHash<Id<Payment>, QStringList> AccountsOfPayments(Business& business, Id<Client> client) {
  QHash<Id<Payment>, QStringList> accounts;
  const Recordset entries = business.RunSQL(
      Sql("SELECT Payments.Payment_ID, General_Ledger_Accounts.GL_Account_Name "
          "FROM ((Payments INNER JOIN Clients ON Payments.Client_ID = Clients.Client_ID) "
          "INNER JOIN General_Ledger_Entries "
          "ON Payments.Payment_ID = General_Ledger_Entries.Payment_ID) "
          "INNER JOIN General_Ledger_Accounts "
          "ON General_Ledger_Entries.GL_Account_ID = General_Ledger_Accounts.GL_Account_ID "
          "WHERE {} OR Clients.Client_ID = {} ORDER BY General_Ledger_Entries.GL_Entry_ID",
          IsPaidBy("Clients", client), client));
  for (const Record entry : entries) {
    QStringList& names = accounts[Id<Payment>(entry[u"Payment_ID"].ToLong())];
    const QString name = entry[u"GL_Account_Name"].ToText();
    if (!names.contains(name)) names += name;
  }
  return accounts;
}

CheckedPayments ListPayments(Business& business, Id<Client> client, const Sql& whose) {
  const auto accounts = AccountsOfPayments(business, client);
  CheckedPayments payments;
  const Recordset rows = business.RunSQL(
      Sql("SELECT Payments.Payment_ID, Payments.Client_ID, Clients.Display_Name, "
          "Payments.Payment_Date, Payments.Amount, Payments.Payment_Method "
          "FROM Payments LEFT JOIN Clients ON Payments.Client_ID = Clients.Client_ID WHERE ") +
      whose + Sql(" ORDER BY Payments.Payment_Date DESC, Payments.Payment_ID DESC"));
  for (const Record row : rows) {
    const Id<Payment> payment(row[u"Payment_ID"].ToLong());
    const QStringList names = accounts.value(payment);
    payments.rows.push_back(
        {payment, Id<Client>(row[u"Client_ID"].ToLong()), row[u"Display_Name"].ToText(),
         row[u"Payment_Date"].ToDate(), row[u"Amount"].ToMoney(), row[u"Payment_Method"].ToText(),
         names.isEmpty() ? QStringLiteral("(None)") : names.join(QStringLiteral(", "))});
    payments.total += payments.rows.back().amount;
  }
  return payments;
}

}  // namespace

std::vector<CheckedClient> ListCheckedClients(Business& business) {
  std::vector<CheckedClient> clients;
  const Recordset rows = business.RunSQL(
      Sql("SELECT Clients.Client_ID, Clients.Display_Name, Clients.Status, "
          "Clients.Billing_Client_ID, Clients.Account_Balance, Billed.Display_Name AS Billed_Name, "
          "Billed.Account_Balance AS Billed_Balance "
          "FROM Clients LEFT JOIN Clients AS Billed ON {} = Billed.Client_ID "
          "ORDER BY Clients.Display_Name, Clients.Surname, Clients.First_Name",
          PayerColumn("Clients")));
  for (const Record row : rows) {
    const Id<Client> client(row[u"Client_ID"].ToLong());
    const bool paysForItself = PayerFrom(client, row[u"Billing_Client_ID"]) == client;
    clients.push_back(
        {client, row[u"Display_Name"].ToText(), StoredClientStatus(row[u"Status"].ToText()),
         paysForItself ? QStringLiteral(" (same as client) ") : row[u"Billed_Name"].ToText(),
         -row[u"Account_Balance"].ToMoney(), -row[u"Billed_Balance"].ToMoney()});
  }
  return clients;
}

QString CheckedJob::StatusWords() const {
  const QString words = FoldedWordsOf(status);
  return status.Is(EntryStatus::JobCancelled) ? words + u'.' : words;
}

CheckedJobs ListCheckedJobs(Business& business, Id<Client> client) {
  CheckedJobs jobs;
  const Recordset rows = business.RunSQL(
      Sql("SELECT Diary.Diary_ID, Diary.Client_ID, Clients_1.Display_Name, Diary.Schedule_Date, "
          "Diary.Description, Diary.Total_Price, Diary.Status, Diary.Payment_ID "
          "FROM Clients AS Clients_1 INNER JOIN Diary ON Clients_1.Client_ID = Diary.Client_ID "
          "WHERE ({} OR Clients_1.Client_ID = {}) AND Diary.Status IN {} "
          "ORDER BY Clients_1.Display_Name, Diary.Schedule_Date DESC",
          IsPaidBy("Clients_1", client), client, CodesOf(EntryGroup::WorkDone)));
  for (const Record row : rows) {
    jobs.rows.push_back({Id<Entry>(row[u"Diary_ID"].ToLong()),
                         Id<Client>(row[u"Client_ID"].ToLong()), row[u"Display_Name"].ToText(),
                         row[u"Schedule_Date"].ToDate(), row[u"Description"].ToText(),
                         row[u"Total_Price"].ToMoney(), StoredEntryStatus(row[u"Status"].ToText()),
                         row[u"Payment_ID"].ToId<Payment>().has_value()});
    jobs.total = (jobs.total + jobs.rows.back().totalPrice).Rounded(2);
  }
  return jobs;
}

CheckedPayments ListPaymentsOfClient(Business& business, Id<Client> client) {
  return ListPayments(business, client, Sql("Payments.Client_ID = {}", client));
}

CheckedPayments ListPaymentsOfAttachedClients(Business& business, Id<Client> client) {
  return ListPayments(business, client,
                      Sql("{} AND Payments.Client_ID <> {}", IsPaidBy("Clients", client), client));
}

void RemovePayment(Business& business, std::optional<Id<Client>> client, Id<Payment> payment) {
  Transaction deletion(business);
  business.Write(Sql("DELETE FROM Payments WHERE Payment_ID = {}", payment), Rows::Exactly(1));
  business.Write(Sql("DELETE FROM General_Ledger_Entries WHERE Payment_ID = {}", payment));
  business.Write(Sql("UPDATE Diary SET Payment_ID = NULL WHERE Payment_ID = {}", payment));
  balances::RecalculateClientBalance(business, client);
  deletion.Commit();
}

}  // namespace quillary::billing
