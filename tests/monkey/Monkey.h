#pragma once

#include "monkey/MonkeyOutside.h"
#include "shell/Program.h"
#include "support/Contents.h"

#include <QElapsedTimer>

#include <random>
#include <set>

namespace quillary::monkey {

/// Uses the program at random for some time. Every so often it finds its way back to the main
/// window, lets the file be checked, takes everything back that it did since the last time,
/// compares, and does it again.
class Monkey : public QObject {
 public:
  Monkey(unsigned seed, shell::Program& program, Steps& steps);
  /// Comes back when the time is over or something was found.
  void Run(int seconds);
  /// Commands that were taken back and done again.
  int CommandsReplayed() const { return replayed_; }

 private:
  void Schedule();
  void Step();
  bool IsWorkUnderWay(const QWidget* front);

  // Moves.cpp: one step each.
  void LeaveAlone();
  static bool IsOfTheSystem(const QWidget* front);
  void Move(QWidget* front);
  void AnswerBox(QWidget* box);
  void UseWindow(QWidget* front);
  void Choose();
  void ClickButton(QWidget* front);
  void PutRight(QWidget* front);
  void UseField(QWidget* front);
  void UseCombo(QWidget* front);
  void UseList(QWidget* front);
  void UseTab(QWidget* front);
  void PressSome(QWidget* front);

  void GoBack(QWidget* front);
  void Round();
  void CheckFile();
  void Compare(const Contents& wanted, const QString& what);
  void Replay(bool again, int commands);

  unsigned Random(unsigned below) { return static_cast<unsigned>(random_() % below); }
  template <typename List>
  auto OneOf(const List& list) {
    return *std::next(std::begin(list), Random(static_cast<unsigned>(std::size(list))));
  }

  std::mt19937 random_;
  shell::Program& program_;
  shell::MainMenuMDI& window_;
  Steps& steps_;
  QElapsedTimer clock_;
  qint64 milliseconds_ = 0;
  bool over_ = false;
  int goingBack_ = 0;  // steps towards the main window; 0 while at play
  int waits_ = 0;      // for the window in front to take the keys
  int replayed_ = 0;
  int lastRound_ = 0;
  std::set<QString> knownFindings_;
  Contents before_;  // as the file was when the history began
  Subscription history_;
};

}  // namespace quillary::monkey
