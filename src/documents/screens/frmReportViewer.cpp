#include "documents/screens/frmReportViewer.h"

#include "base/Text.h"
#include "base/ports/requests/Mail.h"
#include "data/store/FileInTheMaking.h"
#include "documents/forms/Csv.h"
#include "documents/forms/Pdf.h"
#include "documents/screens/PagePrinting.h"
#include "kit/FlowLayout.h"
#include "kit/Layouts.h"
#include "kit/Shortcuts.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QSpinBox>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace quillary::documents {

namespace {

const char* const kSent =
    "Email has been sent.\r\nInvoice can be viewed in Reports->Send Documents";
const char* const kNoteBeforeAnyReport =
    "This report has automatically been exported to a Rich Text File format named ";
constexpr int kZoomStep = 25;
constexpr int kFirstZoom = 100;

bool HasTables(const Composition& document) {
  for (const Block& block : document.blocks)
    if (std::holds_alternative<TableBlock>(block)) return true;
  return false;
}

}  // namespace

frmReportViewer::frmReportViewer(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmReportViewer"), QStringLiteral("Report Preview")),
      business_(business),
      tools_(tools) {
  growth_ = new QTimer(this);
  MakeControls();
  LayOut();
  ConnectControls();
  cmdEmailFileAsAttachment->setEnabled(report_.isWritten && tools_.navigator.CanOpen<EmailFile>());
  cmdEmailFileAsAttachment->setVisible(CanEmail());
  vsPr->SetZoom(kFirstZoom);
  ShowZoom();
}

QPushButton* frmReportViewer::MakeTool(const char* name, const QString& heardAs,
                                       const QString& iconName, const QString& keys) {
  auto* button = MakeButton(name, {}, ButtonKind::Plain, iconName);
  button->setAccessibleName(heardAs);
  button->setToolTip(keys.isEmpty() ? heardAs : QStringLiteral("%1 (%2)").arg(heardAs, keys));
  return button;
}

void frmReportViewer::MakeControls() {
  cmdBack = MakeButton("cmdBack", tr("&Back"), ButtonKind::Plain, "go-previous");
  cmdBack->setToolTip(tr("Back to the report from which this one was opened (Alt+Left)"));
  cmdBack->hide();
  cmdPreviousPage = MakeTool("cmdPreviousPage", tr("Previous page"), "go-up", {});
  spnPage = Named(new QSpinBox, "spnPage", tr("Page"));
  spnPage->setButtonSymbols(QAbstractSpinBox::NoButtons);
  spnPage->setAlignment(Qt::AlignRight);
  spnPage->setFixedWidth(56);
  lblPages = MakeLabel("lblPages", {}, LabelRole::Muted);
  cmdNextPage = MakeTool("cmdNextPage", tr("Next page"), "go-down", {});
  cmdZoomOut = MakeTool("cmdZoomOut", tr("Smaller"), "zoom-out", tr("Ctrl+-"));
  cmbZoom = Named(new QComboBox, "cmbZoom", tr("Size of the page"));
  cmbZoom->setEditable(true);
  cmbZoom->setInsertPolicy(QComboBox::NoInsert);
  cmbZoom->addItems({tr("Fit width"), tr("Whole page"), "50 %", "75 %", "100 %", "125 %", "150 %",
                     "200 %", "300 %"});
  cmbZoom->setFixedWidth(128);
  cmdZoomIn = MakeTool("cmdZoomIn", tr("Larger"), "zoom-in", tr("Ctrl++"));
  txtFind = MakeFilterBox(this, "txtFind");
  txtFind->setPlaceholderText(tr("Find in this report"));
  txtFind->setAccessibleName(tr("Find in this report"));
  txtFind->setToolTip(tr("Marks every place of the text (Ctrl+F); Enter goes to the next"));
  txtFind->setFixedWidth(240);
  cmdFindPrevious = MakeTool("cmdFindPrevious", tr("Place before"), "arrow-up", tr("Shift+F3"));
  cmdFindNext = MakeTool("cmdFindNext", tr("Next place"), "arrow-down", tr("F3"));
  lblHits = MakeLabel("lblHits", {}, LabelRole::Muted);
  lblHits->setMinimumWidth(72);
  vsPr = new PagePreview("vsPr");
  lblNote = MakeParagraph("lblNote", QString::fromLatin1(kNoteBeforeAnyReport));
  cmdEmailFileAsAttachment =
      MakeButton("cmdEmailFileAsAttachment", tr("&Email .doc file as attachment"),
                 ButtonKind::Plain, "mail-attachment");
  cmdEmailFileAsAttachment->setEnabled(tools_.navigator.CanOpen<EmailFile>());
  cmdSaveTablesAsCSV = MakeButton("cmdSaveTablesAsCSV", tr("Save &tables as CSV..."));
  cmdSaveAsPDF = MakeButton("cmdSaveAsPDF", tr("Save as P&DF..."));
  cmdClose = MakeButton("cmdClose", tr("&Close"));
  cmdClose->setToolTip(tr("Closes this tab (Ctrl+W)"));
  cmdPrint = MakeButton("cmdPrint", tr("&Print..."), ButtonKind::Main);
}

QLayout* frmReportViewer::ToolLine() {
  lblHits->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  auto* line = new FlowLayout;
  line->AddWidgets(
      {cmdBack, cmdPreviousPage, spnPage, lblPages, cmdNextPage, cmdZoomOut, cmbZoom, cmdZoomIn});
  line->AddWidgets({lblHits, txtFind, cmdFindPrevious, cmdFindNext}, Qt::AlignRight);
  return line;
}

QLayout* frmReportViewer::CommandLine() {
  auto* line = new FlowLayout;
  line->AddWidgets({cmdEmailFileAsAttachment, cmdSaveTablesAsCSV, cmdSaveAsPDF});
  line->AddWidgets({cmdClose, cmdPrint}, Qt::AlignRight);
  return line;
}

void frmReportViewer::LayOut() {
  above_ = new QVBoxLayout;
  above_->setContentsMargins(16, 12, 16, 12);
  above_->setSpacing(12);
  above_->addLayout(ToolLine());
  auto* below = new QVBoxLayout;
  below->setContentsMargins(16, 12, 16, 16);
  below->setSpacing(12);
  below->addWidget(lblNote);
  below->addLayout(CommandLine());
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(above_);
  column->addWidget(vsPr, 1);
  column->addLayout(below);
}

void frmReportViewer::ConnectControls() {
  const auto onClick = [this](QPushButton* button, std::function<void()> command) {
    tools_.runner.OnClick(button, objectName(), std::move(command));
  };
  onClick(cmdPrint, [this] { Print(); });
  onClick(cmdSaveAsPDF, [this] { SaveAsPDF(); });
  onClick(cmdSaveTablesAsCSV, [this] { SaveTablesAsCSV(); });
  onClick(cmdEmailFileAsAttachment, [this] { cmdEmailFileAsAttachment_Click(); });
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  connect(cmdBack, &QPushButton::clicked, this, [this] {
    tools_.runner.RunAside(objectName(), QStringLiteral("GoBack"), [this] { GoBack(); });
  });
  constexpr int kAtATime = 25;  // milliseconds, so that keys and scrolling come between
  connect(growth_, &QTimer::timeout, this, [this] { Grow(kAtATime); });
  AddShortcut(this, QKeySequence::Back, cmdBack);
  connect(vsPr, &PagePreview::linkOpened, this, [this](int link) {
    tools_.runner.Run(objectName(), QStringLiteral("OpenLink"), [this, link] {
      if (Live()) Live()->OpenLink(link);
    });
  });
  AddShortcut(this, QKeySequence::Print, cmdPrint);
  ConnectPages();
  ConnectSearch();
}

void frmReportViewer::ConnectPages() {
  connect(vsPr, &PagePreview::pageChanged, this, &frmReportViewer::ShowPageNumber);
  connect(vsPr, &PagePreview::zoomChanged, this, &frmReportViewer::ShowZoom);
  connect(spnPage, &QSpinBox::editingFinished, this,
          [this] { vsPr->GoToPage(spnPage->value() - 1); });
  connect(cmdPreviousPage, &QPushButton::clicked, this,
          [this] { vsPr->GoToPage(vsPr->CurrentPage() - 1); });
  connect(cmdNextPage, &QPushButton::clicked, this,
          [this] { vsPr->GoToPage(vsPr->CurrentPage() + 1); });
  connect(cmdZoomOut, &QPushButton::clicked, this,
          [this] { vsPr->SetZoom(vsPr->Zoom() - kZoomStep); });
  connect(cmdZoomIn, &QPushButton::clicked, this,
          [this] { vsPr->SetZoom(vsPr->Zoom() + kZoomStep); });
  connect(cmbZoom, &QComboBox::activated, this, &frmReportViewer::TakeZoom);
  connect(cmbZoom->lineEdit(), &QLineEdit::returnPressed, this, &frmReportViewer::TakeZoom);
  for (const auto& [keys, button] :
       {std::pair{QKeySequence::ZoomIn, cmdZoomIn}, std::pair{QKeySequence::ZoomOut, cmdZoomOut}}) {
    AddShortcut(this, keys, button);
  }
}

void frmReportViewer::ConnectSearch() {
  connect(txtFind, &QLineEdit::textChanged, this, &frmReportViewer::Search);
  connect(txtFind, &QLineEdit::returnPressed, this, [this] { GoToHit(1); });
  connect(cmdFindNext, &QPushButton::clicked, this, [this] { GoToHit(1); });
  connect(cmdFindPrevious, &QPushButton::clicked, this, [this] { GoToHit(-1); });
  for (const auto& [keys, button] : {std::pair{QKeySequence::FindNext, cmdFindNext},
                                     std::pair{QKeySequence::FindPrevious, cmdFindPrevious}}) {
    AddShortcut(this, keys, button);
  }
}

void frmReportViewer::ShowReport(ReportDocument report) {
  live_.clear();
  TakeLive();
  ShowPages(std::move(report));
}

void frmReportViewer::ShowLive(std::unique_ptr<LiveReport> report, ReportDocument made,
                               Comes comes) {
  if (comes == Comes::Anew) live_.clear();
  live_.push_back(std::move(report));
  connect(Live(), &LiveReport::changed, this, [this] {
    tools_.runner.RunAside(objectName(), QStringLiteral("Reload"), [this] { Reload(); });
  });
  TakeLive();
  ShowPages(std::move(made));
}

void frmReportViewer::GoBack() {
  if (live_.size() < 2) return;
  live_.pop_back();
  TakeLive();
  ShowPages(Live()->Make());
}

void frmReportViewer::TakeLive() {
  delete bar_;
  bar_ = Live() ? Live()->MakeBar() : nullptr;
  if (bar_) above_->insertWidget(0, bar_);
  cmdBack->setVisible(live_.size() > 1);
}

void frmReportViewer::Reload() {
  // Making a report may write balances, whose commit comes back here.
  if (!Live() || making_) return;
  making_ = true;
  const int page = vsPr->CurrentPage();
  const QPointer<QWidget> focus = focusWidget();
  try {
    const BusyWhile busy(business_.World().busy);
    ShowPages(Live()->Make());
  } catch (const std::invalid_argument& refused) {
    business_.World().prompter.Tell(Tone::Exclamation, QString::fromUtf8(refused.what()));
  } catch (...) {
    making_ = false;
    throw;
  }
  making_ = false;
  vsPr->GoToPage(page);
  if (focus) focus->setFocus();
}

Tables frmReportViewer::Shows() const {
  return Live() ? Live()->Shows() : Tables();
}

void frmReportViewer::ShowPages(ReportDocument report) {
  vsPr->ShowDocument(nullptr);
  report_ = std::move(report);
  ShowPageCount();
  cmdSaveTablesAsCSV->setEnabled(Live() || HasTables(report_.pages));
  cmdEmailFileAsAttachment->setVisible(CanEmail());
  vsPr->ShowDocument(&report_.pages);
  if (Live() && Live()->IsGrowing())
    growth_->start();
  else
    growth_->stop();
  Search();
  vsPr->setFocus();
}

void frmReportViewer::ShowPageCount() {
  const int count = static_cast<int>(report_.pages.pages.size());
  const bool isGrowing = Live() && Live()->IsGrowing();
  spnPage->setRange(1, std::max(1, count));
  lblPages->setText(isGrowing ? tr("of %1, more to come").arg(count) : tr("of %1").arg(count));
  lblNote->setText(isGrowing ? tr("More pages are being made.") : report_.note);
  cmdNextPage->setEnabled(vsPr->CurrentPage() + 1 < count);
}

void frmReportViewer::Grow(int milliseconds) {
  if (!Live() || !Live()->IsGrowing()) return growth_->stop();
  tools_.runner.RunAside(objectName(), QStringLiteral("Grow"), [&] {
    growth_->stop();  // should it fail, once
    report_ = Live()->Grow(milliseconds);
    vsPr->ShowMorePages();
    ShowPageCount();
    if (Live()->IsGrowing()) return growth_->start();
    if (!txtFind->text().isEmpty()) Search();
    TellTroubles(business_, report_.troubles);
  });
}

void frmReportViewer::GrowWhole() {
  if (!Live() || !Live()->IsGrowing()) return;
  const BusyWhile busy(business_.World().busy);
  Grow(std::numeric_limits<int>::max());
}

void frmReportViewer::ShowPageNumber(int page) {
  spnPage->setValue(page + 1);
  cmdPreviousPage->setEnabled(page > 0);
  cmdNextPage->setEnabled(page + 1 < static_cast<int>(report_.pages.pages.size()));
}

void frmReportViewer::ShowZoom() {
  if (vsPr->CurrentFit() == PagePreview::Fit::None)
    cmbZoom->setEditText(QStringLiteral("%1 %").arg(vsPr->Zoom()));
}

void frmReportViewer::TakeZoom() {
  const QString words = cmbZoom->currentText();
  if (words == tr("Fit width")) {
    vsPr->SetFit(PagePreview::Fit::Width);
  } else if (words == tr("Whole page")) {
    vsPr->SetFit(PagePreview::Fit::Page);
  } else {
    const int percent = QString(words).remove(u'%').trimmed().toInt();
    if (percent > 0) vsPr->SetZoom(percent);
    ShowZoom();
  }
}

void frmReportViewer::Search() {
  hits_ = FindOnPages(report_.pages, txtFind->text());
  hit_ = hits_.empty() ? -1 : 0;
  // The first one from the page in view on, so that typing does not lead back to the start.
  const int page = vsPr->CurrentPage();
  const auto here = std::find_if(hits_.begin(), hits_.end(),
                                 [page](const PageHit& hit) { return hit.page >= page; });
  if (here != hits_.end()) hit_ = static_cast<int>(here - hits_.begin());
  ShowHitCount();
}

void frmReportViewer::GoToHit(int step) {
  if (hits_.empty()) return;
  const int count = static_cast<int>(hits_.size());
  hit_ = (hit_ + step + count) % count;
  ShowHitCount();
}

void frmReportViewer::ShowHitCount() {
  vsPr->ShowHits(hits_, hit_);
  const bool searches = !txtFind->text().trimmed().isEmpty();
  lblHits->setText(!searches       ? QString()
                   : hits_.empty() ? tr("Not found")
                                   : tr("%1 of %2").arg(hit_ + 1).arg(hits_.size()));
  for (QPushButton* button : {cmdFindPrevious, cmdFindNext}) button->setEnabled(hits_.size() > 0);
}

void frmReportViewer::Print() {
  GrowWhole();
  QPrinter printer(QPrinter::HighResolution);
  FitPrinter(printer, report_.pages);
  QPrintDialog dialog(&printer, this);
  dialog.setMinMax(1, static_cast<int>(report_.pages.pages.size()));
  if (dialog.exec() != QDialog::Accepted) return;
  const BusyWhile busy(business_.World().busy);
  PrintPages(printer, report_.pages);
}

std::optional<QString> frmReportViewer::AskFile(const QString& title, const QString& kind,
                                                const QString& ending) {
  QFileDialog dialog(this, title);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilter(QStringLiteral("%1 (*.%2)").arg(kind, ending));
  dialog.setDefaultSuffix(ending);
  dialog.setDirectory(ParentFolder(report_.docFile));
  dialog.selectFile(FileNameWithoutExtension(FileNameOfPath(report_.docFile)) + u'.' + ending);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.selectedFiles().value(0);
}

void frmReportViewer::SaveAsPDF() {
  const auto file = AskFile(tr("Save as PDF"), tr("PDF documents"), QStringLiteral("pdf"));
  if (!file) return;
  GrowWhole();
  const BusyWhile busy(business_.World().busy);
  for (const QString& trouble : WritePdf(report_.pages, *file, business_.Now()))
    business_.World().prompter.Tell(Tone::Exclamation, trouble);
}

void frmReportViewer::SaveTablesAsCSV() {
  const auto tables = Live() ? Live()->Csv() : std::vector<LiveReport::CsvTable>();
  if (tables.size() > 1) {
    const QString folder = QFileDialog::getExistingDirectory(
        this, tr("Save tables as CSV in this folder"), ParentFolder(report_.docFile));
    if (folder.isEmpty()) return;
    for (const LiveReport::CsvTable& table : tables)
      WriteWhole(QDir(folder).filePath(table.fileName), table.content);
    return;
  }
  const auto name =
      AskFile(tr("Save tables as CSV"), tr("Comma-separated values"), QStringLiteral("csv"));
  if (!name) return;
  WriteWhole(*name, tables.empty() ? WriteCsv(report_.pages) : tables.front().content);
}

bool frmReportViewer::CanEmail() const {
  return business_.World().headOffice.Online() || MailsWithoutHeadOffice();
}

bool frmReportViewer::MailsWithoutHeadOffice() const {
  return business_.values.emailOption == u"VBSENDMAIL" ||
         !business_.World()
              .settings.Read(QStringLiteral("Email"), QStringLiteral("SMTP Server"))
              .isEmpty();
}

void frmReportViewer::cmdEmailFileAsAttachment_Click() {
  GrowWhole();
  if (!tools_.navigator.Open(EmailFile{report_.docTitle, report_.docFile})) {
    if (!business_.World().headOffice.IsConnected() && !MailsWithoutHeadOffice())
      cmdEmailFileAsAttachment->hide();
    return;
  }
  business_.World().prompter.Tell(Tone::Information, QString::fromLatin1(kSent));
  cmdEmailFileAsAttachment->hide();
}

namespace {

frmReportViewer* TheViewer(Business& business, const ScreenTools& tools) {
  auto* viewer =
      qobject_cast<frmReportViewer*>(tools.host.BringToFront(QStringLiteral("frmReportViewer")));
  if (viewer == nullptr) {
    viewer = new frmReportViewer(business, tools);
    tools.host.ShowScreen(viewer);
  }
  return viewer;
}

}  // namespace

void TellTroubles(Business& business, const QStringList& all) {
  static QSet<QString> toldPictures;
  QStringList troubles;
  for (const QString& trouble : all) {
    const bool isOfPicture = trouble.contains(QLatin1StringView(kWithoutPicture));
    if (isOfPicture && toldPictures.contains(trouble)) continue;
    if (isOfPicture) toldPictures.insert(trouble);
    troubles += trouble;
  }
  if (!troubles.isEmpty()) business.World().prompter.Tell(Tone::Exclamation, troubles.join(u'\n'));
}

void OpenLiveReport(Business& business, const ScreenTools& tools,
                    std::unique_ptr<LiveReport> report, frmReportViewer::Comes comes) {
  const BusyWhile busy(business.World().busy);
  ReportDocument made = report->Make();
  const QStringList troubles = made.troubles;
  TheViewer(business, tools)->ShowLive(std::move(report), std::move(made), comes);
  TellTroubles(business, troubles);
}

namespace {

/// The dialog that asked is modal, so a tab behind it could be neither seen nor used: the preview
/// opens in a window of its own before it, and the dialog goes on when that is closed.
void ShowBefore(QWidget* dialog, Business& business, const ScreenTools& tools,
                ReportDocument report) {
  constexpr QSize kRoom(1000, 760);
  const QStringList troubles = report.troubles;
  QDialog window(dialog);
  window.setObjectName(QStringLiteral("wndReportPreview"));
  auto* viewer = new frmReportViewer(business, tools);
  window.setWindowTitle(viewer->windowTitle());
  auto* column = new QVBoxLayout(&window);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(viewer);
  QObject::connect(viewer, &Screen::closeRequested, &window, &QDialog::accept);
  window.resize(kRoom.boundedTo(dialog->screen()->availableSize()));
  viewer->ShowReport(std::move(report));
  TellTroubles(business, troubles);
  window.exec();
}

}  // namespace

void OpenReportViewer(Business& business, const ScreenTools& tools, ReportDocument report) {
  if (QWidget* dialog = QApplication::activeModalWidget())
    return ShowBefore(dialog, business, tools, std::move(report));
  const QStringList troubles = report.troubles;
  TheViewer(business, tools)->ShowReport(std::move(report));
  TellTroubles(business, troubles);
}

}  // namespace quillary::documents
