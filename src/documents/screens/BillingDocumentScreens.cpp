#include "documents/screens/BillingDocumentScreens.h"

#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Mail.h"
#include "documents/billing/BillingDocuments.h"
#include "documents/screens/ReportPlacing.h"
#include "documents/screens/frmReportViewer.h"

#include <QFileInfo>

#include <memory>

namespace quillary::documents {
namespace {

TaxMode ModeOf(bool priceIncludesGST) {
  return priceIncludesGST ? TaxMode::Included : TaxMode::Excluded;
}

/// What is mailed when the user asks for it: the document that was made last.
using LastDocument = EmailFile;

/// Prints in the form and design of the user's choice and shows what came out.
bool PrintAndShow(Business& business, const ScreenTools& tools, LastDocument& last,
                  BillingOrder order) {
  Prompter& prompter = business.World().prompter;
  if (order.invoices.empty()) {
    prompter.Tell(Tone::Information,
                  QStringLiteral("There is nothing to print. Please tick the invoices first."));
    return false;
  }
  order.form = FormOfBilling(business);
  const auto print = [&] {
    const BusyWhile busy(business.World().busy);
    return PrintBillingDocument(business, {.report = PlacesOfReports()}, order);
  };
  ReportDocument done = print();
  last = {.subject = done.docTitle, .file = done.docFile, .invoices = order.invoices};
  if (order.form == BillingForm::Word) {
    OpenReportViewer(business, tools, std::move(done));
    return true;
  }
  // The viewer of the machine shows the file, which leaves only the rest to say.
  TellTroubles(business, done.troubles);
  return true;
}

}  // namespace

void RegisterBillingDocumentScreens(Business& business, const ScreenTools& tools) {
  auto last = std::make_shared<LastDocument>();
  tools.navigator.Register<PrintInvoices>([&business, tools, last](const PrintInvoices& request) {
    return PrintAndShow(business, tools, *last,
                        {.kind = BillingKind::Invoice,
                         .invoices = request.invoices,
                         .mode = ModeOf(request.priceIncludesGST),
                         .fileNamePart = request.fileNamePart});
  });
  tools.navigator.Register<PrintStatements>(
      [&business, tools, last](const PrintStatements& request) {
        return PrintAndShow(business, tools, *last,
                            {.kind = BillingKind::Statement,
                             .invoices = request.invoices,
                             .mode = ModeOf(request.priceIncludesGST),
                             .days = {request.from, request.to}});
      });
  tools.navigator.Register<PrintReminders>([&business, tools, last](const PrintReminders& request) {
    return PrintAndShow(business, tools, *last,
                        {.kind = BillingKind::Reminder,
                         .invoices = request.invoices,
                         .mode = ModeOf(request.priceIncludesGST)});
  });
  if (!tools.navigator.CanOpen<EmailFile>()) return;
  tools.navigator.Register<EmailLastDocument>([&business, tools, last](const EmailLastDocument&) {
    Prompter& prompter = business.World().prompter;
    if (last->file.isEmpty() || !QFileInfo::exists(last->file)) {
      prompter.Tell(Tone::Information,
                    QObject::tr("Please print the invoice first. What is printed is then mailed."));
      return;
    }
    if (!tools.navigator.Open(EmailFile(*last))) return;
    prompter.Tell(Tone::Information,
                  QStringLiteral("Email has been sent.\r\nInvoice can be viewed in "
                                 "Reports->Send Documents"));
  });
}

}  // namespace quillary::documents
