#pragma once

#include "base/ports/Outside.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <deque>
#include <map>

namespace quillary {

/// Answers from a script. A question that contains none of the expected texts fails the test, as
/// does an expectation that was never asked.
class ScriptedPrompter : public Prompter {
 public:
  void Expect(const QString& part, Answer answer);
  void ExpectText(const QString& part, std::optional<QString> typed);
  /// What was told, in order, since the last call.
  QStringList TakeTold();
  void CheckAllAsked() const;

  Answer Ask(const QString& text, const QString& title) override;
  void Tell(Tone tone, const QString& text, const QString& title) override;
  std::optional<QString> AskText(const QString& title, const QString& prompt,
                                 const QString& current) override;

 private:
  struct Expectation {
    QString part;
    Answer answer = Answer::No;
    std::optional<QString> typed;
    bool isText = false;
  };
  const Expectation* Take(const QString& text, bool isText);
  std::deque<Expectation> expectations_;
  Expectation current_;
  QStringList told_;
};

class PinnedClock : public Clock {
 public:
  DateTime Now() const override { return now; }
  DateTime now{QDate(2026, 11, 2), QTime(9, 0)};
};

class MemorySettings : public SettingsStore {
 public:
  QString Read(const QString& section, const QString& key, const QString& ifMissing) const override;
  void Write(const QString& section, const QString& key, const QString& value) override;

 private:
  std::map<std::pair<QString, QString>, QString> values_;
};

/// Collects reports; a test that expects none asks for them at its end.
class CollectedErrors : public ErrorReporter {
 public:
  void ReportError(const QString& form, const QString& errorLine, const QString& procedure,
                   const QString& furtherInformation) override;
  QStringList TakeReports();

 private:
  QStringList reports_;
};

class CountedBusyPointer : public BusyPointer {
 public:
  void ShowBusyPointer(bool on) override { depth += on ? 1 : -1; }
  int depth = 0;
};

/// A head office that lets us in when told to, and remembers what was logged.
class ScriptedHeadOffice : public HeadOffice {
 public:
  bool IsConnected() const override { return connected; }
  bool LogIn() override;
  QString SessionKey() const override { return sessionKey; }
  QString FSECode() const override { return QStringLiteral("FSE1"); }
  MailServer GetSMTPDetails() override { return mailServer; }
  void LogQuillaryActivity(const QString& activity) override { activities += activity; }
  void SetLogFile(const QString& path) override { logFile = path; }
  std::optional<QString> CallMessages(
      const QString& method, const std::vector<std::pair<QString, QString>>& parameters) override;
  void Trace(const QString& text) override { traced += text; }

  QStringList calls;   // methods with what they were given: "Upload_File FileName=..."
  QStringList traced;  // lines
  std::map<QString, std::optional<QString>> replies;
  bool connected = false;
  bool letsIn = false;
  QString sessionKey;
  MailServer mailServer;
  QStringList activities;
  QString logFile;
};

class RecordedDesktop : public Desktop {
 public:
  bool OpenInBrowser(const QString& address) override {
    opened += address;
    return hasViewer;
  }
  bool hasViewer = true;
  void CopyToClipboard(const QString& text) override { clipboard = text; }
  bool StartProgram(const QString& name, const QStringList& arguments) override;
  void EndProcess(int exitCode) override { endedWith = exitCode; }

  QStringList programsPresent;
  QStringList started;
  QStringList startedWith;
  QStringList opened;
  QString clipboard;
  std::optional<int> endedWith;
};

/// The whole outside world of a test.
struct ScriptedOutside {
  PinnedClock clock;
  ScriptedPrompter prompter;
  CollectedErrors errors;
  CountedBusyPointer busy;
  MemorySettings settings;
  ScriptedHeadOffice headOffice;
  RecordedDesktop desktop;

  Outside Ports() { return {clock, prompter, errors, busy, settings, headOffice, desktop}; }
};

}  // namespace quillary
