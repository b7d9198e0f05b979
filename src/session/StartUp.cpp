#include "session/StartUp.h"

#include "base/Errors.h"
#include "data/ActivityLog.h"
#include "data/schema/Schema.h"
#include "data/schema/Upgrader.h"
#include "lists/Divisions.h"
#include "lists/Services.h"
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

/// Reads a flag or text of infOptions, leaving the default when an old file lacks the column.
template <typename Read>
void ReadOption(const Recordset& options, const char16_t* column, const Read& read) {
  if (options.FieldExists(column)) read(options.Field(column));
}

void LoadOptions(Business& business) {
  const Recordset options = business.RunSQL(QStringLiteral("SELECT * FROM infOptions;"));
  if (!options.HasRows()) return;
  SharedValues& values = business.values;
  const auto flag = [](bool& into) { return [&into](const Value& v) { into = v.ToBool(); }; };
  const auto text = [](QString& into) { return [&into](const Value& v) { into = v.ToText(); }; };
  ReadOption(options, u"EnableLogging", flag(values.enableLogging));
  ReadOption(options, u"AdobePath", text(values.adobePath));
  ReadOption(options, u"CCEmailAddress", text(values.ccEmailAddress));
  ReadOption(options, u"RecalculateClientAmtsOwingOnPrint",
             flag(values.recalculateClientAmtsOwingOnPrint));
  ReadOption(options, u"EnableOstrel4WebServices", flag(values.enableOstrel4WebServices));
  ReadOption(options, u"DatabaseUploaded", flag(values.databaseUploaded));
  ReadOption(options, u"CompactDatabaseBeforeUpload", flag(values.compactDatabaseBeforeUpload));
}

void LoadDaysToAdvance(Business& business) {
  business.values.daysToAdvanceSchedule = static_cast<int>(
      business.FirstField(Sql("SELECT Days_To_Advance_Schedule FROM infOptions")).ToLong());
}

void LoadTaxRate(Business& business) {
  business.values.gstPercentage = static_cast<float>(
      business.LookupField(QStringLiteral("infOptions.GST_Percentage")).ToDouble(0));
}

/// The one details row that all later code reads.
void EnsurePersonalDetails(Business& business) {
  if (business.RunSQL(QStringLiteral("SELECT * FROM infPersonalDetails")).EndOfFile()) {
    business.RunSQL(QStringLiteral("INSERT INTO infPersonalDetails (FSE_CODE) values ('FSECODE')"));
  }
}

void EnsureEmployee(Business& business) {
  std::optional<Id<Employee>>& employee = business.values.defaultEmployee;
  employee = business.FirstField(Sql("SELECT MIN(Employee_ID) FROM Employees; ")).ToId<Employee>();
  if (employee) return;
  employee = business.InsertReturningKey<Employee>(
      Sql("INSERT INTO Employees (Employee_Name) VALUES ('Default')"));
}

QString AccountingMethodOf(const QString& stored) {
  const QString upper = stored.toUpper();
  const bool known = upper == QStringLiteral("CASH") || upper == QStringLiteral("ACCRUAL");
  return known ? stored : QStringLiteral("Cash");
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
    business->values.mailServer = outside_.headOffice.GetSMTPDetails();
    screens_.ShowProgress();
    Advance(1);
    Open(commandLine);
    LoadSharedValues();
    RollAndShow();
    return true;
  }

  void TellFailure(const std::exception& error) const {
    outside_.prompter.Tell(
        Tone::Stop,
        QStringLiteral("%1.\nI've already been to %2. Please email this message to me at %3.\n\n"
                       "You can also visit the Quillary website under FAQ section (%4) for a "
                       "possible solution to this problem.\n")
            .arg(ErrorLine(error), activity_, kSupportAddress, kSupportPage));
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

  void LoadSharedValues() {
    LoadHolidaysIntoArray(*business);
    Reached("LoadHolidaysIntoArray");
    SharedValues& values = business->values;
    LoadDaysToAdvance(*business);
    Advance(1);
    EnsurePersonalDetails(*business);
    values.divisionName = lists::OwnDivisionName(*business);
    Advance(1);
    LoadTaxRate(*business);
    values.accountingMethod = AccountingMethodOf(
        business->LookupField(QStringLiteral("infOptions.Accounting_Method")).ToText());
    Advance(1);
    Reached("Global Var Initialize");
    EnsureEmployee(*business);
    Advance(1);
    Reached("Default_Employee_ID");
    values.defaultService = lists::DefaultServiceId(*business);
    Reached("Default_Employee_ID.4");
    Advance(1);
    Reached("Default_Employee_ID.5");
  }

  void RollAndShow() {
    roll::AdvanceScheduleGlobally(*business);
    Advance(2);
    Reached("AdvanceScheduleGlobally");
    // Budgets join here; nothing else at start-up depends on them.
    Advance(1);
    Reached("Budget_Manager.Initialize");
    NameTheTax();  // for the screens that open with the main menu
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

  void NameTheTax() {
    const QString name =
        business
            ->FirstField(Sql("SELECT Tax_Name FROM infPersonalDetails pd inner join Countries c on "
                             "c.Country_ID = pd.Country_ID;"))
            .ToText();
    if (!name.isEmpty()) business->values.taxName = name;
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
  outside.headOffice.LogIn();
  business->ConnectToDatabase();
  outside.settings.Write(QStringLiteral("LastAccessedFile"), QStringLiteral("File"), file);
  LoadOptions(*business);
  if (business->values.enableLogging) {
    outside.headOffice.SetLogFile(QDir(programFolder).filePath(QStringLiteral("Log.txt")));
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
    LoadDaysToAdvance(business);
    LoadTaxRate(business);
    roll::AdvanceScheduleForClient(business, clientId);
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
    QDir().mkpath(archive);
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
