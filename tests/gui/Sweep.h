#pragma once

#include "gui/GuiTest.h"
#include "support/Contents.h"

#include <QElapsedTimer>
#include <QPointer>

#include <deque>
#include <set>

namespace quillary {

/// Says Yes to everything but to leaving the program.
class YesSayer : public Prompter {
 public:
  Answer Ask(const QString& text, const QString& title) override;
  void Tell(Tone tone, const QString& text, const QString& title) override;
  std::optional<QString> AskText(const QString& title, const QString& prompt,
                                 const QString& current) override;
};

/// Presses every button that can be reached from a command of the menus, each from a fresh screen:
/// of the screen, of its pages, and of the dialogs that open over it. Fields are filled and rows
/// marked before, so that there is something to do. What a way wrote is taken back and made again,
/// and the whole file compared each time.
class Sweep {
 public:
  Sweep(shell::Program& program, CollectedErrors& errors);
  /// Goes all the ways from that command, but for buttons that have been seen to write already.
  void Go(const QString& command);
  /// The buttons that wrote, as "frmPayments/cmdSave"; a command that writes by itself stands
  /// alone.
  const std::set<QString>& Wrote() const { return wrote_; }

 private:
  using Way = QStringList;

  void GoOne(const QString& command, const Way& way);
  void Compare(const Contents& wanted, const QString& when);
  void Judge(const std::set<QString>& wrote);
  void Replay(bool again, int commands);
  void Drive();
  void UseDialog(QWidget* front);
  void UseScreen();
  /// Presses the next of the way, or looks what else there is to press.
  void UseFront(QWidget* front, bool isDialog);
  void PressButton(const QWidget* front, QAbstractButton* button);
  void Prepare(QWidget* front);
  void LookAround(QWidget* front);
  void PressMain(QWidget* front);
  bool ShowPage(QWidget* front, const QString& title);
  QWidget* CurrentScreen() const;
  void CloseTabs();
  void Settle();

  shell::Program& program_;
  shell::MainMenuMDI& window_;
  CollectedErrors& errors_;
  Contents before_;
  std::deque<Way> ways_;
  std::set<QString> seen_;  // buttons, with the window that they stand on
  std::set<QString> wrote_;

  // Of the way under way.
  QString name_;
  std::set<QString> wroteOnTheWay_;
  QString pressed_;  // last, with the window that it stands on
  Way way_;
  qsizetype at_ = 0;
  bool driving_ = false;
  int drives_ = 0;
  QElapsedTimer began_;
  std::vector<QPointer<QWidget>> used_;
};

}  // namespace quillary
