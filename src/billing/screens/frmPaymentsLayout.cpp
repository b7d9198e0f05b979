#include "base/ports/requests/Setup.h"
#include "billing/screens/frmPayments.h"
#include "kit/ComboSearch.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/Form.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/SplitLines.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPlainTextEdit>

/// How the payment screen looks.
namespace quillary::billing {

namespace {

// The widths of the columns of Payments.
constexpr int kChequeNumberWidth = 20;
constexpr int kBankWidth = 50;
constexpr int kNotesWidth = 255;

/// Takes what height is left and asks for no more than `least`, so that the whole screen fits on a
/// small display.
void TakeTheRest(QWidget* widget, int least) {
  widget->setMinimumHeight(least);
  widget->setSizePolicy(widget->sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
}

QString TaxWords(const Business& business) {
  return business.values.taxName + QStringLiteral(" &inc.");
}

}  // namespace

void frmPayments::MakeControls() {
  lblCaption = MakeLabel("lblCaption", {});
  lblCaption->setProperty("role", QStringLiteral("danger"));
  lblCaption->hide();
  lblPaymentID = MakeLabel("lblPaymentID", {}, LabelRole::Muted);
  txtPaymentID = Named(MakeLabel("", {}, LabelRole::Figure), "txtPaymentID", tr("Payment no."));
  cmbClient = ForField("client", Named(new ComboSearch, "cmbClient"));
  dtpPaymentDate = Named(new DateField(business_.Today()), "dtpPaymentDate");
  dtpPaymentDate->ShowWeekday(false);
  txtAmount = ForField("amount", Named(new CurrencyField, "txtAmount"));
  txtGST = Named(new CurrencyField, "txtGST");
  chkTaxExempt = Named(new QCheckBox(tr("Ta&x exempt")), "chkTaxExempt", tr("Tax exempt"));
  cmbPaymentMethod = ForField("paymentMethod", Named(new ComboSearch, "cmbPaymentMethod"));
  cmdShowPaymentMethods = MakeButton("cmdShowPaymentMethods", tr("Met&hods…"));
  cmdShowPaymentMethods->setToolTip(tr("The list of payment methods"));
  cmdShowPaymentMethods->setEnabled(tools_.navigator.CanOpen<OpenPaymentMethods>());
  txtNotes = Named(new QPlainTextEdit, "txtNotes");
  txtNotes->setTabChangesFocus(true);
  TakeTheRest(txtNotes, 64);
  LimitTo(txtNotes, kNotesWidth);
  chkMarkInvoiceAsPaid = Named(new QCheckBox(tr("Mar&k invoices of the jobs as paid")),
                               "chkMarkInvoiceAsPaid", tr("Mark invoices of the jobs as paid"));
  MakeChequeControls();
  MakeJobControls();
  lines_ = new SplitLines({.word = QStringLiteral("Revenue"),
                           .gridName = "grdRevAccounts",
                           .title = tr("Booked to r&evenue accounts"),
                           .accountLabel = tr("Account &for revenue"),
                           .emptyWhat = tr("Not split over accounts."),
                           .emptyNext = tr("Choose an account and an amount, and add it."),
                           .taxName = business_.values.taxName});
  MakeCommands();
}

void frmPayments::MakeChequeControls() {
  txtChequeNumber = Named(new QLineEdit, "txtChequeNumber");
  cmbBank = Named(new ComboSearch, "cmbBank");
  txtBankBranch = Named(new QLineEdit, "txtBankBranch");
  txtBankAccountName = Named(new QLineEdit, "txtBankAccountName");
  LimitTo(txtChequeNumber, kChequeNumberWidth);
  LimitTo(cmbBank, kBankWidth);
  for (QLineEdit* field : {txtBankBranch, txtBankAccountName}) LimitTo(field, kBankWidth);
}

void frmPayments::MakeJobControls() {
  grdJobsPaidFor = new Grid(QStringLiteral("grdJobsPaidFor"));
  grdJobsPaidFor->SetColumns({{tr("Date"), ColumnKind::Date, 96},
                              {{}, ColumnKind::HiddenId},
                              {tr("Service"), ColumnKind::StrongText, 128},
                              {tr("Revenue account"), ColumnKind::Text, 168},
                              {tr("Invoice"), ColumnKind::Text, 72},
                              {tr("Price"), ColumnKind::Money, 88}});
  grdJobsPaidFor->SetEmptyText(tr("No jobs are attached."), tr("Attach what is being paid for."));
  TakeTheRest(grdJobsPaidFor, 112);
  txtTotal = MakeLabel("txtTotal", {}, LabelRole::Figure);
  cmdChangeJobsPaidFor =
      MakeButton("cmdChangeJobsPaidFor", QStringLiteral("Attach jobs being &paid for?"));
}

void frmPayments::MakeCommands() {
  cmdCancel = MakeButton("cmdCancel", QStringLiteral("&Close"));
  cmdSaveOnly = MakeButton("cmdSaveOnly", QStringLiteral("&Save"));
  cmdSaveOnly->setToolTip(tr("Saves and closes, whether jobs are attached or not"));
  cmdSave = MakeButton("cmdSave", QStringLiteral("Save && Close"), ButtonKind::Main);
}

void frmPayments::LayOut() {
  auto* sides = new QHBoxLayout;
  sides->setSpacing(24);
  sides->addLayout(PaymentColumn(), 2);
  sides->addLayout(CoverColumn(), 3);
  SetContent(sides);
  SetRoom({1120, 640});
  AddActions({cmdCancel, cmdSaveOnly, cmdSave});
}

QLayout* frmPayments::Caption() {
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  line->addWidget(lblPaymentID);
  line->addWidget(txtPaymentID);
  line->addStretch(1);
  line->addWidget(lblCaption);
  return line;
}

QLayout* frmPayments::TaxLine() {
  QLabel* lblGST = MakeLabelFor(txtGST, TaxWords(business_));
  lblGST->setObjectName(QStringLiteral("lblGST"));
  auto* tax = new QVBoxLayout;
  tax->setSpacing(4);
  tax->addWidget(lblGST);
  tax->addWidget(txtGST);
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  line->addLayout(LabelOver(txtAmount, tr("Amo&unt")), 1);
  line->addLayout(tax, 1);
  line->addWidget(chkTaxExempt, 0, Qt::AlignBottom);
  return line;
}

QLayout* frmPayments::MethodLine() {
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  line->addLayout(LabelOver(cmbPaymentMethod, tr("Payment &method")), 1);
  line->addWidget(cmdShowPaymentMethods, 0, Qt::AlignBottom);
  return line;
}

QWidget* frmPayments::ChequeFrame() {
  fraCheque = new QWidget;
  fraCheque->setObjectName(QStringLiteral("fraCheque"));
  auto* column = new QVBoxLayout(fraCheque);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(12);
  column->addLayout(InLine({{LabelOver(txtChequeNumber, tr("Che&que number")), 1},
                            {LabelOver(cmbBank, tr("&Bank")), 1}}));
  column->addLayout(InLine({{LabelOver(txtBankBranch, tr("B&ranch")), 1},
                            {LabelOver(txtBankAccountName, tr("Acc&ount name")), 1}}));
  return fraCheque;
}

QLayout* frmPayments::PaymentColumn() {
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(Caption());
  column->addLayout(InLine(
      {{LabelOver(cmbClient, tr("Clie&nt")), 1}, {LabelOver(dtpPaymentDate, tr("D&ate")), 0}}));
  column->addLayout(TaxLine());
  column->addLayout(MethodLine());
  column->addWidget(ChequeFrame());
  QBoxLayout* notes = LabelOver(txtNotes, tr("No&tes"));
  notes->setStretch(1, 1);
  column->addLayout(notes, 1);
  column->addWidget(chkMarkInvoiceAsPaid);
  return column;
}

QWidget* frmPayments::JobsFrame() {
  fraJobsBeingPaidFor = new QWidget;
  fraJobsBeingPaidFor->setObjectName(QStringLiteral("fraJobsBeingPaidFor"));
  auto* head = new QHBoxLayout;
  head->setSpacing(8);
  head->addWidget(MakeLabelFor(grdJobsPaidFor, tr("&Jobs being paid for")));
  head->addStretch(1);
  head->addWidget(txtTotal);
  auto* commands = new QHBoxLayout;
  commands->setSpacing(8);
  commands->addStretch(1);
  commands->addWidget(cmdChangeJobsPaidFor);
  auto* column = new QVBoxLayout(fraJobsBeingPaidFor);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(8);
  column->addLayout(head);
  column->addWidget(grdJobsPaidFor, 1);
  column->addLayout(commands);
  return fraJobsBeingPaidFor;
}

QLayout* frmPayments::CoverColumn() {
  auto* column = new QVBoxLayout;
  column->setSpacing(16);
  column->addWidget(JobsFrame(), 3);
  column->addWidget(lines_, 2);
  return column;
}

}  // namespace quillary::billing
