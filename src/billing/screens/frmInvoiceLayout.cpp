#include "base/ports/requests/Documents.h"
#include "billing/screens/frmInvoice.h"
#include "kit/ComboSearch.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"
#include "kit/Form.h"
#include "kit/Grid.h"
#include "kit/Keys.h"
#include "kit/Layouts.h"

#include <QCheckBox>
#include <QPlainTextEdit>

/// How the invoice screen looks.
namespace quillary::billing {

namespace {

QCheckBox* Tick(const char* name, const QString& caption) {
  return Named(new QCheckBox(caption), name, PlainCaption(caption));
}

constexpr int kFieldHeight = 32;

QPlainTextEdit* Lines(const char* name) {
  auto* text = Named(new QPlainTextEdit, name);
  text->setTabChangesFocus(true);
  text->setMinimumHeight(80);
  return text;
}

QBoxLayout* Beside(QWidget* control) {
  auto* column = new QVBoxLayout;
  column->addStretch(1);
  column->addWidget(control);
  return column;
}

}  // namespace

void frmInvoice::MakeControls() {
  MakeFields();
  MakeOptions();
  MakeJobs();
  MakeCommands();
}

void frmInvoice::MakeFields() {
  cmdBilledClient = ForField("client", Named(new ComboSearch, "cmdBilledClient"));
  chkActiveClients = Tick("chkActiveClients", tr("Acti&ve clients only"));
  chkActiveClients->setMinimumHeight(kFieldHeight);
  dtInvoiceDate = Named(new DateField(business_.Today()), "dtInvoiceDate");
  dtInvoiceDate->setFixedWidth(168);
  cmbType = ForField("type", Named(new QComboBox, "cmbType"));
  cmbType->setFixedWidth(136);
  txtInvoiceDescription = Named(new QLineEdit, "txtInvoiceDescription");
  LimitTo(txtInvoiceDescription, kInvoiceDescriptionWidth);
  txtInvoiceNumber = ForField("number", Named(new QLineEdit, "txtInvoiceNumber"));
  LimitTo(txtInvoiceNumber, kInvoiceNumberWidth);
  txtInvoiceNumber->setFixedWidth(136);
  cmdGetLastNumber =
      MakeButton("cmdGetLastNumber", QStringLiteral("&Get next available invoice number"));
  txtMadeOutTo = Lines("txtMadeOutTo");
  LimitTo(txtMadeOutTo, kMadeOutToWidth);
  txtInvoiceNotes = Lines("txtInvoiceNotes");
  cmdShowInvoiceNotes = MakeButton("cmdShowInvoiceNotes",
                                   QStringLiteral("Select &from the existing invoice notes..."));
}

void frmInvoice::MakeOptions() {
  lblOutstanding = MakeLabel("lblOutstanding", {}, LabelRole::Hint);
  lblOutstanding->setMinimumHeight(kFieldHeight);
  chkShowOutstanding = Tick("chkShowOutstanding", tr("Show the o&utstanding amount"));
  chkShowNextJobdate = Tick("chkShowNextJobdate", tr("S&how the next job date"));
  chkInvoiceWithPastJobs = Tick("chkInvoiceWithPastJobs", tr("Include unpaid &past jobs"));
  for (QCheckBox* option : {chkShowOutstanding, chkShowNextJobdate, chkInvoiceWithPastJobs})
    option->setToolTip(tr("Kept with the client for all later invoices"));
  chkIsPaid = Tick("chkIsPaid", tr("&This invoice is paid"));
  chkPriceExcludesGST =
      Tick("chkPriceExcludesGST", QStringLiteral("Prices e&xclude ") + business_.values.taxName);
  txtInvoiceAmount = Named(new CurrencyField, "txtInvoiceAmount");
  txtGSTIncluded = Named(new CurrencyField, "txtGSTIncluded");
  for (CurrencyField* amount : {txtInvoiceAmount, txtGSTIncluded}) {
    amount->setFixedWidth(128);
    new KeyFilter(amount, KeyMode::Number);
  }
  lblTotalGSTInc =
      MakeLabelFor(txtGSTIncluded,
                   QStringLiteral("Total ") + business_.values.taxName + QStringLiteral(" Inc."));
  lblTotalGSTInc->setObjectName(QStringLiteral("lblTotalGSTInc"));
}

void frmInvoice::MakeJobs() {
  fraLstOfAttachedJobs = Named(new QWidget, "fraLstOfAttachedJobs");
  fgJobs = ForField("jobs", new Grid(QStringLiteral("fgJobs")));
  fgJobs->setAccessibleName(tr("Jobs on this invoice"));
  fgJobs->SetColumns({{tr("Client"), ColumnKind::StrongText, 176},
                      {{}, ColumnKind::HiddenId},
                      {tr("Services"), ColumnKind::Text, 168},
                      {tr("Date"), ColumnKind::Date, 104},
                      {tr("Price"), ColumnKind::Money, 96},
                      {business_.values.taxName + QStringLiteral(" inc."), ColumnKind::Money, 88},
                      {tr("Status"), ColumnKind::Chip, 144}});
  fgJobs->SetEmptyText(tr("No job is on this invoice yet."), tr("Press Attach a job."));
  fgJobs->setMinimumHeight(112);
  cmdShowListOfJobs =
      ForField("jobList", MakeButton("cmdShowListOfJobs", QStringLiteral("&Attach a job"),
                                     ButtonKind::Plain, "list-add"));
  cmdRemoveJob = MakeButton("cmdRemoveJob", QStringLiteral("Remove &job"), ButtonKind::Danger);
}

void frmInvoice::MakeCommands() {
  cmdEmailInvoice = MakeButton("cmdEmailInvoice", tr("&Email invoice…"));
  cmdEmailInvoice->setEnabled(false);
  cmdEmailInvoice->setToolTip(tr("Mails the invoice that was printed last"));
  cmdPrintInvoice =
      MakeButton("cmdPrintInvoice", tr("Print &invoice"), ButtonKind::Plain, "document-print");
  cmdPrintInvoice->setEnabled(tools_.navigator.CanOpen<PrintInvoices>());
  cmdClose = MakeButton("cmdClose", QStringLiteral("&Cancel"));
  cmdSave = MakeButton("cmdSave", QStringLiteral("&Save"));
  cmdSaveAndClose =
      MakeButton("cmdSaveAndClose", QStringLiteral("Save && Close"), ButtonKind::Main);
}

void frmInvoice::LayOut() {
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(HeadLine());
  column->addLayout(NumberLine());
  column->addLayout(TextsLine(), 1);
  column->addLayout(OptionsLine());
  column->addLayout(TotalsLine());
  LayOutJobs();
  column->addWidget(fraLstOfAttachedJobs, 3);
  // An invoice that is made for one job has nothing to choose.
  fraLstOfAttachedJobs->setVisible(!form_.forJob);
  if (!form_.forJob)  // the height is for the jobs
    for (QPlainTextEdit* text : {txtMadeOutTo, txtInvoiceNotes}) text->setMaximumHeight(96);
  SetContent(column);
  SetRoom({920, form_.forJob ? 440 : 640});
  AddActions({cmdEmailInvoice, cmdPrintInvoice, cmdClose, cmdSave, cmdSaveAndClose});
}

QLayout* frmInvoice::HeadLine() {
  return InLine({{LabelOver(cmdBilledClient, tr("&Billed client")), 1},
                 {Beside(chkActiveClients), 0},
                 {LabelOver(dtInvoiceDate, tr("&Date")), 0},
                 {LabelOver(cmbType, tr("T&ype")), 0}});
}

QLayout* frmInvoice::NumberLine() {
  return InLine({{LabelOver(txtInvoiceDescription, tr("Desc&ription")), 1},
                 {LabelOver(txtInvoiceNumber, tr("Invoice &number")), 0},
                 {Beside(cmdGetLastNumber), 0}});
}

QLayout* frmInvoice::TextsLine() {
  auto* notes = LabelOver(txtInvoiceNotes, tr("N&otes on this invoice"));
  notes->setStretch(1, 1);
  auto* choose = new QHBoxLayout;
  choose->addStretch(1);
  choose->addWidget(cmdShowInvoiceNotes);
  notes->addLayout(choose);
  auto* madeOut = LabelOver(txtMadeOutTo, tr("&Made out to"));
  madeOut->setStretch(1, 1);
  madeOut->addWidget(lblOutstanding);
  return InLine({{madeOut, 1}, {notes, 1}});
}

QLayout* frmInvoice::OptionsLine() {
  auto* line = new QHBoxLayout;
  line->setSpacing(16);
  for (QCheckBox* option : {chkShowOutstanding, chkShowNextJobdate, chkInvoiceWithPastJobs})
    line->addWidget(option);
  line->addStretch(1);
  return line;
}

void frmInvoice::LayOutJobs() {
  auto* commands = new QHBoxLayout;
  commands->setSpacing(8);
  commands->addWidget(cmdRemoveJob);
  commands->addStretch(1);
  commands->addWidget(cmdShowListOfJobs);
  auto* column = new QVBoxLayout(fraLstOfAttachedJobs);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(8);
  column->addWidget(fgJobs, 1);
  column->addLayout(commands);
}

QLayout* frmInvoice::TotalsLine() {
  auto* line = new QHBoxLayout;
  line->setSpacing(16);
  line->addWidget(chkIsPaid);
  line->addWidget(chkPriceExcludesGST);
  line->addStretch(1);
  line->addWidget(MakeLabelFor(txtInvoiceAmount, tr("Tota&l amount")));
  line->addWidget(txtInvoiceAmount);
  line->addWidget(lblTotalGSTInc);
  line->addWidget(txtGSTIncluded);
  return line;
}

}  // namespace quillary::billing
