#pragma once

#include "accounts/LedgerAccounts.h"
#include "kit/Form.h"
#include "kit/Screen.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::accounts {

/// The accounts of one type, and the fields of the chosen one. The controls carry the word of the
/// type in their names.
class LedgerAccountsPage : public QWidget {
  Q_OBJECT

 public:
  LedgerAccountsPage(Business& business, const ScreenTools& tools, LedgerAccountType type);

  /// Returns how many there are.
  size_t Load();
  bool IsDataChanged() const { return state_.IsDataChanged(); }

 signals:
  void counted(size_t accounts);

 private:
  void MakeControls();
  void LayOut();
  QLayout* FieldColumn();
  void ConnectControls();
  void ShowChosen();
  std::optional<Id<Account>> Chosen() const;
  LedgerAccountForm Typed() const;
  void Store(const std::optional<Refusal>& refusal);
  /// Empties the fields and chooses nothing.
  void Clear();

  Business& business_;
  ScreenTools tools_;
  LedgerAccountType type_;
  FormState state_;
  QLineEdit* filter_;
  Grid* grid_;
  QLineEdit* name_;
  QLineEdit* number_;
  QPushButton* insert_;
  QPushButton* update_;
  QPushButton* delete_;
  QPushButton* cancel_;
};

}  // namespace quillary::accounts
