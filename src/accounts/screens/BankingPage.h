#pragma once

#include "accounts/banking/Deposits.h"
#include "kit/GridColumns.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class FlowLayout;
class Grid;
class RowTicks;
class SettingsStore;
}  // namespace quillary

namespace quillary::accounts {

/// One kind of payments on the banking screen: what was received, what of it is ticked, and what is
/// left over. The figures follow every tick.
class BankingPage : public QWidget {
  Q_OBJECT

 public:
  explicit BankingPage(PaymentGroup kind);

  /// Shows payments that no deposit holds, with the ticks that they have by now, or those of a
  /// deposit, ticked.
  void ShowCurrent(const std::vector<BankablePayment>& payments, bool keepTicks);
  void ShowDeposited(const std::vector<BankablePayment>& payments);

  Money Received() const { return received_; }
  Money Ticked() const { return ticked_; }
  size_t CountOfPayments() const { return payments_.size(); }
  BankedPayments Payments() const;
  bool HasTicks() const;
  /// What is banked of it, where that is not what the ticks come to.
  void ShowBanked(Money banked);
  /// A further command beside the box that ticks all.
  void AddCommand(QPushButton* command);
  void RememberIn(SettingsStore& settings);

 signals:
  void ticksChanged();

 private:
  void MakeControls();
  void LayOut();
  void Show(const std::vector<BankablePayment>& payments, const std::vector<qint64>& ticked);
  void ShowSums();

  PaymentGroup kind_;
  std::vector<BankablePayment> payments_;
  Money received_;
  Money ticked_;
  QLabel* received;
  QLabel* deposited;
  QLabel* undeposited;
  QCheckBox* tickAll;
  FlowLayout* commands_;
  QLineEdit* filter;
  Grid* grid_;
  RowTicks* ticks_;
};

}  // namespace quillary::accounts
