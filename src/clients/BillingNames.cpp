#include "clients/BillingNames.h"

#include "base/Text.h"
#include "data/ActivityLog.h"

namespace quillary::clients {
namespace {

constexpr const char* kFirstNameFirst =
    "Trim(IIf(Isnull(First_name),'',First_Name) + ' ' + Iif(Isnull(Surname),'', Surname))";
constexpr const char* kSurnameFirst =
    "Trim(IIf(Isnull(Surname),'',Surname) + IIf(Isnull(Surname) or Isnull(First_name),' ', ', ') + "
    "Iif(Isnull(First_name),'', First_name))";

const char* NameBy(NameOrder order) {
  return order == NameOrder::FirstNameFirst ? kFirstNameFirst : kSurnameFirst;
}

}  // namespace

QString CodeOf(NameOrder order) {
  return order == NameOrder::FirstNameFirst ? QStringLiteral("FS") : QStringLiteral("SF");
}

int CountBillingNames(Business& business, NameOrder order) {
  int count = 0;
  for (const Record row : business.RunSQL(
           Sql((QByteArray("SELECT Display_Name, ") + NameBy(order) + " AS New_Name FROM Clients")
                   .constData())))
    if (row[size_t{0}].ToText() != row[1].ToText()) ++count;
  return count;
}

void RenameClients(Business& business, NameOrder order) {
  business.World().settings.Write(QStringLiteral("Display Format"),
                                  QStringLiteral("Billing Name Format"), CodeOf(order));
  business.Write(
      Sql((QByteArray("UPDATE Clients SET Display_Name = ") + NameBy(order)).constData()));
}

bool UpdateBillingNamesAfterAsking(Business& business, Prompter& prompter, NameOrder order) {
  const bool firstNameFirst = order == NameOrder::FirstNameFirst;
  const QString question =
      QStringLiteral(
          "Please make sure you have a backup copy of your database before doing this as this may "
          "cause undesired result.\n\nPlease also note that this setting will be used when you "
          "click on the  -> button to update the Billing name in the Client screen.\n\nAre you "
          "sure you want to update the Billing name of all your clients into the format %1 "
          "now?\n\n%2 would change.")
          .arg(firstNameFirst ? QStringLiteral("Firstname + Surname")
                              : QStringLiteral("Surname, Fisrtname"),
               Counted(static_cast<size_t>(CountBillingNames(business, order)), "name"));
  if (prompter.AskBeforeLosing(question) != Answer::Yes) return false;
  LogActivity(business,
              firstNameFirst
                  ? QStringLiteral("Update Billing/Disply name fomrat (Firstname/Surname)")
                  : QStringLiteral("Update Billing/Disply name fomrat (Surname/FirstName)"));
  {
    const BusyWhile busy(business.World().busy);
    RenameClients(business, order);
    business.PastCommands().Describe(QStringLiteral("Billing names of all clients"));
  }
  prompter.Tell(Tone::Information, QStringLiteral("Done."));
  return true;
}

}  // namespace quillary::clients
