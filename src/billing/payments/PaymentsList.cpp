#include "billing/payments/PaymentsList.h"

#include "billing/payments/JobsAndPaymentChecker.h"

#include <QHash>
#include <QStringList>

namespace quillary::billing {
namespace {

struct JobsOfPayment {
  QStringList accounts;
  Money total;
};

/// One pass over the services of all payments listed: a statement for each payment would read the
/// diary as often as there are rows.
QHash<Id<Payment>, JobsOfPayment> LoadJobs(Business& business, const Sql& which) {
  QHash<Id<Payment>, JobsOfPayment> jobs;
  for (const Record row : business.RunSQL(
           Sql("SELECT Diary.Payment_ID, Diary_Services.Price, "
               "General_Ledger_Accounts.GL_Account_Name "
               "FROM (((Payments INNER JOIN Diary ON Payments.Payment_ID = Diary.Payment_ID) "
               "INNER JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID) "
               "LEFT JOIN Services ON Diary_Services.Service_ID = Services.Service_ID) "
               "LEFT JOIN General_Ledger_Accounts "
               "ON Services.Default_GL_Account_ID = General_Ledger_Accounts.GL_Account_ID "
               "WHERE ") +
           which + Sql(" ORDER BY Diary.Diary_ID, Services.Service"))) {
    JobsOfPayment& of = jobs[Id<Payment>(row[u"Payment_ID"].ToLong())];
    of.total += row[u"Price"].ToMoney();
    const QString account = row[u"GL_Account_Name"].ToText();
    if (!account.isEmpty() && !of.accounts.contains(account)) of.accounts += account;
  }
  return jobs;
}

PaymentsList LoadPayments(Business& business, const Sql& which, const Sql& order) {
  const QHash<Id<Payment>, JobsOfPayment> jobs = LoadJobs(business, which);
  PaymentsList list;
  for (const Record row : business.RunSQL(
           Sql("SELECT Payments.Payment_ID, Clients.Display_Name, Payments.Payment_Date, "
               "Payments.Amount, Payments.Payment_Method, Payments.Client_ID "
               "FROM Payments LEFT JOIN Clients ON Payments.Client_ID = Clients.Client_ID WHERE ") +
           which + order)) {
    const Id<Payment> paymentId(row[u"Payment_ID"].ToLong());
    const JobsOfPayment paidFor = jobs.value(paymentId);
    list.rows.push_back({paymentId, row[u"Client_ID"].ToId<Client>(), row[u"Display_Name"].ToText(),
                         row[u"Payment_Date"].ToDate(), row[u"Amount"].ToMoney(),
                         row[u"Payment_Method"].ToText(),
                         paidFor.accounts.join(QStringLiteral(", ")), paidFor.total});
    const PaymentRow& payment = list.rows.back();
    list.totalAmount += payment.amount;
    list.totalBeingPaidFor += payment.glAmount;
    if (payment.accounts.isEmpty()) list.totalWithoutAccount += payment.amount;
  }
  return list;
}

}  // namespace

PaymentsList LoadPaymentsList(Business& business, const DateRange& days) {
  return LoadPayments(business,
                      Sql("Payments.Payment_Date BETWEEN {} AND {}", days.from, EndOfDay(days.to)),
                      Sql(" ORDER BY Display_Name, Payment_Date DESC, Payments.Payment_ID DESC;"));
}

PaymentsList LoadPaymentsByAClient(Business& business, Id<Client> clientId) {
  return LoadPayments(business, Sql("Payments.Client_ID = {}", clientId),
                      Sql(" ORDER BY Payment_Date DESC, Payments.Payment_ID DESC;"));
}

std::optional<Refusal> DeletePayment(Business& business, Prompter& prompter,
                                     const PaymentRow* payment) {
  if (!payment) return Refusal{QStringLiteral("Please select a payment to delete."), {}};
  const Answer answer = prompter.AskBeforeLosing(
      QStringLiteral("Are you sure you want to delete this payment made by ") +
      payment->displayName + u'?');
  if (answer == Answer::Yes) RemovePayment(business, payment->clientId, payment->paymentId);
  return std::nullopt;
}

}  // namespace quillary::billing
