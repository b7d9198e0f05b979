#pragma once

#include "documents/reports/Report.h"
#include "documents/screens/PagePreview.h"
#include "kit/Screen.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace quillary::documents {

/// Shows a report page by page, prints it, and saves it in other forms. There is one, which shows
/// the report that was made last.
class frmReportViewer : public Screen {
  Q_OBJECT

 public:
  frmReportViewer(Business& business, const ScreenTools& tools);

  void ShowReport(ReportDocument report);
  const ReportDocument& Shown() const { return report_; }
  /// Lets the user choose an address and mails the file of the report.
  void cmdEmailFileAsAttachment_Click();

 private:
  void MakeControls();
  QPushButton* MakeTool(const char* name, const QString& heardAs, const QString& iconName,
                        const QString& keys);
  QLayout* ToolLine();
  QLayout* CommandLine();
  void LayOut();
  void ConnectControls();
  void ConnectPages();
  void ConnectSearch();
  void ShowPageNumber(int page);
  void ShowZoom();
  void TakeZoom();
  void Search();
  void GoToHit(int step);
  void ShowHitCount();
  void Print();
  void SaveAsPDF();
  void SaveTablesAsCSV();
  /// The file that the user chose, ending in `.ending`; nothing when the user gave up.
  std::optional<QString> AskFile(const QString& title, const QString& kind, const QString& ending);

  Business& business_;
  ScreenTools tools_;
  ReportDocument report_;
  std::vector<PageHit> hits_;
  int hit_ = -1;

  QPushButton* cmdPreviousPage;
  QSpinBox* spnPage;
  QLabel* lblPages;
  QPushButton* cmdNextPage;
  QPushButton* cmdZoomOut;
  QComboBox* cmbZoom;
  QPushButton* cmdZoomIn;
  QLineEdit* txtFind;
  QPushButton* cmdFindPrevious;
  QPushButton* cmdFindNext;
  QLabel* lblHits;
  PagePreview* vsPr;
  QLabel* lblNote;
  QPushButton* cmdEmailFileAsAttachment;
  QPushButton* cmdSaveTablesAsCSV;
  QPushButton* cmdSaveAsPDF;
  QPushButton* cmdClose;
  QPushButton* cmdPrint;
};

/// Shows the report in the one viewer, and tells the user what went amiss while it was made.
void OpenReportViewer(Business& business, const ScreenTools& tools, ReportDocument report);

}  // namespace quillary::documents
