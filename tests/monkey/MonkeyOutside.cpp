#include "monkey/MonkeyOutside.h"

#include "base/Errors.h"

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace quillary::monkey {

namespace {

char lastWords[512];

/// A crash, or a step that does not come back, leaves only what may be done in a signal's handler.
void SayLastWords(int signal) {
  const char* what = signal == SIGALRM ? "A step does not come back. " : "The program crashed. ";
  for (const char* text : {what, static_cast<const char*>(lastWords)}) {
    if (write(STDERR_FILENO, text, std::strlen(text)) < 0) break;
  }
  _exit(3);
}

}  // namespace

Steps::Steps(unsigned seed, QTemporaryDir& home)
    : seed_(seed),
      home_(home),
      file_(QDir::tempPath() + QStringLiteral("/monkey-%1.steps").arg(seed)) {
  if (!file_.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
    throw std::runtime_error("cannot write " + file_.fileName().toStdString());
  snprintf(lastWords, sizeof lastWords, "Seed %u, the steps are in %s\n", seed,
           file_.fileName().toUtf8().constData());
  for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS, SIGALRM})
    std::signal(signal, SayLastWords);
}

void Steps::Add(const QString& what) {
  constexpr unsigned kSecondsOfAStep = 60;
  alarm(kSecondsOfAStep);
  ++count_;
  AddSaid(QStringLiteral("%1 %2").arg(count_).arg(what));
}

void Steps::AddSaid(const QString& what) {
  constexpr qsizetype kKept = 40;
  file_.write(what.toUtf8() + '\n');
  latest_ += what;
  if (latest_.size() > kKept) latest_.removeFirst();
}

void Steps::Find(const QString& finding) {
  AddSaid(QStringLiteral("FOUND ") + finding);
  fprintf(stderr, "Seed %u, step %d: %s\n  %s\n(all steps: %s)\n", seed_, count_,
          finding.toUtf8().constData(), latest_.join(QStringLiteral("\n  ")).toUtf8().constData(),
          file_.fileName().toUtf8().constData());
  home_.remove();
  // Dialogs stand, and the commands that opened them with their transactions: nothing unwinds.
  _exit(1);
}

Answer NotedBoxes::Ask(const QString& text, const QString& title) {
  steps_.AddSaid(QStringLiteral("    ? ") + text);
  if (text.contains(QLatin1StringView("exit from the system"))) return Answer::No;
  return MessageBoxPrompter::Ask(text, title);
}

Answer NotedBoxes::AskBeforeLosing(const QString& text, const QString& title) {
  steps_.AddSaid(QStringLiteral("    ?! ") + text);
  return MessageBoxPrompter::AskBeforeLosing(text, title);
}

void NotedBoxes::Tell(Tone tone, const QString& text, const QString& title) {
  steps_.AddSaid(QStringLiteral("    ! ") + text);
  MessageBoxPrompter::Tell(tone, text, title);
}

void FoundErrors::ReportError(const QString& form, const QString& errorLine,
                              const QString& procedure, const QString& furtherInformation) {
  // What Undo took from under an open screen is told when it is to be stored, and nothing is.
  if (errorLine.contains(QLatin1StringView("is no longer there")))
    return steps_.AddSaid(QStringLiteral("    told: ") + errorLine);
  steps_.Find(QStringLiteral("%1, %2: %3 %4").arg(form, procedure, errorLine, furtherInformation));
}

void FoundErrors::NoteRefused(const RefusedStatement& refused) {
  steps_.Find(QStringLiteral("Refused: %1 (%2)").arg(refused.statement, refused.reason));
}

}  // namespace quillary::monkey
