#include "shell/Program.h"

#include "accounts/screens/AccountScreens.h"
#include "balances/screens/BalanceScreens.h"
#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Maintenance.h"
#include "base/ports/requests/Scheduling.h"
#include "base/ports/requests/Screens.h"
#include "base/ports/requests/Setup.h"
#include "billing/screens/BillingScreens.h"
#include "clients/screens/ClientScreens.h"
#include "data/schema/Schema.h"
#include "diary/screens/DiaryScreens.h"
#include "documents/screens/DocumentScreens.h"
#include "kit/InputHabits.h"
#include "kit/ScreenDialog.h"
#include "link/screens/LinkScreens.h"
#include "lists/screens/ListScreens.h"
#include "mail/screens/MailScreens.h"
#include "maintenance/DatabaseVersion.h"
#include "maintenance/screens/MaintenanceScreens.h"
#include "older/screens/frmConvY12RY1.h"
#include "reports/screens/ReportScreens.h"
#include "session/AccessConversion.h"
#include "session/ProgramFolder.h"
#include "setup/screens/SetupScreens.h"
#include "setup/screens/frmFirstTime.h"
#include "shell/FirstDoors.h"
#include "shell/frmAbout.h"
#include "shell/frmODBCConnection.h"
#include "today/screens/TodayScreens.h"

#include <QFileInfo>

namespace quillary::shell {
namespace {

/// Shows screens as long as there is no window with tabs.
class DialogHost : public ScreenHost {
 public:
  void ShowScreen(Screen* screen) override {
    auto* dialog = new ScreenDialog(screen);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
  }
  Screen* BringToFront(const QString&) override { return nullptr; }
};

}  // namespace

Program::Program(const Outside& outside, Navigator& navigator, const QString& programFolder)
    : outside_(outside),
      navigator_(navigator),
      settings_(programFolder, outside.prompter),
      runner_(outside.errors, outside.busy),
      manual_(outside, session::ToolsFolder(),
              [this] { return mainMenu_ ? mainMenu_->CurrentScreen() : nullptr; }) {
  InputHabits::Install();
}

Program::~Program() {
  frontDoor_.reset();
  // The screens refer to the business until they go.
  mainMenu_.reset();
}

bool Program::Start(const QString& commandLine) {
  userLeft_ = false;
  setUpForced_ = commandLine == u"-i";
  business_ = session::StartUp(outside_, settings_, commandLine, *this);
  if (!business_) {
    progress_.close();
    mainMenu_.reset();
  }
  return business_ != nullptr;
}

std::unique_ptr<Business> Program::SelectDatabaseToAccess() {
  if (!file_.isEmpty()) {
    if (!QFileInfo(file_).isFile()) {
      outside_.prompter.Tell(Tone::Exclamation,
                             QStringLiteral("Couldn't find the database file : ") + file_);
      return nullptr;
    }
    if (AskToTheFront(file_, settings_.Folder())) {
      userLeft_ = true;
      return nullptr;
    }
    const QString opened = session::ConvertIfAccessFile(
        outside_, QFileInfo(file_).absoluteFilePath(), session::ArchiveUnder(settings_.Folder()));
    if (opened.isEmpty()) return nullptr;
    return session::OpenDatabase(outside_, opened, settings_.Folder());
  }
  auto business = FirstDoors(outside_, settings_, runner_).Choose();
  userLeft_ = !business;
  return business;
}

void Program::ShowProgress() {
  progress_.Start();
}

void Program::Advance() {
  progress_.Advance();
}

void Program::Repaint() {
  progress_.Repaint();
}

void Program::FillProgress() {
  progress_.Fill();
}

void Program::CloseProgress() {
  progress_.close();
}

void Program::ShowFirstTime(Business& business) {
  // Whoever names the file wants to work in it at once.
  if (!file_.isEmpty() && !setUpForced_) return;
  // The screens of the set-up open over the checklist, since there is no main window yet.
  DialogHost host;
  const ScreenTools tools{navigator_, host, runner_};
  setup::RegisterSetupScreens(business, tools, settings_.Folder());
  link::RegisterLinkScreens(business, tools, settings_.Folder());
  lists::RegisterListScreens(business, tools);
  accounts::RegisterAccountScreens(business, tools);
  older::RegisterOlderScreens(business, tools, session::ArchiveUnder(settings_.Folder()));
  // Their rules go by values that the start loads later, from a file of this version only.
  const Value version = business.LookupField(QStringLiteral("infSystem.Database_Version"));
  if (version.ToLong() == kSchemaVersion) LoadSharedValues(business);
  setup::frmFirstTime::ShowYourself(business, settings_, tools);
}

void Program::ShowMainMenu(Business& business) {
  mainMenu_ = std::make_unique<MainMenuMDI>(business, settings_, navigator_, runner_);
  RegisterScreens(business);
  mainMenu_->ShowYourself();
  frontDoor_ = std::make_unique<FrontDoor>(business.DatabaseFile(), settings_.Folder(), *mainMenu_);
}

void Program::RegisterScreens(Business& business) {
  maintenance::RegisterMaintenanceScreens(business, settings_, mainMenu_->Tools(),
                                          session::ArchiveUnder(settings_.Folder()));
  older::RegisterOlderScreens(business, mainMenu_->Tools(),
                              session::ArchiveUnder(settings_.Folder()));
  setup::RegisterSetupScreens(business, mainMenu_->Tools(), settings_.Folder());
  link::RegisterLinkScreens(business, mainMenu_->Tools(), settings_.Folder());
  lists::RegisterListScreens(business, mainMenu_->Tools());
  diary::RegisterDiaryScreens(business, mainMenu_->Tools());
  clients::RegisterClientScreens(business, mainMenu_->Tools());
  balances::RegisterBalanceScreens(business, mainMenu_->Tools());
  billing::RegisterBillingScreens(business, mainMenu_->Tools());
  accounts::RegisterAccountScreens(business, mainMenu_->Tools());
  mail::RegisterMailScreens(business, mainMenu_->Tools());
  documents::RegisterDocumentScreens(business, mainMenu_->Tools());
  reports::RegisterReportScreens(business, mainMenu_->Tools());
  mails_ = std::make_unique<mail::MailsUnderWay>(business);
  today::RegisterTodayScreens(
      business, mainMenu_->Tools(),
      {.archive = session::ArchiveUnder(settings_.Folder()), .mail = mails_.get()});
  navigator_.Register<SetDBVersion>(
      [&business](const SetDBVersion&) { maintenance::SetDatabaseVersion(business); });
  RegisterHelp();
  navigator_.Register<OpenAbout>([this](const OpenAbout&) { frmAbout(mainMenu_.get()).exec(); });
  navigator_.Register<OpenODBCConnection>([this](const OpenODBCConnection&) {
    frmODBCConnection(outside_, settings_.Folder(), mainMenu_.get()).exec();
  });
}

void Program::CheckClientSchedules(Business&) {
  if (navigator_.CanOpen<OpenListOfClientsWithSchedulingProblem>())
    navigator_.Open(OpenListOfClientsWithSchedulingProblem{true});
}

void Program::OpenMonthlyInvoices(Business&) {
  if (navigator_.CanOpen<OpenInvoicesList>()) navigator_.Open(OpenInvoicesList{true});
}

void Program::RenameMenuCaptions(const QString& taxName) {
  mainMenu_->RenameMenuCaptions(taxName);
}

}  // namespace quillary::shell
