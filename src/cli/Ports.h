#pragma once

#include "base/ports/Outside.h"

#include <QTextStream>

#include <map>
#include <utility>

/// The outside world of a program without a screen.
namespace quillary::cli {

/// Prints what it is told, failures to stderr, and answers every question with No, or with Yes when
/// the caller allowed that in advance.
class PrintingPrompter : public Prompter {
 public:
  PrintingPrompter(QTextStream& out, QTextStream& err) : out_(out), err_(err) {}
  void AnswerYes() { answer_ = Answer::Yes; }
  bool AllowsYes() const { return answer_ == Answer::Yes; }
  /// With a machine as reader, only failures are printed.
  void BeQuiet() { quiet_ = true; }
  bool ToldOfFailure() const { return toldOfFailure_; }

  Answer Ask(const QString& text, const QString& title) override;
  void Tell(Tone tone, const QString& text, const QString& title) override;
  std::optional<QString> AskText(const QString& title, const QString& prompt,
                                 const QString& current) override;

 private:
  QTextStream& out_;
  QTextStream& err_;
  Answer answer_ = Answer::No;
  bool quiet_ = false;
  bool toldOfFailure_ = false;
};

class PrintedErrors : public ErrorReporter {
 public:
  explicit PrintedErrors(QTextStream& err) : err_(err) {}
  void ReportError(const QString& form, const QString& errorLine, const QString& procedure,
                   const QString& furtherInformation) override;
  bool Reported() const { return reported_; }

 private:
  QTextStream& err_;
  bool reported_ = false;
};

class NoBusyPointer : public BusyPointer {
 public:
  void ShowBusyPointer(bool) override {}
};

/// A script must neither depend on what the user chose on screen nor change it.
class ForgottenSettings : public SettingsStore {
 public:
  QString Read(const QString& section, const QString& key, const QString& ifMissing) const override;
  void Write(const QString& section, const QString& key, const QString& value) override;

 private:
  std::map<std::pair<QString, QString>, QString> values_;
};

/// Somebody below asked for the end of the process.
struct ProcessEnded {
  int exitCode;
};

class NoDesktop : public Desktop {
 public:
  bool OpenInBrowser(const QString&) override { return true; }
  void CopyToClipboard(const QString&) override {}
  bool StartProgram(const QString&, const QStringList&) override { return false; }
  void EndProcess(int exitCode) override { throw ProcessEnded{exitCode}; }
};

/// All ports in one, for one run of the companion.
struct CompanionWorld {
  CompanionWorld(const SystemClock& today, QTextStream& out, QTextStream& err)
      : clock(today), prompter(out, err), errors(err) {}

  Outside Ports() { return {clock, prompter, errors, busy, settings, headOffice, desktop}; }
  bool ToldOfFailure() const { return prompter.ToldOfFailure() || errors.Reported(); }

  SystemClock clock;
  PrintingPrompter prompter;
  PrintedErrors errors;
  NoBusyPointer busy;
  ForgottenSettings settings;
  NoHeadOffice headOffice;
  NoDesktop desktop;
};

/// The text on one line.
QString OneLine(const QString& text);

}  // namespace quillary::cli
