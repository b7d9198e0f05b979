#pragma once

#include "base/Money.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>

class QVBoxLayout;

/// The pieces that the screen of today is laid out from.
namespace quillary::today {

/// A frame with a heading, whose content goes below it.
struct Card {
  QFrame* frame;
  QVBoxLayout* column;
};
Card MakeCard(const char* name);

/// A label that heads a card.
QLabel* MakeHeading(const char* name, const QString& text);

/// Words that lead to a screen.
QPushButton* MakeGo(const char* name, const QString& caption);
/// A figure in large letters that leads to a screen. It is for the mouse: beside it stands a button
/// with words that has a key.
QPushButton* MakeHeadline(const char* name, const QString& heardAs);

/// A small square in a colour, for legends.
class Swatch : public QWidget {
 public:
  explicit Swatch(int height = 9);
  void SetColour(const QColor& colour);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor colour_;
};

/// What needs attention: words and the button that leads there. Hidden until it has words.
class AttentionRow : public QFrame {
  Q_OBJECT

 public:
  AttentionRow(const char* name, QPushButton* go);
  void ShowWords(const QString& words);
  QPushButton* Go() const { return go_; }

 private:
  QLabel* lblWords;
  QPushButton* go_;
};

/// A step of the run: its number, what it is, what is left of it, and the button that does it.
class StepRow : public QFrame {
  Q_OBJECT

 public:
  enum class State { Open, Next, Waits, Done };
  StepRow(int number, const char* name, const QString& title, QPushButton* count, QPushButton* act);
  void ShowState(State state, const QString& count);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int number_;
  State state_ = State::Open;
  QPushButton* count_;
  QPushButton* act_;
};

/// "$1,234": for where cents would only crowd the figure.
QString WholeMoneyText(const Money& amount);

}  // namespace quillary::today
