#include "session/StartUp.h"

#include "accounts/budgets/BudgetPeriods.h"
#include "base/Errors.h"
#include "base/OwnFiles.h"
#include "data/ActivityLog.h"
#include "data/schema/Schema.h"
#include "data/schema/Upgrader.h"
#include "mail/SmtpServer.h"
#include "maintenance/backups/ExitBackups.h"
#include "roll/ScheduleEngine.h"
#include "session/ProgramFolder.h"
#include "session/Support.h"

#include <QDir>

namespace quillary::session {
namespace {

void DeleteTemporaryFiles(const QString& folder) {
  const QDir directory(folder);
  for (const QString& name : directory.entryList({QStringLiteral("*.tmp")}, QDir::Files)) {
    QFile::remove(directory.filePath(name));
  }
}

/// The one details row that all later code reads.
void EnsurePersonalDetails(Business& business) {
  if (business.RunSQL(QStringLiteral("SELECT * FROM infPersonalDetails")).EndOfFile()) {
    business.Write(Sql("INSERT INTO infPersonalDetails (FSE_CODE) values ('FSECODE')"),
                   Rows::Exactly(1));
  }
}

void EnsureEmployee(Business& business) {
  LoadDefaultEmployee(business);
  if (business.values.defaultEmployee) return;
  business.Write(Sql("INSERT INTO Employees (Employee_Name) VALUES ('Default')"), Rows::Exactly(1));
  LoadDefaultEmployee(business);
}

/// A business that has sent invoices goes on with the design that its clients know; a new one
/// starts with the other. Decided once.
QString DesignOfDocuments(Business& business) {
  SettingsStore& settings = business.World().settings;
  const QString section = QStringLiteral("Invoices");
  const QString key = QStringLiteral("Document Design");
  const QString chosen = settings.Read(section, key, {});
  if (!chosen.isEmpty()) return chosen;
  const bool isNew = business.RunSQL(Sql("SELECT TOP 1 Invoice_ID FROM Invoices")).EndOfFile();
  const QString design = isNew ? QStringLiteral("CLEAN") : QStringLiteral("CLASSIC");
  settings.Write(section, key, design);
  return design;
}

/// One run of the sequence: what has been reached, and the business once it is open.
class Sequence {
 public:
  Sequence(const Outside& outside, LocalSettings& settings, StartUpScreens& screens)
      : outside_(outside), settings_(settings), screens_(screens) {}

  bool Run(const QString& commandLine) {
    if (!settings_.Initialize()) return false;
    Reached("LocalSettings.Initialize");
    business = screens_.SelectDatabaseToAccess();
    if (!business) return false;
    Reached("SelectDatabaseToAccess");
    mail::GetSMTPDetails(*business);
    screens_.ShowProgress();
    Advance(1);
    Open(commandLine);
    LoadValues();
    RollAndShow();
    return true;
  }

  void TellFailure(const std::exception& error) const {
    const Support support = ReadSupport(settings_);
    QString told = QStringLiteral("%1.\nI've already been to %2.").arg(ErrorLine(error), activity_);
    if (!support.address.isEmpty())
      told += QStringLiteral(" Please email this message to me at %1.").arg(support.address);
    if (!support.faqPage.isEmpty())
      told += QStringLiteral(
                  "\n\nYou can also visit the Quillary website under FAQ section (%1) for "
                  "a possible solution to this problem.\n")
                  .arg(support.faqPage);
    outside_.prompter.Tell(Tone::Stop, told);
  }

  std::unique_ptr<Business> business;

 private:
  void Advance(int steps) {
    for (int step = 0; step < steps; ++step) screens_.Advance();
  }
  void Reached(const char* activity) {
    activity_ = QString::fromLatin1(activity);
    screens_.StepReached(activity_);
  }

  void Open(const QString& commandLine) {
    SharedValues& values = business->values;
    values.emailOption =
        outside_.settings
            .Read(QStringLiteral("Email"), QStringLiteral("Email Option"), QStringLiteral("MAPI"))
            .toUpper();
    values.invoicePrintingFormat =
        outside_.settings.Read(QStringLiteral("Invoices"),
                               QStringLiteral("Invoice Printing Format"), QStringLiteral("WORD"));
    DeleteTemporaryFiles(settings_.Folder());
    Advance(1);
    Reached("Globals.Initialize");
    Advance(4);
    business->ConnectToDatabase();
    Advance(1);
    Reached("ConnectToDatabase");
    const bool setUpIsDue = settings_.ReadLocalSetting(QStringLiteral("PRE_DATABASE"),
                                                       QStringLiteral("RAN_INITIAL_SETUP_8"),
                                                       QStringLiteral("0")) == QStringLiteral("0");
    if (setUpIsDue || commandLine == QStringLiteral("-i")) screens_.ShowFirstTime(*business);
    Advance(1);
    Reached("FirstTime.ShowYourself");
    UpgradeFile(*business, settings_.Folder(), [this] { screens_.Repaint(); });
    Advance(1);
    Reached("Upgrader.Initialize");
  }

  void LoadValues() {
    business->values.documentDesign = DesignOfDocuments(*business);
    LoadHolidaysIntoArray(*business);
    Reached("LoadHolidaysIntoArray");
    LoadHorizon(*business);
    Advance(1);
    EnsurePersonalDetails(*business);
    LoadDivisionName(*business);
    Advance(1);
    LoadTaxRate(*business);
    LoadAccountingMethod(*business);
    Advance(1);
    Reached("Global Var Initialize");
    EnsureEmployee(*business);
    Advance(1);
    Reached("Default_Employee_ID");
    LoadDefaultService(*business);
    Reached("Default_Employee_ID.4");
    Advance(1);
    Reached("Default_Employee_ID.5");
  }

