#include "accounts/screens/ReceiptsFrame.h"
#include "accounts/screens/frmPurchase.h"
#include "kit/ComboSearch.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/Form.h"
#include "kit/Keys.h"
#include "kit/Layouts.h"
#include "kit/SplitLines.h"

#include <QCheckBox>
#include <QPlainTextEdit>

/// How the purchase screen looks.
namespace quillary::accounts {

namespace {

// The widths of the columns of Purchases.
constexpr int kItemWidth = 255;
constexpr int kMethodWidth = 20;
constexpr int kChequeNumberWidth = 20;
constexpr int kInvoiceNumberWidth = 30;
constexpr int kModelWidth = 50;

QPushButton* MakeIconButton(const char* name, const QString& heardAs, const QString& icon) {
  QPushButton* button = MakeButton(name, {}, ButtonKind::Plain, icon);
  button->setProperty("shape", QStringLiteral("icon"));
  button->setAccessibleName(heardAs);
  button->setToolTip(heardAs);
  return button;
}

}  // namespace

void frmPurchase::MakeControls() {
  cmbSupplier = ForField("supplierId", Named(new ComboSearch, "cmbSupplier"));
  cmdShowSuppliers = MakeButton("cmdShowSuppliers", tr("Su&ppliers…"));
  cmdShowSuppliers->setToolTip(tr("The list of suppliers"));
  cmbItemPurchased = Named(new ComboSearch, "cmbItemPurchased");
  LimitTo(cmbItemPurchased, kItemWidth);
  dtpPurchaseDate = Named(new DateField(business_.Today()), "dtpPurchaseDate");
  dtpPurchaseDate->ShowWeekday(false);
  txtCost = ForField("amount", Named(new CurrencyField, "txtCost"));
  txtGST = Named(new CurrencyField, "txtGST");
  chkTaxExempt = Named(new QCheckBox(tr("Ta&x exempt")), "chkTaxExempt", tr("Tax exempt"));
  cmdCopy =
      MakeIconButton("cmdCopy", QStringLiteral("Copies the Cost"), QStringLiteral("edit-copy"));
  cmdPast = MakeIconButton("cmdPast", QStringLiteral("Pastes the copied Cost"),
                           QStringLiteral("edit-paste"));
  cmbPaymentMethod = Named(new ComboSearch, "cmbPaymentMethod");
  LimitTo(cmbPaymentMethod, kMethodWidth);
  txtChequeNumber = Named(new QLineEdit, "txtChequeNumber");
  lblChequeNumber = MakeLabelFor(txtChequeNumber, tr("Che&que number"));
  lblChequeNumber->setObjectName(QStringLiteral("lblChequeNumber"));
  txtInvoiceNumber = Named(new QLineEdit, "txtInvoiceNumber");
  LimitTo(txtChequeNumber, kChequeNumberWidth);
  LimitTo(txtInvoiceNumber, kInvoiceNumberWidth);
  txtNotes = Named(new QPlainTextEdit, "txtNotes");
  txtNotes->setTabChangesFocus(true);
  txtNotes->setMinimumHeight(64);
  txtNotes->setSizePolicy(txtNotes->sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
  MakeCapitalControls();
  lines_ = new SplitLines({.word = QStringLiteral("Expense"),
                           .gridName = "grdExpenseAccounts",
                           .title = tr("Booked to &expense accounts"),
                           .accountLabel = tr("Account &for expense"),
                           .emptyWhat = tr("Not booked to an account yet."),
                           .emptyNext = tr("Choose an account, take the rest, and add it."),
                           .taxName = business_.values.taxName,
                           .mustMatch = true});
  receipts_ = new ReceiptsFrame(business_, tools_, [this] {
    return (!form_.IsNew() || SavePurchase()) ? form_.purchaseId : std::nullopt;
  });
  MakeCommands();
}

void frmPurchase::MakeCapitalControls() {
  chkCapital = Named(new QCheckBox(tr("A capital item: &keep it in the register of assets")),
                     "chkCapital", tr("Capital item"));
  txtSerialNumber = Named(new QLineEdit, "txtSerialNumber");
  txtModel = Named(new QLineEdit, "txtModel");
  txtDepreciation = Named(new QLineEdit, "txtDepreciation");
  new KeyFilter(txtDepreciation, KeyMode::Number);
  for (QLineEdit* field : {txtSerialNumber, txtModel}) LimitTo(field, kModelWidth);
  for (QLineEdit* field :
       {txtSerialNumber, txtModel, txtDepreciation, txtChequeNumber, txtInvoiceNumber})
    SelectAllText(field);
}

void frmPurchase::MakeCommands() {
  cmdClose = MakeButton("cmdClose", QStringLiteral("&Cancel"));
  cmdSaveOnly = MakeButton("cmdSaveOnly", QStringLiteral("&Save"));
  cmdSaveOnly->setToolTip(tr("Saves and closes, whether the lines add up or not"));
  cmdSave = MakeButton("cmdSave", QStringLiteral("Save && Close"), ButtonKind::Main);
}

void frmPurchase::LayOut() {
  auto* sides = new QHBoxLayout;
  sides->setSpacing(24);
  sides->addLayout(PurchaseColumn(), 4);
  sides->addLayout(BookedColumn(), 5);
  SetContent(sides);
  SetRoom({1080, 624});
  AddActions({cmdClose, cmdSaveOnly, cmdSave});
}

QLayout* frmPurchase::SupplierLine() {
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  line->addLayout(LabelOver(cmbSupplier, tr("Supplie&r")), 1);
  line->addWidget(cmdShowSuppliers, 0, Qt::AlignBottom);
  line->addLayout(LabelOver(dtpPurchaseDate, tr("D&ate")));
  return line;
}

QLayout* frmPurchase::CostLine() {
  QLabel* lblGST = MakeLabelFor(txtGST, business_.values.taxName + QStringLiteral(" &inc."));
  lblGST->setObjectName(QStringLiteral("lblGST"));
  auto* tax = new QVBoxLayout;
  tax->setSpacing(4);
  tax->addWidget(lblGST);
  tax->addWidget(txtGST);
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  line->addLayout(LabelOver(txtCost, tr("C&ost")), 1);
  line->addWidget(cmdCopy, 0, Qt::AlignBottom);
  line->addLayout(tax, 1);
  line->addWidget(chkTaxExempt, 0, Qt::AlignBottom);
  return line;
}

QLayout* frmPurchase::MethodLine() {
  auto* cheque = new QVBoxLayout;
  cheque->setSpacing(4);
  cheque->addWidget(lblChequeNumber);
  cheque->addWidget(txtChequeNumber);
  return InLine({{LabelOver(cmbPaymentMethod, tr("Payment &method")), 1},
                 {cheque, 1},
                 {LabelOver(txtInvoiceNumber, tr("Invoice num&ber")), 1}});
}

QWidget* frmPurchase::CapitalFrame() {
  fraCapital = new QWidget;
  fraCapital->setObjectName(QStringLiteral("fraCapital"));
  QBoxLayout* line = InLine({{LabelOver(txtSerialNumber, tr("Serial number")), 2},
                             {LabelOver(txtModel, tr("Model")), 2},
                             {LabelOver(txtDepreciation, tr("Depreciation %")), 1}});
  line->setContentsMargins(0, 0, 0, 0);
  fraCapital->setLayout(line);
  return fraCapital;
}

QLayout* frmPurchase::PurchaseColumn() {
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(SupplierLine());
  column->addLayout(LabelOver(cmbItemPurchased, tr("Item p&urchased")));
  column->addLayout(CostLine());
  column->addLayout(MethodLine());
  column->addWidget(chkCapital);
  column->addWidget(CapitalFrame());
  QBoxLayout* notes = LabelOver(txtNotes, tr("&Notes"));
  notes->setStretch(1, 1);
  column->addLayout(notes, 1);
  return column;
}

QLayout* frmPurchase::BookedColumn() {
  lines_->AddCommand(cmdPast);
  auto* column = new QVBoxLayout;
  column->setSpacing(16);
  column->addWidget(lines_, 3);
  column->addWidget(receipts_, 2);
  return column;
}

}  // namespace quillary::accounts
