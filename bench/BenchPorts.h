#pragma once

#include "base/ports/Outside.h"

#include <cstdio>

namespace quillary::bench {

/// The outside world of a benchmark: nobody to ask and nothing to show; what goes wrong is printed.
class BenchPorts : public Prompter,
                   public SettingsStore,
                   public ErrorReporter,
                   public BusyPointer,
                   public Desktop {
 public:
  explicit BenchPorts(QDate today) : clock_(today) {}
  Outside Ports() { return {clock_, *this, *this, *this, *this, headOffice_, *this}; }

  Answer Ask(const QString&, const QString&) override { return Answer::No; }
  void Tell(Tone, const QString& text, const QString&) override {
    std::fprintf(stderr, "told: %s\n", qUtf8Printable(text));
  }
  std::optional<QString> AskText(const QString&, const QString&, const QString&) override {
    return std::nullopt;
  }
  QString Read(const QString&, const QString&, const QString& ifMissing) const override {
    return ifMissing;
  }
  void Write(const QString&, const QString&, const QString&) override {}
  void ReportError(const QString& form, const QString& errorLine, const QString& procedure,
                   const QString&) override {
    std::fprintf(stderr, "%s %s: %s\n", qUtf8Printable(form), qUtf8Printable(procedure),
                 qUtf8Printable(errorLine));
  }
  void ShowBusyPointer(bool) override {}
  bool OpenInBrowser(const QString&) override { return false; }
  void CopyToClipboard(const QString&) override {}
  bool StartProgram(const QString&, const QStringList&) override { return false; }
  void EndProcess(int) override {}

 private:
  SystemClock clock_;
  NoHeadOffice headOffice_;
};

}  // namespace quillary::bench
