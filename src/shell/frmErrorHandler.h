#pragma once

#include "base/ports/Desktop.h"
#include "base/ports/ErrorReporter.h"
#include "base/ports/Navigator.h"
#include "base/ports/Outside.h"
#include "session/Support.h"
#include "shell/ErrorDump.h"

#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace quillary::shell {

/// The apology, with the choices to go on, to leave, or to send the details away.
class frmErrorHandler : public QDialog {
  Q_OBJECT

 public:
  /// What the installation names no address of is not offered.
  frmErrorHandler(Prompter& prompter, Desktop& desktop, const SettingsStore& settings,
                  const Navigator& navigator, const session::Support& support);

  /// `failure` is what happened, in words for the user.
  void ShowDump(const QString& failure, const QString& dump);

 private:
  void LayOut();
  void ConnectCommands();
  void ShowDetails();
  void Email();

  Prompter& prompter_;
  Desktop& desktop_;
  const SettingsStore& settings_;
  const Navigator& navigator_;
  session::Support support_;

  QLabel* Label1;
  QLabel* lblFailure;
  QLabel* Label2;
  QLabel* Label3;
  QLabel* Label4;
  QLabel* Label5;
  QPushButton* lblHere;
  QPushButton* cmdEmail;
  QPushButton* cmdContinue;
  QPushButton* cmdQuit;
  QPushButton* cmdErrorDetails;
  QPushButton* cmdCopy;
  QPlainTextEdit* Text1;
};

/// Reports through the error screen, which is made on the first report. Returns when the user
/// chose to continue.
class ScreenErrorReporter : public ErrorReporter {
 public:
  ScreenErrorReporter(const Clock& clock, Prompter& prompter, Desktop& desktop,
                      const SettingsStore& settings, const Navigator& navigator,
                      const session::Support& support);
  ~ScreenErrorReporter() override;
  void ReportError(const QString& form, const QString& errorLine, const QString& procedure,
                   const QString& furtherInformation) override;
  /// The next report's dump names the latest few.
  void NoteRefused(const RefusedStatement& refused) override;

 private:
  struct Refused {
    RefusedStatement statement;
    DateTime time;
  };
  QString WithRefusals(const QString& furtherInformation) const;

  const Clock& clock_;
  Prompter& prompter_;
  Desktop& desktop_;
  const SettingsStore& settings_;
  const Navigator& navigator_;
  session::Support support_;
  std::unique_ptr<frmErrorHandler> screen_;
  std::vector<Refused> refused_;  // since the latest report, oldest first
};

}  // namespace quillary::shell
