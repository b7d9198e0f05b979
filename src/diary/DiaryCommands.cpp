#include "diary/DiaryCommands.h"

#include "balances/ClientBalance.h"
#include "diary/DiaryDay.h"

namespace quillary::diary {

qint64 BilledClientOf(Business& business, qint64 diaryId) {
  const Recordset client =
      business.RunSQL(Sql("SELECT Clients.Client_ID, Clients.Billing_Client_ID "
                          "FROM Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID "
                          "WHERE Diary.Diary_ID = {}",
                          diaryId));
  if (client.EndOfFile()) return 0;
  const qint64 billed = client.Field(u"Billing_Client_ID").ToLong();
  return billed == 0 ? client.Field(u"Client_ID").ToLong() : billed;
}

void ChangeJobStatusAndBalance(Business& business, qint64 diaryId, const QString& status) {
  Transaction change(business);
  ChangeJobStatus(business, diaryId, status);
  balances::RecalculateClientBalance(business, BilledClientOf(business, diaryId));
  change.Commit();
}

void CancelJob(Business& business, qint64 diaryId) {
  ChangeJobStatusAndBalance(business, diaryId, QStringLiteral("JC"));
}

void MarkDoneUnpaidAndBalance(Business& business, Prompter& prompter, qint64 diaryId) {
  MarkDoneUnpaid(business, prompter, diaryId);
  balances::RecalculateClientBalance(business, BilledClientOf(business, diaryId));
}

void OfferToCancelJob(Business& business, Prompter& prompter, qint64 diaryId) {
  const Answer answer = prompter.Ask(QStringLiteral("Do you want to Cancel this job first?"));
  if (answer == Answer::Yes) CancelJob(business, diaryId);
}

}  // namespace quillary::diary
