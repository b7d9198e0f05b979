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

/// A document of either form; `print` is called with whether it is for the word processor.
template <typename Print>
bool PrintAndShow(Business& business, const ScreenTools& tools, const Print& print) {
  const bool forWord = PrintsForWord(business);
  const auto document = [&] {
    const BusyWhile busy(business.World().busy);
    return print(forWord, BillingPlaces{.report = PlacesOfReports()});
  };
  ReportDocument done = document();
  if (forWord) {
    OpenReportViewer(business, tools, std::move(done));
    return true;
  }
  // The viewer of the machine shows the file, which leaves only the rest to say.
  if (!done.troubles.isEmpty())
    business.World().prompter.Tell(Tone::Exclamation, done.troubles.join(u'\n'));
  return true;
}

}  // namespace

void RegisterBillingDocumentScreens(Business& business, const ScreenTools& tools) {
  tools.navigator.Register<PrintInvoices>([&business, tools](const PrintInvoices& request) {
    return PrintAndShow(business, tools, [&](bool forWord, const BillingPlaces& places) {
      const auto print = forWord ? PrintInvoice : PrintInvoicePDF;
      return print(business, places, request.fileNamePart, ModeOf(request.priceIncludesGST));
    });
  });
  tools.navigator.Register<PrintStatements>([&business, tools](const PrintStatements& request) {
    return PrintAndShow(business, tools, [&](bool forWord, const BillingPlaces& places) {
      const auto print = forWord ? PrintStatementForInvoices : PrintStatementForInvoicesPDF;
      return print(business, places, {request.from, request.to}, ModeOf(request.priceIncludesGST));
    });
  });
  tools.navigator.Register<PrintReminders>([&business, tools](const PrintReminders& request) {
    return PrintAndShow(business, tools, [&](bool forWord, const BillingPlaces& places) {
      const auto print = forWord ? PrintRemindersForInvoices : PrintRemindersForInvoicesPDF;
      return print(business, places, ModeOf(request.priceIncludesGST));
    });
  });
}

}  // namespace quillary::documents
