#include "documents/screens/DocumentScreens.h"

#include "documents/reports/ReportOfList.h"
#include "documents/screens/BillingDocumentScreens.h"
#include "documents/screens/ReportPlacing.h"
#include "documents/screens/frmReportViewer.h"

namespace quillary::documents {

void RegisterDocumentScreens(Business& business, const ScreenTools& tools) {
  tools.navigator.Register<PrintList>([&business, tools](const PrintList& list) {
    const auto compose = [&] {
      const BusyWhile busy(business.World().busy);
      return ComposeList(business, PlacesOfReports(), list);
    };
    OpenReportViewer(business, tools, compose());
  });
  RegisterBillingDocumentScreens(business, tools);
}

}  // namespace quillary::documents
