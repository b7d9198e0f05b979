#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Scheduling.h"
#include "documents/screens/PagePreview.h"
#include "shell/shots/Shots.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

/// The pictures of the report viewer.
namespace quillary::shell {

void Shots::Documents() {
  MainMenuMDI* window = program_.MainMenu();
  auto* tabs = window->findChild<QTabWidget*>(QStringLiteral("tabs"));
  window->Tools().navigator.Open(OpenJobsList{});
  auto* print = tabs->currentWidget()->findChild<QPushButton*>(QStringLiteral("cmdPrintJobs"));
  print->click();
  Save(window, QStringLiteral("frmReportViewer"));
  QWidget* viewer = tabs->currentWidget();
  viewer->findChild<documents::PagePreview*>()->SetFit(documents::PagePreview::Fit::Page);
  viewer->findChild<QLineEdit*>(QStringLiteral("txtFind"))->setText(QStringLiteral("mowing"));
  Save(window, QStringLiteral("frmReportViewer-whole-page-and-search"));
  window->resize(853, 480);
  Save(window, QStringLiteral("frmReportViewer-at-150-percent"));
  window->resize(1280, 720);
  CloseScreen();
  CloseScreen();
}

}  // namespace quillary::shell
