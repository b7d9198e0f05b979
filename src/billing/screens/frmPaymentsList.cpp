#include "billing/screens/frmPaymentsList.h"

#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Documents.h"
#include "billing/screens/PaymentGrids.h"
#include "kit/DateField.h"
#include "kit/FlowLayout.h"
#include "kit/Form.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/Shortcuts.h"
#include "kit/ShownList.h"

namespace quillary::billing {

frmPaymentsList::frmPaymentsList(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmPaymentsList"), tr("Payments received")),
      business_(business),
      tools_(tools) {
  MakeControls();
  MakeTotals();
  LayOut();
  ConnectControls();
  setFocusProxy(grdPayments);
}

void frmPaymentsList::MakeControls() {
  dtpFrom = Named(new DateField(business_.Today()), "dtpFrom");
  dtpTo = Named(new DateField(business_.Today()), "dtpTo");
  for (DateField* field : {dtpFrom, dtpTo}) field->ShowWeekday(false);
  cmdShow = MakeButton("cmdShow", tr("Sho&w"), ButtonKind::Plain, "view-refresh");
  cmdShow->setToolTip(tr("Loads the list again (F5)"));
  txtFilter = MakeFilterBox(this);
  txtFilter->setFixedWidth(240);
  grdPayments = new Grid(QStringLiteral("grdPayments"));
  grdPayments->setAccessibleName(tr("Payments of the period"));
  grdPayments->SetColumns(PaymentListColumns());
  grdPayments->SetEmptyText(tr("No money was received in this time."),
                            tr("Choose other dates, or add a payment."));
  grdPayments->RememberIn(business_.World().settings);
  grdPayments->FilterBy(txtFilter);
  grdPayments->setMinimumHeight(120);
  cmdDelete = MakeButton("cmdDelete", tr("De&lete payment…"), ButtonKind::Danger);
  cmdPrintGrid = MakeButton("cmdPrintGrid", tr("&Print"), ButtonKind::Plain, "document-print");
  cmdClose = MakeButton("cmdClose", tr("Cl&ose"));
  cmdAdd = MakeButton("cmdAdd", tr("Add pa&yment…"));
  cmdAdd->setToolTip(tr("Ctrl+N"));
  cmdOK = MakeButton("cmdOK", tr("&View payment…"), ButtonKind::Main);
}

void frmPaymentsList::MakeTotals() {
  const auto figure = [](const char* name, const QString& heardAs) {
    return Named(MakeLabel("", {}, LabelRole::Figure), name, heardAs);
  };
  txtTotalCount = figure("txtTotalCount", tr("Number of payments"));
  txtTotalAmount = figure("txtTotalAmount", tr("Amount of all payments"));
  txtTotalBeingPaidFor = figure("txtTotalBeingPaidFor", tr("Amount of the jobs paid for"));
  txtTotalWithoutAccount =
      figure("txtTotalWithoutAccount", tr("Amount of payments without a revenue account"));
}

void frmPaymentsList::LayOut() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(12);
  column->addLayout(ChoiceLine());
  column->addWidget(grdPayments, 1);
  column->addWidget(MakeLabel("lblLegend", QString::fromLatin1(kMismatchLegend), LabelRole::Hint));
  column->addLayout(TotalsLine());
  column->addLayout(CommandLine());
}

QLayout* frmPaymentsList::ChoiceLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({MakeLabelFor(dtpFrom, tr("Payments fro&m")), dtpFrom,
                    MakeLabelFor(dtpTo, tr("&to")), dtpTo});
  line->AddWidgets({txtFilter, cmdShow}, Qt::AlignRight);
  return line;
}

QLayout* frmPaymentsList::TotalsLine() {
  const auto words = [](const char* name, const QString& text) {
    return MakeLabel(name, text, LabelRole::Muted);
  };
  auto* line = new FlowLayout;
  line->AddWidgets({txtTotalCount, words("lblPayments", tr("payments of")), txtTotalAmount});
  line->AddWidgets({words("lblBeingPaidFor", tr("    for jobs of")), txtTotalBeingPaidFor});
  line->AddWidgets(
      {words("lblWithoutAccount", tr("    without a revenue account")), txtTotalWithoutAccount});
  return line;
}

QLayout* frmPaymentsList::CommandLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({cmdDelete, cmdPrintGrid});
  line->AddWidgets({cmdClose, cmdAdd, cmdOK}, Qt::AlignRight);
  return line;
}

void frmPaymentsList::ConnectControls() {
  const auto on = [this](QPushButton* button, void (frmPaymentsList::*command)()) {
    tools_.runner.OnClick(button, objectName(), [this, command] { (this->*command)(); });
  };
  on(cmdShow, &frmPaymentsList::LoadPayments);
  on(cmdAdd, &frmPaymentsList::Add);
  on(cmdOK, &frmPaymentsList::View);
  on(cmdDelete, &frmPaymentsList::DeleteSelected);
  tools_.runner.OnClick(cmdPrintGrid, objectName(),
                        [this] { tools_.navigator.Open(ShownList(windowTitle(), grdPayments)); });
  cmdPrintGrid->setEnabled(tools_.navigator.CanOpen<PrintList>());
  AddShortcut(this, QKeySequence::New, cmdAdd);
  for (DateField* field : {dtpFrom, dtpTo})
    connect(field, &DateField::dateChosen, this, &frmPaymentsList::LoadPayments);
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  connect(grdPayments, &Grid::rowOpened, cmdOK, &QPushButton::click);
}

void frmPaymentsList::ShowYourself() {
  ShowDays(DateRange::MonthOf(business_.Today()));
}

void frmPaymentsList::ShowDays(const DateRange& days) {
  dtpFrom->SetDate(days.from);
  dtpTo->SetDate(days.to);
  LoadPayments();
  grdPayments->setFocus();
}

void frmPaymentsList::LoadPayments() {
  tools_.runner.RunBusy(objectName(), QStringLiteral("LoadPayments"), [this] {
    Show(LoadPaymentsList(business_, {dtpFrom->Date(), dtpTo->Date()}));
  });
}

void frmPaymentsList::Show(PaymentsList list) {
  const auto selected = grdPayments->SelectedRow();
  const qint64 kept = selected ? grdPayments->Key(*selected) : 0;
  list_ = std::move(list);
  grdPayments->SetRows(PaymentListRows(list_.rows));
  if (!grdPayments->SelectKey(kept)) grdPayments->SelectFirst();
  txtTotalCount->setText(QString::number(list_.TotalCount()));
  txtTotalAmount->setText(list_.totalAmount.ToCurrencyText());
  txtTotalBeingPaidFor->setText(list_.totalBeingPaidFor.ToCurrencyText());
  txtTotalWithoutAccount->setText(list_.totalWithoutAccount.ToCurrencyText());
}

const PaymentRow* frmPaymentsList::Selected() const {
  const auto row = grdPayments->SelectedRow();
  return row ? &list_.rows[static_cast<size_t>(*row)] : nullptr;
}

void frmPaymentsList::Add() {
  tools_.navigator.Open(AddPayment{});
  LoadPayments();
}

void frmPaymentsList::View() {
  const PaymentRow* payment = Selected();
  if (!payment) {
    business_.World().prompter.Tell(Tone::Exclamation, QStringLiteral("Please select a payment."));
    return;
  }
  tools_.navigator.Open(ViewPayment{payment->paymentId});
  LoadPayments();
}

void frmPaymentsList::DeleteSelected() {
  Prompter& prompter = business_.World().prompter;
  if (Accepted(prompter, this, DeletePayment(business_, prompter, Selected()))) LoadPayments();
}

}  // namespace quillary::billing
