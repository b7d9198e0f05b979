#include "accounts/screens/frmBanking.h"

#include "accounts/banking/BankLists.h"
#include "accounts/screens/BankingPage.h"
#include "base/DateTime.h"
#include "base/Text.h"
#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Documents.h"
#include "kit/Combos.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/Form.h"
#include "kit/Grid.h"
#include "kit/PageTabs.h"

#include <QLabel>
#include <QPushButton>

/// What the banking screen shows and stores.
namespace quillary::accounts {

frmBanking::frmBanking(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmBanking"), QStringLiteral("Banking")),
      business_(business),
      tools_(tools) {
  MakeControls();
  LayOut();
  ConnectControls();
  setFocusProxy(pages_);
  tools_.runner.Run(objectName(), QStringLiteral("ShowYourself"), [this] { LoadCurrent(); });
}

void frmBanking::LoadCurrent() {
  loaded_.reset();
  LoadPages(false);
  LoadDeposits();
  pages_->ShowPage(cash_);
  FillBankAccounts();
  cmbBankAccount->setEnabled(true);
  SelectComboItem(cmbBankAccount, {});
  dtDateBanked->SetDate(business_.Today());
  grdBanking->clearSelection();
  TakeCashTicks();
  ShowMode();
}

void frmBanking::Reload() {
  tools_.runner.RunBusy(objectName(), QStringLiteral("Reload"), [this] {
    if (loaded_ && !LoadDeposit(business_, loaded_->banking)) {
      LoadCurrent();
      return;
    }
    const Money cashTicked = cash_->Ticked();
    const auto account = ComboId<BankAccount>(cmbBankAccount);
    LoadPages(true);
    LoadDeposits();
    FillBankAccounts();
    SelectComboItem(cmbBankAccount, account);
    // What was typed over stays for as long as the ticks below it do.
    if (cash_->Ticked() != cashTicked) TakeCashTicks();
    cash_->ShowBanked(CashBanked());
    ShowTotal();
  });
}

bool frmBanking::MayClose() {
  if (loaded_ || !(cash_->HasTicks() || cheques_->HasTicks() || cards_->HasTicks())) return true;
  return business_.World().prompter.AskBeforeLosing(
             QStringLiteral("Close without saving changes?")) == Answer::Yes;
}

void frmBanking::LoadPages(bool keepTicks) {
  const std::pair<BankingPage*, PaymentGroup> pages[] = {{cash_, PaymentGroup::BankedAsCash},
                                                         {cheques_, PaymentGroup::BankedAsCheque},
                                                         {cards_, PaymentGroup::BankedAsCard}};
  for (const auto& [page, kind] : pages) {
    if (!loaded_)
      page->ShowCurrent(LoadUndeposited(business_, kind), keepTicks);
    else if (keepTicks)
      page->ShowCurrent(LoadDeposited(business_, kind, loaded_->banking), true);
    else
      page->ShowDeposited(LoadDeposited(business_, kind, loaded_->banking));
    pages_->SetCount(page, page->CountOfPayments());
  }
  ShowPaymentsOnNoTab();
}

void frmBanking::LoadDeposits() {
  const auto kept = grdBanking->SelectedId<Banking>();
  deposits_ = ListDeposits(business_);
  std::vector<GridRow> rows;
  for (const Deposit& deposit : deposits_) {
    GridRow row{{deposit.bankingDate, deposit.banking, deposit.cashBanked, deposit.totalBanked}};
    row.note = tr("Cash left over: %1").arg(deposit.cashUnbanked.ToCurrencyText());
    rows.push_back(std::move(row));
  }
  grdBanking->SetRows(std::move(rows));
  if (kept) grdBanking->SelectId(*kept);
}

void frmBanking::FillBankAccounts() {
  EmptyCombo(cmbBankAccount);
  for (const ListedBankAccount& account : ListBankAccounts(business_))
    cmbBankAccount->addItem(account.name, account.id.Number());
  cmbBankAccount->setCurrentIndex(-1);
}

void frmBanking::ShowMode() {
  lblMode->setText(loaded_ ? tr("Deposit of %1").arg(ToShortDateText(loaded_->bankingDate))
                           : tr("Payments not banked yet"));
  cmdLoadCurrent->setEnabled(true);
}

void frmBanking::ShowPaymentsOnNoTab() {
  const PaymentsOnNoTab none = CountPaymentsOnNoTab(business_);
  QStringList methods = none.methods;
  for (QString& method : methods)
    if (method.isEmpty()) method = tr("no method");
  const QString by =
      methods.size() == 1 ? methods.first() : tr("%1 other methods").arg(methods.size());
  lblOnNoTab->setVisible(none.count > 0);
  lblOnNoTab->setText(
      tr("%1 by %2 on no tab").arg(Counted(static_cast<size_t>(none.count), "payment"), by));
  lblOnNoTab->setToolTip(tr("%1, paid by %2, are not taken to the bank from here.")
                             .arg(none.total.ToCurrencyText(), methods.join(QStringLiteral(", "))));
}

void frmBanking::TakeCashTicks() {
  txtCashAmountDeposited->SetAmount(cash_->Ticked());
  ShowTotal();
}

Money frmBanking::CashBanked() const {
  return txtCashAmountDeposited->Amount();
}

void frmBanking::ShowTotal() {
  lblSum->setText(tr("Cash %1 + cheques %2 + cards %3")
                      .arg(CashBanked().ToCurrencyText(), cheques_->Ticked().ToCurrencyText(),
                           cards_->Ticked().ToCurrencyText()));
  lblTotalBanked->setText((CashBanked() + cheques_->Ticked() + cards_->Ticked()).ToCurrencyText());
}

DepositForm frmBanking::Typed() const {
  return {.banking = loaded_ ? std::optional(loaded_->banking) : std::nullopt,
          .bankAccount = ComboId<BankAccount>(cmbBankAccount),
          .bankingDate = dtDateBanked->Date(),
          .cashBanked = CashBanked(),
          .cash = cash_->Payments(),
          .cheques = cheques_->Payments(),
          .others = cards_->Payments()};
}

const Deposit* frmBanking::Selected() const {
  const auto row = grdBanking->SelectedRow();
  return row ? &deposits_[static_cast<size_t>(*row)] : nullptr;
}

void frmBanking::Save() {
  const DepositOutcome outcome = SaveDeposit(business_, business_.World().prompter, Typed());
  if (!Accepted(business_.World().prompter, this, outcome.refusal) || !outcome.banking) return;
  LoadCurrent();
  if (tools_.navigator.CanOpen<PrintPayInSlip>())
    tools_.navigator.Open(PrintPayInSlip{*outcome.banking});
}

void frmBanking::LoadSelected() {
  const Deposit* deposit = Selected();
  if (!Accepted(business_.World().prompter, this, CheckDepositToLoad(deposit))) return;
  loaded_ = *deposit;
  LoadPages(false);
  SelectComboItem(cmbBankAccount, loaded_->bankAccount);
  // The account of a stored deposit is not written again.
  cmbBankAccount->setEnabled(cmbBankAccount->currentIndex() < 0);
  dtDateBanked->SetDate(loaded_->bankingDate);
  txtCashAmountDeposited->SetAmount(loaded_->cashBanked);
  cash_->ShowBanked(loaded_->cashBanked);
  ShowTotal();
  ShowMode();
}

void frmBanking::PrintSelected() {
  const Deposit* deposit = Selected();
  if (!Accepted(business_.World().prompter, this, CheckDepositToPrint(deposit))) return;
  tools_.navigator.Open(PrintPayInSlip{deposit->banking});
}

void frmBanking::DeleteSelected() {
  Prompter& prompter = business_.World().prompter;
  if (!Accepted(prompter, this, DeleteDeposit(business_, prompter, Selected()))) return;
  Reload();
}

void frmBanking::CountNotesAndCoins() {
  const auto counted = tools_.navigator.Open(CountCash{});
  if (!counted) return;
  txtCashAmountDeposited->SetAmount(*counted);
  cash_->ShowBanked(*counted);
  ShowTotal();
}

void frmBanking::ConnectControls() {
  const auto on = [this](QPushButton* button, void (frmBanking::*command)()) {
    tools_.runner.OnClick(button, objectName(), [this, command] { (this->*command)(); });
  };
  on(cmdLoadCurrent, &frmBanking::LoadCurrent);
  on(cmdSave, &frmBanking::Save);
  on(cmdLoad, &frmBanking::LoadSelected);
  on(cmdPrint, &frmBanking::PrintSelected);
  on(cmdDelete, &frmBanking::DeleteSelected);
  on(cmdReload, &frmBanking::Reload);
  on(cmdCountCash, &frmBanking::CountNotesAndCoins);
  cmdPrint->setEnabled(tools_.navigator.CanOpen<PrintPayInSlip>());
  connect(cash_, &BankingPage::ticksChanged, this, &frmBanking::TakeCashTicks);
  for (BankingPage* page : {cheques_, cards_})
    connect(page, &BankingPage::ticksChanged, this, &frmBanking::ShowTotal);
  connect(txtCashAmountDeposited, &CurrencyField::amountChosen, this, [this] {
    cash_->ShowBanked(CashBanked());
    ShowTotal();
  });
  connect(txtCashAmountDeposited, &CurrencyField::amountRefused, this, [this] {
    business_.World().prompter.Tell(Tone::Exclamation,
                                    QStringLiteral("Please enter a valid amount."));
  });
  connect(grdBanking, &Grid::rowOpened, cmdLoad, &QPushButton::click);
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
}

}  // namespace quillary::accounts
