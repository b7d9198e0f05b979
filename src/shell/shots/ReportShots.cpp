#include "base/ports/requests/Documents.h"
#include "documents/screens/PagePreview.h"
#include "reports/screens/CriteriaDialog.h"
#include "reports/screens/ReportRun.h"
#include "shell/shots/Shots.h"

#include <QApplication>

/// The pictures of the reports: their dialogs, and previews of some.
namespace quillary::shell {

void Shots::Reports() {
  MainMenuMDI* window = program_.MainMenu();
  Business& business = program_.OpenBusiness();
  const ScreenTools tools = window->Tools();
  const DateRange year{business.Today().addYears(-1).addDays(1), business.Today()};
  reports::ShowReport(business, tools, "profit-loss", {.days = year});
  Save(window, QStringLiteral("report-profit-loss"));
  auto* pages = window->findChild<documents::PagePreview*>();
  pages->SetFit(documents::PagePreview::Fit::Page);
  Save(window, QStringLiteral("report-profit-loss-whole-page"));
  pages->SetZoom(100);
  reports::ShowReport(business, tools, "debtors-creditors", {});
  Save(window, QStringLiteral("report-debtors"));
  reports::ShowReport(business, tools, "payments", {.days = year});
  window->resize(853, 480);
  Save(window, QStringLiteral("report-payments-at-150-percent"));
  window->resize(1280, 720);
  CloseScreen();
  for (const reports::CriteriaForm& form :
       {reports::DatesForm(QStringLiteral("Jobs list"), "Jobs list"),
        reports::DatesWithEmployeeForm(), reports::ExpensesForm(), reports::DebtorsForm(),
        reports::ClientForm()}) {
    reports::CriteriaDialog dialog(business, tools, form);
    dialog.show();
    Save(&dialog, QString::fromLatin1(form.name));
    dialog.hide();
  }
}

}  // namespace quillary::shell
