#include "diary/DiaryCommands.h"

#include "balances/ClientBalance.h"
#include "domain/Payer.h"

namespace quillary::diary {

void ChangeJobStatus(Business& business, Id<Entry> entry, EntryStatus status) {
  Transaction change(business);
  business.Write(Sql("UPDATE Diary SET Status = {} WHERE Diary_ID = {}", status, entry),
                 Rows::Exactly(1));
  balances::RecalculateClientBalance(business, PayerOf(business, entry));
  change.Commit();
}

void CancelJob(Business& business, Id<Entry> entry) {
  ChangeJobStatus(business, entry, EntryStatus::JobCancelled);
}

void MarkDoneUnpaid(Business& business, Prompter& prompter, Id<Entry> entry) {
  ChangeJobStatus(business, entry, EntryStatus::JobDone);
  const Sql payment("SELECT Payment_ID FROM Diary WHERE Diary_ID = {}", entry);
  if (!business.FirstField(payment).ToId<Payment>()) return;
  const Answer answer = prompter.Ask(
      QStringLiteral("This job has been paid.\nPlease note that this job will only be taken off "
                     "from the payment and not actually delete the payment record?\n\nContinue?"));
  if (answer != Answer::Yes) return;
  business.Write(Sql("UPDATE Diary SET Payment_ID = NULL WHERE Diary_ID = {}", entry),
                 Rows::Exactly(1));
}

void OfferToCancelJob(Business& business, Prompter& prompter, Id<Entry> entry) {
  const Answer answer = prompter.Ask(QStringLiteral("Do you want to Cancel this job first?"));
  if (answer == Answer::Yes) CancelJob(business, entry);
}

void DeleteEntry(Business& business, Id<Entry> entry) {
  Transaction removal(business);
  const std::optional<Id<Client>> payer = PayerOf(business, entry);
  business.Write(Sql("DELETE FROM Diary WHERE Diary_ID = {}; ", entry), Rows::Exactly(1));
  business.Write(Sql("DELETE FROM Diary_Services WHERE Diary_ID = {}; ", entry));
  balances::RecalculateClientBalance(business, payer);
  removal.Commit();
}

void ChangeSequence(Business& business, Id<Entry> entry, int sequence) {
  business.Write(Sql("UPDATE Diary SET Sequence = {} WHERE Diary_ID = {};", sequence, entry),
                 Rows::Exactly(1));
}

void StoreSequence(Business& business, const std::vector<Id<Entry>>& entries) {
  Transaction order(business);
  int sequence = 0;
  for (const Id<Entry> entry : entries) ChangeSequence(business, entry, ++sequence);
  order.Commit();
}

void ChangeEmployee(Business& business, Id<Entry> entry, std::optional<Id<Employee>> employee) {
  business.Write(
      Sql("UPDATE Diary SET Employee_ID = {} WHERE Diary_ID = {};", NumberOrZero(employee), entry),
      Rows::Exactly(1));
}

}  // namespace quillary::diary