  void RollAndShow() {
    roll::AdvanceScheduleGlobally(*business);
    Advance(2);
    Reached("AdvanceScheduleGlobally");
    accounts::InitializeBudgets(*business);
    Advance(1);
    Reached("Budget_Manager.Initialize");
    LoadTaxName(*business);  // for the screens that open with the main menu
    LoadCountry(*business);
    screens_.ShowMainMenu(*business);
    Reached("MainMenuMDI.ShowYourself");
    const QString checks = outside_.settings.Read(QStringLiteral("Scheduling problem screen"),
                                                  QStringLiteral("Show"), QStringLiteral("1"));
    if (Value(checks).ToDouble() == 1) {
      screens_.CheckClientSchedules(*business);
      Reached("ListOfClientsWithSchedulingProblem.CheckClientSchedules");
    }
    RemindOfMonthlyInvoices();
    screens_.FillProgress();
    screens_.RenameMenuCaptions(business->values.taxName);
    screens_.CloseProgress();
  }

  void RemindOfMonthlyInvoices() {
    const Value reminder =
        business->LookupField(QStringLiteral("infOptions.Monthly_Invoices_Reminder"));
    if (reminder.IsNull() || reminder.ToDate() > business->Today()) return;
    const Answer answer = outside_.prompter.Ask(QStringLiteral(
        "Reminder! You need to run your monthly invoices. Would you like to do this now?"));
    if (answer == Answer::Yes) screens_.OpenMonthlyInvoices(*business);
  }

  const Outside& outside_;
  LocalSettings& settings_;
  StartUpScreens& screens_;
  QString activity_;
};

}  // namespace

std::unique_ptr<Business> OpenDatabase(const Outside& outside, const QString& file,
                                       const QString& programFolder) {
  auto business = std::make_unique<Business>(outside, file);
  business->ConnectToDatabase();
  outside.settings.Write(QStringLiteral("LastAccessedFile"), QStringLiteral("File"), file);
  LoadOptionFlags(*business);
  if (business->values.enableLogging) {
    outside.headOffice.SetLogFile(QDir(programFolder).filePath(QStringLiteral("Log.txt")));
  }
  // A business without head office waits for no network.
  if (business->values.enableOstrel4WebServices) {
    const Recordset details = business->RunSQL(Sql("SELECT FSE_Code FROM infPersonalDetails"));
    if (details.HasRows())
      outside.headOffice.SetFSECode(details.Field(u"FSE_Code").ToText().trimmed());
    outside.headOffice.LogIn();
  }
  LogActivity(*business, QStringLiteral("Logon"));
  return business;
}

void UpgradeFile(Business& business, const QString& programFolder,
                 const std::function<void()>& repaint) {
  Upgrader::Options options;
  options.archiveFolder = ArchiveUnder(programFolder);
  options.repaint = repaint;
  options.advanceScheduleForClient = [&business](qint64 clientId) {
    // What is made anew reaches as far and is taxed as ever, although little is loaded yet.
    LoadHorizon(business);
    LoadTaxRate(business);
    roll::AdvanceScheduleForClient(business, Id<Client>(clientId));
  };
  Upgrader::Initialize(business, options);
}

std::unique_ptr<Business> StartUp(const Outside& outside, LocalSettings& settings,
                                  const QString& commandLine, StartUpScreens& screens) {
  Sequence sequence(outside, settings, screens);
  try {
    if (!sequence.Run(commandLine)) return nullptr;
    return std::move(sequence.business);
  } catch (const StorageFailure& failure) {
    if (sequence.business) {
      sequence.TellFailure(failure);
    } else {
      outside.prompter.Tell(Tone::Stop, CannotConnectMessage(settings.Folder(), failure));
    }
  } catch (const std::exception& error) {
    sequence.TellFailure(error);
  }
  return nullptr;
}

void FinishUp(Business& business, LocalSettings& settings) {
  constexpr int kPermissionDenied = 70;
  const QString archive = ArchiveUnder(settings.Folder());
  try {
    MakeOwnFolder(archive);
    maintenance::TakeExitBackups(business, settings, archive);
    business.CloseConnection();
    return;
  } catch (const ProgramError& error) {
    if (error.Number() == kPermissionDenied) {
      business.World().prompter.Tell(
          Tone::Stop, QStringLiteral("Sorry, I couldn't back up the database file because it seems "
                                     "to be open by another program."));
    } else {
      business.World().errors.Report(QStringLiteral("MainMenuMDI"), QStringLiteral("FinishUp"),
                                     error);
    }
  }
  // A backup that failed must not leave the business with its log beside it.
  business.CloseConnection();
}

QString CannotConnectMessage(const QString& programFolder, const std::exception& error) {
  return QStringLiteral(
             "I couldn't connect to the Quillary database. \n"
             "1. Please make sure that Quillary is properly installed in your computer\n"
             "2. Please make sure that there is an existing file DATA.MDB in %1\n\n"
             "OR your database might be corrupted, please use CompactDB.exe to repair your "
             "database also in %2.\n\n%3")
      .arg(programFolder, ToolsFolder(), ErrorLine(error));
}

}  // namespace quillary::session
