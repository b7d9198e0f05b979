#pragma once

#include "documents/reports/Report.h"
#include "documents/screens/LiveReport.h"
#include "documents/screens/PagePreview.h"
#include "kit/Screen.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QTimer;
class QVBoxLayout;

namespace quillary::documents {

/// Shows a report page by page, prints it, and saves it in other forms. There is one, which shows
/// the report that was made last.
class frmReportViewer : public Screen {
  Q_OBJECT

 public:
  frmReportViewer(Business& business, const ScreenTools& tools);

  void ShowReport(ReportDocument report);
  /// Shows the report as it was made, with its bar above the pages. What it was opened from waits
  /// behind it for "Back"; otherwise nothing does.
  enum class Comes { Anew, FromShown };
  void ShowLive(std::unique_ptr<LiveReport> report, ReportDocument made, Comes comes);
  /// Makes a live report again and stays on its page.
  void Reload() override;
  Tables Shows() const override;
  const ReportDocument& Shown() const { return report_; }
  /// Lets the user choose an address and mails the file of the report.
  bool CanEmail() const;
  /// By the machine's own mail program, or by a mail server.
  bool MailsWithoutHeadOffice() const;
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
  /// Of the report behind; its bar goes.
  void GoBack();
  void TakeLive();
  LiveReport* Live() const { return live_.empty() ? nullptr : live_.back().get(); }
  void ShowPages(ReportDocument report);
  /// A long report comes page by page while its first ones can be read.
  void Grow(int milliseconds);
  /// For commands that take the whole of it.
  void GrowWhole();
  void ShowPageCount();
  void Print();
  void SaveAsPDF();
  void SaveTablesAsCSV();
  /// The file that the user chose, ending in `.ending`; nothing when the user gave up.
  std::optional<QString> AskFile(const QString& title, const QString& kind, const QString& ending);

  Business& business_;
  ScreenTools tools_;
  ReportDocument report_;
  std::vector<std::unique_ptr<LiveReport>> live_;  // the one shown last
  bool making_ = false;
  QTimer* growth_;
  std::vector<PageHit> hits_;
  int hit_ = -1;

  QVBoxLayout* above_;
  QWidget* bar_ = nullptr;
  QPushButton* cmdBack;
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

/// Tells the user what went amiss while a document was made; that a picture is missing only once a
/// session, since it is missing from every document.
void TellTroubles(Business& business, const QStringList& troubles);

/// Makes the report and shows it in the one viewer. One that cannot be made throws, and what is
/// shown stays.
void OpenLiveReport(Business& business, const ScreenTools& tools,
                    std::unique_ptr<LiveReport> report, frmReportViewer::Comes comes);

/// Shows the report in the one viewer, or from a dialog in a window before it, and tells the user
/// what went amiss while it was made.
void OpenReportViewer(Business& business, const ScreenTools& tools, ReportDocument report);

}  // namespace quillary::documents
