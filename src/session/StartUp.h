#pragma once

#include "data/Business.h"
#include "data/settings/LocalSettings.h"

#include <QString>

#include <functional>
#include <memory>

/// The program's road from start to main menu and from the exit command to its end, without
/// screens: the desktop and the companion supply what is shown at each step.
namespace quillary::session {

/// What start-up shows. The companion shows nothing and answers plainly.
class StartUpScreens {
 public:
  virtual ~StartUpScreens() = default;
  /// Lets the user choose the file and calls OpenDatabase with it; null when the user leaves.
  virtual std::unique_ptr<Business> SelectDatabaseToAccess() = 0;
  /// Shows "Please wait...." with an empty bar of 17 steps.
  virtual void ShowProgress() = 0;
  virtual void Advance() = 0;
  /// Shows a sign of life within a long step.
  virtual void Repaint() = 0;
  virtual void ShowFirstTime(Business& business) = 0;
  virtual void ShowMainMenu(Business& business) = 0;
  virtual void CheckClientSchedules(Business& business) = 0;
  virtual void OpenMonthlyInvoices(Business& business) = 0;
  virtual void FillProgress() = 0;
  virtual void RenameMenuCaptions(const QString& taxName) = 0;
  virtual void CloseProgress() = 0;
  /// A step was reached; `activity` is the name that a failure message would quote.
  virtual void StepReached(const QString& activity) = 0;
};

/// What choosing a file does before anything else: logs in to head office, opens the connection,
/// reads the options that old files may lack, points the log and records the logon. Throws
/// StorageFailure when the file cannot be opened.
std::unique_ptr<Business> OpenDatabase(const Outside& outside, const QString& file,
                                       const QString& programFolder);

/// Brings the file up to the current version, keeping a copy of the old one in the folder Archive
/// of the program. `repaint` is called between statements.
void UpgradeFile(
    Business& business, const QString& programFolder, const std::function<void()>& repaint = [] {});

/// Runs the start-up sequence. `commandLine` is the whole command line; "-i" forces the first-run
/// setup. Null when it ended early: the user left, the settings are unusable, or a step failed, in
/// which case the user has been told which step was reached last.
std::unique_ptr<Business> StartUp(const Outside& outside, LocalSettings& settings,
                                  const QString& commandLine, StartUpScreens& screens);

/// The exit-time work: makes sure that the Archive folder exists, takes the backups that are
/// switched on, closes the connection.
void FinishUp(Business& business, LocalSettings& settings);

/// The message of a database that will not open, as shown before the program ends. `programFolder`
/// is where files are looked for; the repair program lies beside the running one.
QString CannotConnectMessage(const QString& programFolder, const std::exception& error);

}  // namespace quillary::session
