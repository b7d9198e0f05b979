#include "billing/screens/dlgInvoiceOptions.h"

#include "base/ports/requests/Documents.h"
#include "billing/invoices/InvoicePrint.h"
#include "billing/runs/WithJobRun.h"
#include "billing/screens/InvoiceProgress.h"
#include "kit/Layouts.h"

#include <QCheckBox>

namespace quillary::billing {

dlgInvoiceOptions::dlgInvoiceOptions(Business& business, const ScreenTools& tools,
                                     const ChooseInvoiceFor& request)
    : Dialog("dlgInvoiceOptions", tr("Create an invoice"), business.World().prompter),
      business_(business),
      tools_(tools),
      request_(request),
      job_(LoadJobToInvoice(business, request.entry)) {
  MakeControls();
  LayOut();
  connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
  tools_.runner.OnClick(cmdCreateNewInvoice, objectName(), [this] { CreateNewInvoice(); });
  tools_.runner.OnClick(cmdCreateNonMonthlyInvoice, objectName(),
                        [this] { CreateNonMonthlyInvoices(); });
}

void dlgInvoiceOptions::MakeControls() {
  const bool hasInvoice = job_ && job_->invoiceId;
  cmdCreateNewInvoice = MakeButton(
      "cmdCreateNewInvoice", hasInvoice ? tr("Open its &invoice…") : tr("Create a new &invoice…"),
      ButtonKind::Main);
  cmdCreateNonMonthlyInvoice =
      MakeButton("cmdCreateNonMonthlyInvoice", tr("Create and &print invoices"));
  cmdCreateNonMonthlyInvoice->setEnabled(tools_.navigator.CanOpen<PrintInvoices>());
  chkPriceExcludesGST =
      Named(new QCheckBox(QStringLiteral("Price e&xcludes ") + business_.values.taxName),
            "chkPriceExcludesGST", QStringLiteral("Price excludes ") + business_.values.taxName);
  prgRun = new InvoiceProgress("prgRun");
  cmdClose = MakeButton("cmdClose", tr("&Cancel"));
}

QString dlgInvoiceOptions::DaysWords() const {
  const QString from = ToShortDateText(request_.days.from);
  if (request_.days.IsOneDay()) return from;
  return tr("%1 to %2").arg(from, ToShortDateText(request_.days.to));
}

void dlgInvoiceOptions::LayOut() {
  auto* column = new QVBoxLayout;
  column->setSpacing(20);
  const auto choice = [&](const char* name, const QString& title, const QString& words,
                          QPushButton* command) {
    auto* text = new QVBoxLayout;
    text->setSpacing(4);
    text->addWidget(MakeLabel(name, title));
    text->addWidget(MakeParagraph("", words));
    auto* line = new QHBoxLayout;
    line->setSpacing(24);
    line->addLayout(text, 1);
    line->addWidget(command, 0, Qt::AlignVCenter);
    column->addLayout(line);
  };
  const QString job = job_ ? tr("%1 · %2 · %3 · %4")
                                 .arg(job_->displayName, ToShortDateText(job_->scheduleDate),
                                      job_->description, job_->totalPrice.ToCurrencyText())
                           : tr("This entry is no longer in the diary.");
  choice("lblThisJob", tr("This job"), job, cmdCreateNewInvoice);
  choice("lblAllJobs", tr("All jobs on %1").arg(DaysWords()),
         tr("An invoice for each job of clients who are billed with each job. Jobs that have one "
            "keep it, and it is printed again."),
         cmdCreateNonMonthlyInvoice);
  column->addWidget(chkPriceExcludesGST);
  column->addWidget(prgRun);
  column->addStretch(1);
  cmdCreateNewInvoice->setEnabled(job_.has_value());
  SetContent(column);
  SetRoom({640, 0});
  AddActions({cmdClose});
}

void dlgInvoiceOptions::CreateNewInvoice() {
  const bool saved = job_->invoiceId
                         ? tools_.navigator.Open(EditInvoice{*job_->invoiceId})
                         : tools_.navigator.Open(AddInvoice{request_.payer, request_.entry});
  if (saved) Close(Accepted);
}

void dlgInvoiceOptions::CreateNonMonthlyInvoices() {
  setEnabled(false);  // nothing may be clicked while the run shows how far it has come
  const bool done = tools_.runner.Run(
      objectName(), QStringLiteral("cmdCreateNonMonthlyInvoice_Click"),
      [this] { GenerateWithJobInvoices(business_, request_.days, prgRun->Listener()); });
  setEnabled(true);
  prgRun->hide();
  if (!done) return;
  tools_.navigator.Open(PrintInvoices{.invoices = SelectedInvoices(business_),
                                      .fileNamePart = job_ ? job_->billedName : DaysWords(),
                                      .priceIncludesGST = !chkPriceExcludesGST->isChecked()});
  Close(Accepted);
}

}  // namespace quillary::billing
