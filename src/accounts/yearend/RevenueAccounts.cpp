#include "accounts/yearend/RevenueAccounts.h"

#include "accounts/yearend/PreviousRecords.h"

namespace quillary::accounts {
namespace {

constexpr const char* kPaidServices =
    "(Payments LEFT JOIN General_Ledger_Entries ON Payments.Payment_ID = "
    "General_Ledger_Entries.Payment_ID) INNER JOIN ((Diary INNER JOIN Diary_Services ON "
    "Diary.Diary_ID = Diary_Services.Diary_ID) INNER JOIN Services ON Diary_Services.Service_ID = "
    "Services.Service_ID) ON Payments.Payment_ID = Diary.Payment_ID";

Sql Selection(const char* what) {
  return Sql((QByteArray("SELECT ") + what + " FROM " + kPaidServices +
              " WHERE Isnull(General_Ledger_Entries.Purchase_ID)")
                 .constData());
}

}  // namespace

int CountRevenueToUpdate(Business& business) {
  return static_cast<int>(business.FirstField(Selection("COUNT(*)")).ToLong());
}

void UpdateRevenueAccounts(Business& business) {
  Transaction repair(business);
  for (const Record row :
       business.RunSQL(Selection("Payments.Payment_ID, General_Ledger_Entries.GL_Account_ID, "
                                 "Services.Default_GL_Account_ID, Diary_Services.Price"))) {
    if (row[u"GLAccountID"].ToLong() != 0) continue;
    business.Write(Sql(
        "INSERT INTO General_Ledger_Entries (Entry_Date, Payment_ID, GL_Account_ID, GL_Amount) "
        "VALUES ({}, {}, {}, {})",
        row[u"Payment_Date"], row[u"Payment_ID"], row[u"Default_GL_Account_ID"], row[u"Price"]));
  }
  business.Write(Sql(
      "UPDATE (Payments LEFT JOIN General_Ledger_Entries ON Payments.Payment_ID = "
      "General_Ledger_Entries.Payment_ID) INNER JOIN ((Diary INNER JOIN Diary_Services ON "
      "Diary.Diary_ID = Diary_Services.Diary_ID) INNER JOIN Services ON Diary_Services.Service_ID "
      "= Services.Service_ID) ON Payments.Payment_ID = Diary.Payment_ID Set "
      "General_Ledger_Entries.GL_Account_ID = Services.Default_GL_Account_ID Where "
      "(((General_Ledger_Entries.GL_Account_ID) = 0)) Or "
      "(((IsNull([General_Ledger_Entries].[GL_Account_ID])) <> False))"));
  repair.Commit();
}

bool UpdateRevenueAccountsAfterAsking(Business& business, Prompter& prompter) {
  const Answer answer = prompter.AskBeforeLosing(
      BackupWarning() + QStringLiteral("\n\nAre you sure you want to update the Revenue Account of "
                                       "all your Payment records into its default GL Account?"));
  if (answer != Answer::Yes) return false;
  {
    const BusyWhile busy(business.World().busy);
    UpdateRevenueAccounts(business);
  }
  prompter.Tell(Tone::Information, QStringLiteral("Done."));
  return true;
}

}  // namespace quillary::accounts
