#include "billing/screens/frmInvoicesList.h"

#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Mail.h"
#include "billing/invoices/InvoiceNumbers.h"
#include "billing/runs/MonthlyRun.h"
#include "billing/screens/InvoiceMonths.h"
#include "billing/screens/InvoiceProgress.h"
#include "billing/screens/dlgMonthlyInvoices_Reminder.h"
#include "billing/screens/frmTermOfTrade.h"
#include "kit/DateField.h"
#include "kit/Form.h"
#include "kit/Grid.h"
#include "kit/RowTicks.h"
#include "kit/Shortcuts.h"
#include "kit/ShownList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

#include <set>

/// What the list of invoices shows and does.
namespace quillary::billing {

frmInvoicesList::frmInvoicesList(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmInvoicesList"), QStringLiteral("Invoices")),
      business_(business),
      tools_(tools) {
  MakeControls();
  LayOut();
  ConnectControls();
  ConnectPrintCommands();
}

void frmInvoicesList::ConnectControls() {
  const auto on = [this](QPushButton* button, std::function<void()> command) {
    tools_.runner.OnClick(button, objectName(), std::move(command));
  };
  on(cmdViewInvoice, [this] { View(); });
  on(cmdNewInvoice, [this] {
    tools_.navigator.Open(AddInvoice{});
    LoadInvoicesIntoGrid();
  });
  on(cmdDeleteInvoice, [this] { DeleteTicked(); });
  on(cmdGenerateInvoiceAutomatically, [this] { GenerateMonthly(); });
  on(cmdMonthlyInvoiceReminder, [this] { dlgMonthlyInvoices_Reminder(business_, tools_).exec(); });
  on(cmdGeneralNotes, [this] { tools_.navigator.Open(EditGeneralNotes{}); });
  on(cmdTermOfTrade, [this] { frmTermOfTrade(business_, tools_).exec(); });
  connect(cmdList, &QPushButton::clicked, this, [this] { LoadInvoicesIntoGrid(); });
  connect(chkShowMonthly, &QCheckBox::toggled, this, [this] { LoadInvoicesIntoGrid(); });
  connect(cboMonth, &QComboBox::activated, this, &frmInvoicesList::TakeMonth);
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  connect(fgInvoices, &Grid::rowOpened, cmdViewInvoice, &QPushButton::click);
  connect(ticks_, &RowTicks::ticksChanged, this, &frmInvoicesList::ShowTotals);
  AddShortcut(this, QKeySequence::New, cmdNewInvoice);
}

void frmInvoicesList::ConnectPrintCommands() {
  const auto on = [this](QPushButton* button, std::function<void()> command) {
    tools_.runner.OnClick(button, objectName(), std::move(command));
  };
  on(cmdPrintGrid, [this] { tools_.navigator.Open(ShownList(windowTitle(), fgInvoices)); });
  on(cmdPrintInvoices, [this] {
    // The tick only names the file here; prices are always printed with tax.
    tools_.navigator.Open(PrintInvoices{.invoices = ticks_->TickedIds<Invoice>(),
                                        .fileNamePart = chkPriceExcludesGST->isChecked()
                                                            ? QStringLiteral("False")
                                                            : QStringLiteral("True"),
                                        .priceIncludesGST = true});
  });
  on(cmdPrintStatement, [this] {
    tools_.navigator.Open(PrintStatements{.invoices = ticks_->TickedIds<Invoice>(),
                                          .from = dtFrom->Date(),
                                          .to = dtTo->Date(),
                                          .priceIncludesGST = !chkPriceExcludesGST->isChecked()});
  });
  on(cmdEmailTicked, [this] {
    tools_.navigator.Open(EmailDocuments{.invoices = ticks_->TickedIds<Invoice>(),
                                         .days = {dtFrom->Date(), dtTo->Date()},
                                         .priceIncludesGST = !chkPriceExcludesGST->isChecked()});
  });
  on(cmdPrintReminder, [this] {
    tools_.navigator.Open(PrintReminders{.invoices = ticks_->TickedIds<Invoice>(),
                                         .priceIncludesGST = !chkPriceExcludesGST->isChecked()});
  });
}

void frmInvoicesList::ShowYourself(bool monthly) {
  const InvoiceListQuery query = InvoicesOfMonth(business_.Today(), monthly);
  FillWithMonths(cboMonth, business_.Today());
  dtFrom->SetDate(query.days.from);
  dtTo->SetDate(query.days.to);
  {
    const QSignalBlocker quiet(chkShowMonthly);
    chkShowMonthly->setChecked(monthly);
  }
  LoadInvoicesIntoGrid();
  fgInvoices->setFocus();
}

void frmInvoicesList::ShowDays(const DateRange& days, const std::vector<Id<Invoice>>& ticked) {
  FillWithMonths(cboMonth, business_.Today());
  dtFrom->SetDate(days.from);
  dtTo->SetDate(days.to);
  {
    const QSignalBlocker quiet(chkShowMonthly);
    chkShowMonthly->setChecked(false);
  }
  LoadInvoicesIntoGrid(ticked);
  fgInvoices->setFocus();
}

void frmInvoicesList::ShowAgain() {
  if (ticks_->TickedKeys().empty()) LoadInvoicesIntoGrid();
  fgInvoices->setFocus();
}

void frmInvoicesList::TakeMonth(int month) {
  const diary::MonthChoice days = MonthAt(business_.Today(), month);
  dtFrom->SetDate(days.days.from);
  dtTo->SetDate(days.days.to);
}

void frmInvoicesList::LoadInvoicesIntoGrid(const std::vector<Id<Invoice>>& ticked) {
  tools_.runner.RunBusy(objectName(), QStringLiteral("LoadInvoicesIntoGrid"), [&] {
    const auto kept = SelectedInvoice();
    invoices_ =
        LoadInvoicesList(business_, {{dtFrom->Date(), dtTo->Date()}, chkShowMonthly->isChecked()});
    const std::set<Id<Invoice>> isTicked(ticked.begin(), ticked.end());
    std::vector<GridRow> rows;
    for (const InvoiceListRow& invoice : invoices_) {
      GridRow row;
      row.cells = {
          isTicked.contains(invoice.invoiceId),
          invoice.invoiceId,
          invoice.displayName,
          invoice.generationDate,
          invoice.description,
          invoice.totalAmount,
          GridCell(ShownInvoiceNumber(invoice.invoiceNumber).toLongLong(), invoice.invoiceNumber),
          invoice.IsPaidWord()};
      row.hue = invoice.isPaid ? Hue::Blue : Hue::None;
      rows.push_back(std::move(row));
    }
    fgInvoices->SetRows(std::move(rows));
    ticks_->TakeRows();
    if (!kept || !fgInvoices->SelectId(*kept)) fgInvoices->SelectFirst();
    ShowTotals();
  });
}

void frmInvoicesList::ShowTotals() {
  const size_t ticked = ticks_->TickedKeys().size();
  Money total;
  for (const InvoiceListRow& invoice : invoices_) total += invoice.totalAmount;
  const QString words =
      invoices_.size() == 1
          ? tr("1 invoice, %1").arg(total.ToCurrencyText())
          : tr("%1 invoices, %2").arg(invoices_.size()).arg(total.ToCurrencyText());
  lblTotals->setText(ticked == 0 ? words : tr("%1 · %2 ticked").arg(words).arg(ticked));
}

std::optional<Id<Invoice>> frmInvoicesList::SelectedInvoice() const {
  return fgInvoices->SelectedId<Invoice>();
}

void frmInvoicesList::View() {
  const auto invoice = SelectedInvoice();
  if (!Accepted(business_.World().prompter, this, CheckInvoiceSelected(invoice))) return;
  tools_.navigator.Open(EditInvoice{*invoice});
  LoadInvoicesIntoGrid();
}

void frmInvoicesList::DeleteTicked() {
  std::vector<InvoiceListRow> ticked;
  for (const Id<Invoice> id : ticks_->TickedIds<Invoice>())
    for (const InvoiceListRow& invoice : invoices_)
      if (invoice.invoiceId == id) ticked.push_back(invoice);
  if (DeleteTickedInvoices(business_, business_.World().prompter, ticked)) LoadInvoicesIntoGrid();
}

void frmInvoicesList::GenerateMonthly() {
  if (!ConfirmMonthlyRun(business_.World().prompter)) return;
  const auto generated = tools_.navigator.Open(PickDate{tr("Generation date")});
  if (!generated) return;
  setEnabled(false);  // nothing may be clicked while the run shows how far it has come
  InvoiceRunCount count;
  const bool done =
      tools_.runner.Run(objectName(), QStringLiteral("cmdGenerateInvoiceAutomatically_Click"), [&] {
        count = GenerateMonthlyInvoices(business_, {{dtFrom->Date(), dtTo->Date()}, *generated},
                                        prgRun->Listener());
      });
  setEnabled(true);
  prgRun->hide();
  if (done) {
    LoadInvoicesIntoGrid(count.invoices);
    business_.World().prompter.Tell(Tone::Information, RunWords(count));
  }
  fgInvoices->setFocus();
}

}  // namespace quillary::billing
