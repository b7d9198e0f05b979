#include "base/ports/requests/Maintenance.h"
#include "base/ports/requests/Setup.h"
#include "kit/Grid.h"
#include "maintenance/backups/BackupPlaces.h"
#include "maintenance/backups/Backups.h"
#include "session/ProgramFolder.h"
#include "setup/screens/frmFirstTime.h"
#include "setup/screens/frmFirstTime_PortData.h"
#include "setup/screens/frmNewBusiness.h"
#include "shell/RecentFiles.h"
#include "shell/frmWelcome.h"
#include "shell/shots/Shots.h"

#include <QDir>

/// The pictures of settings, backups and the first day.
namespace quillary::shell {

void Shots::FirstDay() {
  RecentFiles recent(ports_.settings);
  recent.PutInFront(program_.OpenBusiness().DatabaseFile());
  recent.Save();
  SaveDialog([this] { frmWelcome(ports_.settings).Choose(); });
  const Outside outside = ports_.All();
  CommandRunner runner(outside.errors, outside.busy);
  SaveDialog([&] { setup::frmNewBusiness(outside, runner, QStringLiteral("/home/robin")).exec(); });
  setup::OlderData found;
  found.verdo = QStringLiteral("C:/Verdo398");
  SaveDialog([&] { setup::frmFirstTime_PortData(outside.prompter, found).exec(); });
  LocalSettings settings(session::ProgramFolder(), outside.prompter);
  SaveDialog([&] {
    setup::frmFirstTime(program_.OpenBusiness(), settings, program_.MainMenu()->Tools()).exec();
  });
  MainMenuMDI* window = program_.MainMenu();
  window->Tools().navigator.Open(OpenFixClientDetails{});
  Save(window, QStringLiteral("frmInitialSetup_ClientDetails"));
  CloseScreen();
  window->Tools().navigator.Open(OpenScheduleClients{});
  Save(window, QStringLiteral("frmInitialSetup_Schedules"));
  CloseScreen();
}

void Shots::SetupDialogs() {
  FirstDay();
  MainMenuMDI* window = program_.MainMenu();
  window->Tools().navigator.Open(OpenEmployees{});
  window->findChild<Grid*>(QStringLiteral("lstEmployees"))->SelectFirst();
  Save(window, QStringLiteral("frmEmployees"));
  CloseScreen();
  SaveDialog([&] { window->Tools().navigator.Open(OpenPersonalInformation{}); });
  SaveDialog([&] { window->Tools().navigator.Open(OpenMiscellaneousSettings{}); });
  for (const char* name : {"Data1Mon.mdb", "Data21.mdb"}) {
    Business& business = program_.OpenBusiness();
    const QString archive = session::ArchiveUnder(session::ProgramFolder());
    QDir().mkpath(archive);
    maintenance::BackupDatabaseTo(business, maintenance::DailyDescription(business.Now()),
                                  QDir(archive).filePath(QLatin1StringView(name)));
  }
  SaveRequest(OpenAutomaticBackups{});
  SaveRequest(OpenCreateCustomBackup{});
  SaveRequest(OpenRestoreBackup{});
  ShowClientOfBackup();
  SaveRequest(OpenCreateDBOfTransferred{});
  SaveRequest(ImportFromBravantiOne{});
}

void Shots::ShowClientOfBackup() {
  Business& business = program_.OpenBusiness();
  const Id<Client> client(
      business.FirstField(Sql("SELECT TOP 1 Client_ID FROM Payments ORDER BY Payment_ID DESC"))
          .ToLong());
  // What an owner might have done since: lost a payment, cancelled a job, written over a note.
  const CommandScope since(business, QStringLiteral("Since the backup"));
  business.Write(
      Sql("UPDATE Clients SET Notes = 'Ring first', Phone_1 = '0400 000 000' "
          "WHERE Client_ID = {}",
          client));
  business.Write(
      Sql("DELETE FROM Payments WHERE Client_ID = {} AND Payment_ID = (SELECT "
          "MAX(Payment_ID) FROM Payments WHERE Client_ID = {})",
          client, client));
  business.Write(Sql("UPDATE Client_Services SET Price = Price + 5 WHERE Client_ID = {}", client));
  business.Write(
      Sql("UPDATE Diary SET Payment_ID = NULL WHERE Client_ID = {} AND Payment_ID NOT "
          "IN (SELECT Payment_ID FROM Payments)",
          client));
  MainMenuMDI* window = program_.MainMenu();
  window->Tools().navigator.Open(OpenRestoreClient{client});
  Save(window, QStringLiteral("frmRestoreClient"));
  window->resize(853, 480);
  Save(window, QStringLiteral("frmRestoreClient-at-150-percent"));
  window->resize(1280, 720);
  CloseScreen();
}

}  // namespace quillary::shell
