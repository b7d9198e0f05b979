#pragma once

#include "data/settings/LocalSettings.h"
#include "help/screens/ManualKey.h"
#include "kit/CommandRunner.h"
#include "mail/MailsUnderWay.h"
#include "session/StartUp.h"
#include "session/Support.h"
#include "shell/FrontDoor.h"
#include "shell/MainMenuMDI.h"
#include "shell/frmStartUp.h"

#include <memory>

namespace quillary::shell {

/// The running desktop program: the start-up sequence with its screens, the main window, and what
/// the navigator can open. All wiring between areas stands here.
class Program : private session::StartUpScreens {
 public:
  Program(const Outside& outside, Navigator& navigator, const QString& programFolder);
  ~Program() override;

  /// Opens this file instead of asking which.
  void UseFile(const QString& path) { file_ = path; }
  /// Runs the start-up sequence. False when it ended early; the user has been told why.
  bool Start(const QString& commandLine);
  /// Whether the start ended because the user chose no file, or one whose window is there already,
  /// which is no failure.
  bool UserLeft() const { return userLeft_; }

  MainMenuMDI* MainMenu() { return mainMenu_.get(); }
  Business& OpenBusiness() { return *business_; }

 private:
  std::unique_ptr<Business> SelectDatabaseToAccess() override;
  void ShowProgress() override;
  void Advance() override;
  void Repaint() override;
  void ShowFirstTime(Business& business) override;
  void ShowMainMenu(Business& business) override;
  void CheckClientSchedules(Business& business) override;
  void OpenMonthlyInvoices(Business& business) override;
  void RenameMenuCaptions(const QString& taxName) override;
  void FillProgress() override;
  void CloseProgress() override;
  void StepReached(const QString& activity) override { lastStep_ = activity; }

  void RegisterScreens(Business& business);
  void RegisterHelp();
  void OpenManualPage();
  void ShowShortcuts();

  Outside outside_;
  Navigator& navigator_;
  LocalSettings settings_;
  CommandRunner runner_;
  help::ManualKey manual_;
  QString file_;
  QString lastStep_;
  bool userLeft_ = false;
  bool setUpForced_ = false;
  frmStartUp progress_;
  std::unique_ptr<Business> business_;
  std::unique_ptr<mail::MailsUnderWay> mails_;
  std::unique_ptr<MainMenuMDI> mainMenu_;
  std::unique_ptr<FrontDoor> frontDoor_;
};

}  // namespace quillary::shell
