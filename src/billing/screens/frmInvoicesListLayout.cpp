#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Mail.h"
#include "billing/screens/InvoiceProgress.h"
#include "billing/screens/frmInvoicesList.h"
#include "kit/DateField.h"
#include "kit/FlowLayout.h"
#include "kit/Form.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/RowTicks.h"

#include <QCheckBox>
#include <QComboBox>

/// How the list of invoices looks.
namespace quillary::billing {

void frmInvoicesList::MakeControls() {
  cboMonth = Named(new QComboBox, "cboMonth");
  dtFrom = Named(new DateField(business_.Today()), "dtFrom");
  dtTo = Named(new DateField(business_.Today()), "dtTo");
  for (DateField* field : {dtFrom, dtTo}) field->setFixedWidth(168);
  cmdList =
      MakeButton("cmdList", QStringLiteral("&Load invoices..."), ButtonKind::Plain, "view-refresh");
  chkShowMonthly = Named(new QCheckBox(tr("Show monthl&y invoices only")), "chkShowMonthly",
                         tr("Show monthly invoices only"));
  MakeList();
  MakeCommands();
  MakePrintCommands();
}

void frmInvoicesList::MakeList() {
  txtFilter = MakeFilterBox(this);
  chkTickUntickAll = MakeTickAllBox();
  chkTickUntickAll->setText(QStringLiteral("Tic&k/Untick all"));  // Alt+T prints statements
  fgInvoices = ForField("invoices", new Grid(QStringLiteral("fgInvoices")));
  fgInvoices->setAccessibleName(tr("Invoices"));
  fgInvoices->SetColumns({{{}, ColumnKind::Tick, 40},
                          {{}, ColumnKind::HiddenId},
                          {tr("Client"), ColumnKind::StrongText, 184},
                          {tr("Date"), ColumnKind::Date, 112},
                          {tr("Description"), ColumnKind::Text, 288},
                          {tr("Amount"), ColumnKind::Money, 112},
                          {tr("Number"), ColumnKind::Number, 96},
                          {tr("Paid"), ColumnKind::Text, 72}});
  fgInvoices->SetEmptyText(tr("No invoice is dated in these days."),
                           tr("Choose other days, or add an invoice."));
  fgInvoices->FilterBy(txtFilter);
  fgInvoices->RememberIn(business_.World().settings);
  fgInvoices->setMinimumHeight(120);
  ticks_ = new RowTicks(fgInvoices, 0, chkTickUntickAll);
  prgRun = new InvoiceProgress("prgRun");
  lblTotals = MakeLabel("lblTotals", {}, LabelRole::Muted);
}

void frmInvoicesList::MakeCommands() {
  cmdGenerateInvoiceAutomatically =
      MakeButton("cmdGenerateInvoiceAutomatically", tr("&Generate monthly invoices…"));
  cmdMonthlyInvoiceReminder = MakeButton("cmdMonthlyInvoiceReminder", tr("Monthly reminder…"));
  cmdGeneralNotes = MakeButton("cmdGeneralNotes", tr("General notes…"));
  cmdGeneralNotes->setEnabled(tools_.navigator.CanOpen<EditGeneralNotes>());
  cmdTermOfTrade = MakeButton("cmdTermOfTrade", tr("Terms of trade…"));
  cmdDeleteInvoice =
      MakeButton("cmdDeleteInvoice", QStringLiteral("Delete t&icked invoices"), ButtonKind::Danger);
  cmdClose = MakeButton("cmdClose", tr("Close"));
  cmdClose->setToolTip(tr("Closes this tab (Ctrl+W)"));
  cmdNewInvoice = MakeButton("cmdNewInvoice", tr("Ne&w invoice"), ButtonKind::Plain, "list-add");
  cmdNewInvoice->setToolTip(tr("Ctrl+N"));
  cmdViewInvoice = MakeButton("cmdViewInvoice", tr("&View invoice"), ButtonKind::Main);
}

void frmInvoicesList::MakePrintCommands() {
  const Navigator& to = tools_.navigator;
  cmdPrintGrid = MakeButton("cmdPrintGrid", tr("Print list"), ButtonKind::Plain, "document-print");
  cmdPrintGrid->setShortcut(QKeySequence::Print);
  cmdPrintGrid->setEnabled(to.CanOpen<PrintList>());
  chkPriceExcludesGST =
      Named(new QCheckBox(QStringLiteral("Prices e&xclude ") + business_.values.taxName),
            "chkPriceExcludesGST", QStringLiteral("Prices exclude ") + business_.values.taxName);
  cmdPrintInvoices = MakeButton("cmdPrintInvoices", tr("&Print invoices"));
  cmdPrintInvoices->setEnabled(to.CanOpen<PrintInvoices>());
  cmdPrintStatement = MakeButton("cmdPrintStatement", tr("Print s&tatements"));
  cmdPrintStatement->setEnabled(to.CanOpen<PrintStatements>());
  cmdPrintReminder = MakeButton("cmdPrintReminder", tr("Print re&minders"));
  cmdPrintReminder->setEnabled(to.CanOpen<PrintReminders>());
  cmdEmailTicked =
      MakeButton("cmdEmailTicked", tr("Email ticked…"), ButtonKind::Plain, "mail-send");
  cmdEmailTicked->setToolTip(tr("A document for each client of the ticked invoices"));
  cmdEmailTicked->setEnabled(to.CanOpen<EmailDocuments>());
}

void frmInvoicesList::LayOut() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(12);
  column->addLayout(PeriodLine());
  column->addLayout(TicksLine());
  column->addWidget(fgInvoices, 1);
  column->addLayout(SetupLine());
  column->addLayout(CommandLine());
}

QLayout* frmInvoicesList::PeriodLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({MakeLabelFor(cboMonth, tr("M&onth")), cboMonth,
                    MakeLabelFor(dtFrom, tr("&between")), dtFrom,
                    MakeLabelFor(dtTo, tr("and &up to")), dtTo, cmdList});
  line->AddWidgets({txtFilter}, Qt::AlignRight);
  return line;
}

QLayout* frmInvoicesList::TicksLine() {
  auto* line = new FlowLayout(16);
  line->AddWidgets({chkTickUntickAll, chkShowMonthly});
  line->AddWidgets({prgRun, lblTotals}, Qt::AlignRight);
  return line;
}

QLayout* frmInvoicesList::SetupLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({cmdGenerateInvoiceAutomatically, cmdMonthlyInvoiceReminder, cmdGeneralNotes,
                    cmdTermOfTrade});
  line->AddWidgets({chkPriceExcludesGST, cmdPrintInvoices, cmdPrintStatement, cmdPrintReminder},
                   Qt::AlignRight);
  return line;
}

QLayout* frmInvoicesList::CommandLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({cmdDeleteInvoice, cmdPrintGrid, cmdEmailTicked});
  line->AddWidgets({cmdClose, cmdNewInvoice, cmdViewInvoice}, Qt::AlignRight);
  return line;
}

}  // namespace quillary::billing
