#include "documents/screens/BillingDocumentScreens.h"

#include "base/ports/requests/Documents.h"
#include "documents/billing/BillingDocuments.h"
#include "documents/screens/ReportPlacing.h"
#include "documents/screens/frmReportViewer.h"

namespace quillary::documents {
namespace {

TaxMode ModeOf(bool priceIncludesGST) {
  return priceIncludesGST ? TaxMode::Included : TaxMode::Excluded;
}

/// Prints in the form and design of the user's choice and shows what came out.
bool PrintAndShow(Business& business, const ScreenTools& tools, BillingOrder order) {
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
  tools.navigator.Register<PrintInvoices>([&business, tools](const PrintInvoices& request) {
    return PrintAndShow(business, tools,
                        {.kind = BillingKind::Invoice,
                         .invoices = request.invoices,
                         .mode = ModeOf(request.priceIncludesGST),
                         .fileNamePart = request.fileNamePart});
  });
  tools.navigator.Register<PrintStatements>([&business, tools](const PrintStatements& request) {
    return PrintAndShow(business, tools,
                        {.kind = BillingKind::Statement,
                         .invoices = request.invoices,
                         .mode = ModeOf(request.priceIncludesGST),
                         .days = {request.from, request.to}});
  });
  tools.navigator.Register<PrintReminders>([&business, tools](const PrintReminders& request) {
    return PrintAndShow(business, tools,
                        {.kind = BillingKind::Reminder,
                         .invoices = request.invoices,
                         .mode = ModeOf(request.priceIncludesGST)});
  });
}

}  // namespace quillary::documents
