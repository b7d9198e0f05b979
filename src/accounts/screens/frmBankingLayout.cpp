#include "accounts/screens/BankingPage.h"
#include "accounts/screens/frmBanking.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/FlowLayout.h"
#include "kit/Form.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/PageTabs.h"

#include <QComboBox>
#include <QFrame>

/// How the banking screen looks.
namespace quillary::accounts {

namespace {

constexpr int kDepositsWidth = 328;
constexpr int kAmountWidth = 128;
constexpr int kAccountWidth = 200;

/// A part of a line that breaks where the window is too narrow.
QWidget* Wrapped(QLayout* layout) {
  auto* widget = new QWidget;
  layout->setContentsMargins(0, 0, 0, 0);
  widget->setLayout(layout);
  return widget;
}

}  // namespace

void frmBanking::MakeControls() {
  lblMode = MakeLabel("lblMode", {}, LabelRole::Title);
  lblOnNoTab = MakeLabel("lblOnNoTab", {}, LabelRole::Hint);
  pages_ = new PageTabs("pages", tr("Kinds of payment"));
  cash_ = new BankingPage(PaymentGroup::BankedAsCash);
  cheques_ = new BankingPage(PaymentGroup::BankedAsCheque);
  cards_ = new BankingPage(PaymentGroup::BankedAsCard);
  pages_->AddPage(cash_, tr("Cash"));
  pages_->AddPage(cheques_, tr("Cheques"));
  pages_->AddPage(cards_, tr("Cards and transfers"));
  for (BankingPage* page : {cash_, cheques_, cards_}) page->RememberIn(business_.World().settings);
  cmdCountCash = MakeButton("cmdCountCash", tr("Count notes and co&ins…"));
  cash_->AddCommand(cmdCountCash);
  MakeSaveControls();
  MakeDepositControls();
}

void frmBanking::MakeSaveControls() {
  txtCashAmountDeposited =
      ForField("cashBanked", Named(new CurrencyField, "txtCashAmountDeposited"));
  txtCashAmountDeposited->setFixedWidth(kAmountWidth);
  cmbBankAccount = ForField("bankAccount", Named(new QComboBox, "cmbBankAccount"));
  cmbBankAccount->setMinimumWidth(kAccountWidth);
  dtDateBanked = Named(new DateField(business_.Today()), "dtDateBanked");
  lblSum = MakeLabel("lblSum", {}, LabelRole::Hint);
  lblTotalBanked =
      Named(MakeLabel("", {}, LabelRole::Figure), "lblTotalBanked", tr("Total banked"));
  cmdLoadCurrent =
      MakeButton("cmdLoadCurrent", tr("Click to load c&urrent payments"), ButtonKind::Link);
  cmdSave = MakeButton("cmdSave", tr("Sa&ve and print pay-in sheet"), ButtonKind::Main);
}

void frmBanking::MakeDepositControls() {
  grdBanking = new Grid(QStringLiteral("grdBanking"));
  grdBanking->setAccessibleName(tr("Previous deposits"));
  grdBanking->SetColumns({{tr("Date"), ColumnKind::Date, 96},
                          {{}, ColumnKind::HiddenId},
                          {tr("Cash"), ColumnKind::Money, 80},
                          {tr("Total"), ColumnKind::Money, 88}});
  grdBanking->SetEmptyText(tr("Nothing was banked yet."), tr("A saved deposit is listed here."));
  grdBanking->setMinimumHeight(120);
  cmdLoad = MakeButton("cmdLoad", tr("Load"));
  cmdLoad->setToolTip(tr("Shows the payments of this deposit, to change it (double click)"));
  cmdPrint = MakeButton("cmdPrint", tr("&Print"));
  cmdReload = MakeButton("cmdReload", {}, ButtonKind::Plain, QStringLiteral("view-refresh"));
  cmdReload->setProperty("shape", QStringLiteral("icon"));
  cmdReload->setAccessibleName(tr("Load the list again"));
  cmdReload->setToolTip(tr("Loads the lists again (F5)"));
  cmdDelete = MakeButton("cmdDelete", tr("De&lete…"), ButtonKind::Danger);
  cmdClose = MakeButton("cmdClose", tr("Cl&ose"));
}

QLayout* frmBanking::SaveLine() {
  auto* total = new QHBoxLayout;
  total->setSpacing(12);
  total->addStretch(1);
  total->addWidget(lblTotalBanked);
  total->addWidget(cmdSave);
  auto* ending = new QVBoxLayout;
  ending->setSpacing(4);
  ending->addWidget(lblSum, 0, Qt::AlignRight);
  ending->addLayout(total);
  auto* line = new FlowLayout(12);
  line->AddWidgets({Wrapped(LabelOver(txtCashAmountDeposited, tr("Cash a&mount deposited"))),
                    Wrapped(LabelOver(cmbBankAccount, tr("&Bank account"))),
                    Wrapped(LabelOver(dtDateBanked, tr("Date ban&ked")))});
  line->AddWidget(Wrapped(ending), Qt::AlignRight);
  return line;
}

QWidget* frmBanking::PaymentsSide() {
  auto* head = new FlowLayout;
  head->AddWidgets({lblMode, cmdLoadCurrent});
  head->AddWidget(lblOnNoTab, Qt::AlignRight);
  auto* side = new QWidget;
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(8);
  column->addLayout(head);
  column->addWidget(pages_, 1);
  column->addLayout(SaveLine());
  return side;
}

QWidget* frmBanking::DepositsSide() {
  auto* commands = new QHBoxLayout;
  commands->setSpacing(8);
  commands->addWidget(cmdLoad);
  commands->addWidget(cmdPrint);
  commands->addWidget(cmdDelete);
  commands->addStretch(1);
  commands->addWidget(cmdReload);
  auto* side = new QFrame;
  side->setProperty("role", QStringLiteral("card"));
  side->setFixedWidth(kDepositsWidth);
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(12);
  column->addWidget(MakeLabelFor(grdBanking, tr("Previous deposits"), LabelRole::Plain));
  column->addWidget(grdBanking, 1);
  column->addLayout(commands);
  column->addWidget(cmdClose, 0, Qt::AlignRight);
  return side;
}

void frmBanking::LayOut() {
  auto* sides = new QHBoxLayout(this);
  sides->setContentsMargins(16, 16, 16, 16);
  sides->setSpacing(16);
  sides->addWidget(PaymentsSide(), 1);
  sides->addWidget(DepositsSide());
}

}  // namespace quillary::accounts
