#include "balances/JobsAndPaymentChecker.h"

#include "balances/ClientBalance.h"

#include <QHash>
#include <QStringList>

namespace quillary::balances {
namespace {

/// The names of the revenue accounts that the payments of the group are booked to.
QHash<qint64, QStringList> AccountsOfPayments(Business& business, qint64 clientId) {
  QHash<qint64, QStringList> accounts;
  const Recordset entries = business.RunSQL(
      Sql("SELECT Payments.Payment_ID, General_Ledger_Accounts.GL_Account_Name "
          "FROM ((Payments INNER JOIN Clients ON Payments.Client_ID = Clients.Client_ID) "
          "INNER JOIN General_Ledger_Entries "
          "ON Payments.Payment_ID = General_Ledger_Entries.Payment_ID) "
          "INNER JOIN General_Ledger_Accounts "
          "ON General_Ledger_Entries.GL_Account_ID = General_Ledger_Accounts.GL_Account_ID "
          "WHERE Clients.Billing_Client_ID = {} OR Clients.Client_ID = {} "
          "ORDER BY General_Ledger_Entries.GL_Entry_ID",
          clientId, clientId));
  for (const Record entry : entries) {
    QStringList& names = accounts[entry[u"Payment_ID"].ToLong()];
    const QString name = entry[u"GL_Account_Name"].ToText();
    if (!names.contains(name)) names += name;
  }
  return accounts;
}

CheckedPayments ListPayments(Business& business, qint64 clientId, const Sql& whose) {
  const QHash<qint64, QStringList> accounts = AccountsOfPayments(business, clientId);
  CheckedPayments payments;
  const Recordset rows = business.RunSQL(
      Sql("SELECT Payments.Payment_ID, Payments.Client_ID, Clients.Display_Name, "
          "Payments.Payment_Date, Payments.Amount, Payments.Payment_Method "
          "FROM Payments LEFT JOIN Clients ON Payments.Client_ID = Clients.Client_ID WHERE ") +
      whose + Sql(" ORDER BY Payments.Payment_Date DESC, Payments.Payment_ID DESC"));
  for (const Record row : rows) {
    const qint64 paymentId = row[u"Payment_ID"].ToLong();
    const QStringList names = accounts.value(paymentId);
    payments.rows.push_back(
        {paymentId, row[u"Client_ID"].ToLong(), row[u"Display_Name"].ToText(),
         row[u"Payment_Date"].ToDate(), row[u"Amount"].ToMoney(), row[u"Payment_Method"].ToText(),
         names.isEmpty() ? QStringLiteral("(None)") : names.join(QStringLiteral(", "))});
    payments.total += payments.rows.back().amount;
  }
  return payments;
}

bool IsCode(const QString& status, const char16_t* code) {
  return status.compare(QStringView(code), Qt::CaseInsensitive) == 0;
}

}  // namespace

std::vector<CheckedClient> ListCheckedClients(Business& business) {
  std::vector<CheckedClient> clients;
  const Recordset rows = business.RunSQL(
      Sql("SELECT Clients.Client_ID, Clients.Display_Name, Clients.Status, "
          "Clients.Billing_Client_ID, Clients.Account_Balance, Billed.Display_Name AS Billed_Name, "
          "Billed.Account_Balance AS Billed_Balance "
          "FROM Clients LEFT JOIN Clients AS Billed "
          "ON Clients.Billing_Client_ID = Billed.Client_ID "
          "ORDER BY Clients.Display_Name, Clients.Surname, Clients.First_Name"));
  for (const Record row : rows) {
    const qint64 clientId = row[u"Client_ID"].ToLong();
    const bool paysForItself = row[u"Billing_Client_ID"].ToLong() == clientId;
    clients.push_back(
        {clientId, row[u"Display_Name"].ToText(), row[u"Status"].ToText(),
         paysForItself ? QStringLiteral(" (same as client) ") : row[u"Billed_Name"].ToText(),
         -row[u"Account_Balance"].ToMoney(), -row[u"Billed_Balance"].ToMoney()});
  }
  return clients;
}

QString CheckedJob::StatusWords() const {
  if (IsCode(status, u"J")) return QStringLiteral("Job NOT DONE");
  if (IsCode(status, u"JC")) return QStringLiteral("Job CANCELLED.");
  if (IsCode(status, u"JI")) return QStringLiteral("Job INVOICED");
  return QStringLiteral("Job DONE");
}

CheckedJobColour CheckedJob::Colour() const {
  if (isPaid) return CheckedJobColour::Paid;
  return IsCode(status, u"J") || IsCode(status, u"JC") ? CheckedJobColour::NotDone
                                                       : CheckedJobColour::Done;
}

CheckedJobs ListCheckedJobs(Business& business, qint64 clientId) {
  CheckedJobs jobs;
  const Recordset rows = business.RunSQL(
      Sql("SELECT Diary.Diary_ID, Diary.Client_ID, Clients_1.Display_Name, Diary.Schedule_Date, "
          "Diary.Description, Diary.Total_Price, Diary.Status, Diary.Payment_ID "
          "FROM Clients AS Clients_1 INNER JOIN Diary ON Clients_1.Client_ID = Diary.Client_ID "
          "WHERE (Clients_1.Billing_Client_ID = {} OR Clients_1.Client_ID = {}) "
          "AND Diary.Status IN ('JP', 'JU', 'JD', 'JI') "
          "ORDER BY Clients_1.Display_Name, Diary.Schedule_Date DESC",
          clientId, clientId));
  for (const Record row : rows) {
    jobs.rows.push_back({row[u"Diary_ID"].ToLong(), row[u"Client_ID"].ToLong(),
                         row[u"Display_Name"].ToText(), row[u"Schedule_Date"].ToDate(),
                         row[u"Description"].ToText(), row[u"Total_Price"].ToMoney(),
                         row[u"Status"].ToText(), !row[u"Payment_ID"].IsNull()});
    jobs.total = (jobs.total + jobs.rows.back().totalPrice).Rounded(2);
  }
  return jobs;
}

CheckedPayments ListPaymentsOfClient(Business& business, qint64 clientId) {
  return ListPayments(business, clientId, Sql("Payments.Client_ID = {}", clientId));
}

CheckedPayments ListPaymentsOfAttachedClients(Business& business, qint64 clientId) {
  return ListPayments(
      business, clientId,
      Sql("Clients.Billing_Client_ID = {} AND Payments.Client_ID <> {}", clientId, clientId));
}

void DeleteCheckedJob(Business& business, qint64 clientId, qint64 diaryId) {
  Transaction deletion(business);
  business.RunSQL(Sql("DELETE FROM Diary_Services WHERE Diary_ID = {}", diaryId));
  business.RunSQL(Sql("DELETE FROM Diary WHERE Diary_ID = {}", diaryId));
  RecalculateClientBalance(business, clientId);
  deletion.Commit();
}

void DeleteCheckedPayment(Business& business, qint64 clientId, qint64 paymentId) {
  Transaction deletion(business);
  business.RunSQL(Sql("DELETE FROM Payments WHERE Payment_ID = {}", paymentId));
  business.RunSQL(Sql("DELETE FROM General_Ledger_Entries WHERE Payment_ID = {}", paymentId));
  business.RunSQL(Sql("UPDATE Diary SET Payment_ID = NULL WHERE Payment_ID = {}", paymentId));
  RecalculateClientBalance(business, clientId);
  deletion.Commit();
}

}  // namespace quillary::balances
