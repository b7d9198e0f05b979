#pragma once

#include "base/Id.h"
#include "base/Money.h"
#include "kit/Combos.h"
#include "kit/Form.h"

#include <QBoxLayout>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {

class ComboSearch;
class CommandRunner;
class CurrencyField;
class Grid;

/// One line of an amount that is split over accounts.
struct SplitLine {
  qint64 key;
  QString accountName;
  std::optional<Id<Account>> account;
  Money amount;
  Money tax;
};

/// How such lines are called on their screen.
struct SplitWords {
  QString word;  // "Revenue": the controls carry it in their names
  const char* gridName;
  QString title;         // over the table
  QString accountLabel;  // over the list of accounts
  QString emptyWhat;
  QString emptyNext;
  QString taxName;
  bool mustMatch = false;  // the lines are to come to the whole amount
};

/// The lines over which an amount is split: their table with its total, and below it the fields of
/// one line. Where the lines must come to the whole amount, what is still to be split stands beside
/// the total, and one key takes it into the line. Enter in a field of the line stores it.
class SplitLines : public QWidget {
  Q_OBJECT

 public:
  explicit SplitLines(const SplitWords& words);

  template <typename Choices>
  void FillAccounts(const Choices& choices) {
    FillCombo(AccountCombo(), choices);
  }
  /// The tax within an amount of a line, when the user leaves it.
  void TakeTaxFrom(std::function<Money(Money)> taxWithin) { taxWithin_ = std::move(taxWithin); }
  /// What the lines are to come to.
  void SetWhole(Money whole);
  void Show(std::vector<SplitLine> lines);
  /// Puts an account into a line that is not stored yet; nothing to lose.
  void ProposeAccount(std::optional<Id<Account>> account);
  void ProposeAmount(Money amount);

  std::optional<qint64> PickedKey() const;
  std::optional<Id<Account>> TypedAccount() const;
  Money TypedAmount() const;
  Money TypedTax() const;
  Money Total() const { return total_; }
  Money LeftToSplit() const { return whole_ - total_; }
  bool IsDataChanged() const { return line_.IsDataChanged(); }
  /// A further command of the line that is typed.
  void AddCommand(QPushButton* command) { commands_->insertWidget(2, command); }
  void FocusAccount();
  void FocusList();

  struct Commands {
    std::function<void()> add;
    std::function<void()> update;
    std::function<void()> remove;
  };
  void RunCommands(CommandRunner& runner, const QString& form, Commands commands);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QComboBox* AccountCombo() const;
  void MakeControls(const SplitWords& words);
  void LayOut(const SplitWords& words);
  QBoxLayout* Head(const SplitWords& words);
  QBoxLayout* CommandLine();
  void ShowPickedLine();
  void ShowTax();
  void ShowLeft();
  void TakeTheRest();

  std::function<Money(Money)> taxWithin_;
  std::vector<SplitLine> lines_;
  Money total_;
  Money whole_;
  FormState line_;
  Grid* grid_;
  QLabel* lblAccountTotals;
  QLabel* lblLeftToSplit;
  ComboSearch* account_;
  CurrencyField* txtAccountAmount;
  CurrencyField* txtAccountGST;
  QBoxLayout* commands_;
  QPushButton* cmdTakeTheRest;
  QPushButton* remove_;
  QPushButton* update_;
  QPushButton* add_;
};

}  // namespace quillary
