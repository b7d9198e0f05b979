#include "billing/screens/frmJobsAndPaymentChecker.h"
#include "kit/FlowLayout.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"

#include <QScrollArea>
#include <QSplitter>

/// How the checker of jobs and payments looks.
namespace quillary::billing {

namespace {

/// A list under its words, with what it comes to at the right.
QWidget* Section(const QString& words, Grid* grid, const QList<QWidget*>& totals) {
  auto* section = new QWidget;
  auto* column = new QVBoxLayout(section);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  auto* head = new QHBoxLayout;
  head->setSpacing(8);
  head->addWidget(MakeLabelFor(grid, words));
  head->addStretch(1);
  for (QWidget* total : totals) head->addWidget(total);
  column->addLayout(head);
  column->addWidget(grid, 1);
  grid->setMinimumHeight(104);
  return section;
}

QSplitter* Split(Qt::Orientation orientation, const QList<QWidget*>& parts) {
  auto* splitter = new QSplitter(orientation);
  splitter->setChildrenCollapsible(false);
  splitter->setHandleWidth(12);
  for (QWidget* part : parts) splitter->addWidget(part);
  return splitter;
}

}  // namespace

void frmJobsAndPaymentChecker::MakeControls() {
  txtFilter = MakeFilterBox(this);
  cmdRefreshList = MakeButton("cmdRefreshList", tr("Refresh"), ButtonKind::Plain, "view-refresh");
  cmdRefreshList->setToolTip(tr("Loads the lists again (F5)"));
  grdClients = new Grid(QStringLiteral("grdClients"));
  grdClients->SetColumns({{tr("Client"), ColumnKind::StrongText, 132},
                          {{}, ColumnKind::HiddenId},
                          {tr("Status"), ColumnKind::Chip, 124},
                          {tr("Billed to"), ColumnKind::Text, 120},
                          {tr("Owing"), ColumnKind::Money, 92},
                          {tr("Payer owes"), ColumnKind::Money, 100}});
  grdClients->SetEmptyText(tr("There are no clients yet."), tr("Add a client first."));
  grdClients->FilterBy(txtFilter);
  grdJobs = new Grid(QStringLiteral("grdJobs"));
  grdJobs->SetColumns({{tr("Client"), ColumnKind::StrongText, 144},
                       {{}, ColumnKind::HiddenId},
                       {tr("Date"), ColumnKind::Date, 96},
                       {tr("Services"), ColumnKind::Text, 104},
                       {tr("Price"), ColumnKind::Money, 88},
                       {tr("Status"), ColumnKind::Chip, 128}});
  grdJobs->SetEmptyText(tr("No jobs are done yet."), tr("Only done jobs count in a balance."));
  grdPayments = MakePaymentGrid("grdPayments", tr("Payments of this client"));
  grdPayments2 = MakePaymentGrid("grdPayments2", tr("Payments of attached clients"));
  for (Grid* grid : {grdClients, grdJobs, grdPayments, grdPayments2})
    grid->RememberIn(business_.World().settings);

  txtTotalNoOfJobs = Named(MakeLabel("", {}, LabelRole::Muted), "txtTotalNoOfJobs");
  txtTotalJobAmount = Named(MakeLabel("", {}, LabelRole::Figure), "txtTotalJobAmount");
  txtTotalNoOfPayments = Named(MakeLabel("", {}, LabelRole::Muted), "txtTotalNoOfPayments");
  txtTotalNoOfPayments2 = Named(MakeLabel("", {}, LabelRole::Muted), "txtTotalNoOfPayments2");
  txtTotalPayments = Named(MakeLabel("", {}, LabelRole::Figure), "txtTotalPayments");
  txtTotalPayments2 = Named(MakeLabel("", {}, LabelRole::Figure), "txtTotalPayments2");
  cmdRecalculateAmountOwing =
      MakeButton("cmdRecalculateAmountOwing", QStringLiteral("Re-calc&ulate Amount Owing"));
  cmdAccountOfClient = MakeButton("cmdAccountOfClient", tr("Wh&y owing…"));
  cmdViewClient = MakeButton("cmdViewClient", tr("View cl&ient…"));
  cmdEditJob = MakeButton("cmdEditJob", tr("Edit &job…"));
  cmdDeleteJob = MakeButton("cmdDeleteJob", tr("Delete jo&b…"), ButtonKind::Danger);
  cmdViewPayment = MakeButton("cmdViewPayment", tr("View &payment…"));
  cmdDeletePayment = MakeButton("cmdDeletePayment", tr("Delete pay&ment…"), ButtonKind::Danger);
  cmdClose = MakeButton("cmdClose", tr("Cl&ose"));
}

Grid* frmJobsAndPaymentChecker::MakePaymentGrid(const char* name, const QString& heardAs) {
  auto* grid = new Grid(QString::fromLatin1(name));
  grid->setAccessibleName(heardAs);
  grid->SetColumns({{tr("Client"), ColumnKind::StrongText, 128},
                    {{}, ColumnKind::HiddenId},
                    {tr("Date"), ColumnKind::Date, 96},
                    {tr("Amount"), ColumnKind::Money, 88},
                    {tr("Method"), ColumnKind::Text, 96},
                    {tr("Accounts"), ColumnKind::Text, 128}});
  grid->SetEmptyText(tr("No payments."), {});
  return grid;
}

void frmJobsAndPaymentChecker::LayOut() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(12);
  auto* sides = Split(Qt::Horizontal, {ClientSide(), MoneySide()});
  for (const int side : {0, 1}) sides->setStretchFactor(side, 1);
  column->addWidget(sides, 1);
  column->addLayout(CommandLine());
}

QWidget* frmJobsAndPaymentChecker::ClientSide() {
  auto* side = new QWidget;
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(8);
  auto* head = new QHBoxLayout;
  head->setSpacing(8);
  head->addWidget(txtFilter, 1);
  head->addWidget(cmdRefreshList);
  column->addLayout(head);
  column->addWidget(grdClients, 1);
  grdClients->setAccessibleName(tr("Clients and what they owe"));
  grdClients->setMinimumSize(280, 120);
  return side;
}

QWidget* frmJobsAndPaymentChecker::MoneySide() {
  QWidget* payments =
      Split(Qt::Vertical, {Section(tr("Jobs done"), grdJobs, {txtTotalNoOfJobs, txtTotalJobAmount}),
                           Section(tr("Payment(s) made by the client"), grdPayments,
                                   {txtTotalNoOfPayments, txtTotalPayments}),
                           Section(QStringLiteral("Payment(s) made by the attached clients"),
                                   grdPayments2, {txtTotalNoOfPayments2, txtTotalPayments2})});
  payments->setMinimumWidth(320);
  auto* area = new QScrollArea;  // three lists need more height than a small display has
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(payments);
  return area;
}

QLayout* frmJobsAndPaymentChecker::CommandLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({cmdDeleteJob, cmdDeletePayment});
  line->AddWidgets({cmdAccountOfClient, cmdRecalculateAmountOwing, cmdViewPayment, cmdEditJob,
                    cmdViewClient, cmdClose},
                   Qt::AlignRight);
  return line;
}

}  // namespace quillary::billing
