#include "help/screens/frmManual.h"

#include "kit/Controls.h"
#include "kit/Layouts.h"
#include "kit/Shortcuts.h"

#include <QKeyEvent>
#include <QSplitter>
#include <QVBoxLayout>
#include <QWindow>

namespace quillary::help {

namespace {

const QString kWindow = QStringLiteral("Manual");
constexpr int kPlaceRole = Qt::UserRole;

}  // namespace

frmManual::frmManual(const Manual& manual, Desktop& desktop, Prompter& prompter,
                     SettingsStore& settings)
    : manual_(manual), desktop_(desktop), prompter_(prompter), settings_(settings) {
  setObjectName(QStringLiteral("frmManual"));
  setWindowTitle(tr("User manual"));
  txtFind = Named(new QLineEdit, "txtFind", tr("Search the manual"));
  txtFind->setPlaceholderText(tr("Search the manual"));
  txtFind->setToolTip(tr("Lists the passages that hold all the words typed (Ctrl+F)"));
  txtFind->setClearButtonEnabled(true);
  txtFind->setProperty("kind", QStringLiteral("search"));
  lblFound = MakeLabel("lblFound", {}, LabelRole::Hint);
  lstPassages = Named(new QListWidget, "lstPassages", tr("Contents"));
  lstPassages->setTextElideMode(Qt::ElideRight);
  lstPassages->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  txtManual = new ManualBrowser;
  cmdBack = MakeButton("cmdBack", tr("&Back"), ButtonKind::Plain, "go-previous");
  cmdForward = MakeButton("cmdForward", tr("&Forward"), ButtonKind::Plain, "go-next");
  cmdContents = MakeButton("cmdContents", tr("Co&ntents"), ButtonKind::Plain, "go-home");
  cmdClose = MakeButton("cmdClose", tr("&Close"));
  LayOut();
  connect(txtFind, &QLineEdit::textChanged, this, &frmManual::ListFound);
  connect(txtFind, &QLineEdit::returnPressed, this, [this] {
    if (lstPassages->count() > 0) OpenLine(lstPassages->item(0));
  });
  connect(lstPassages, &QListWidget::itemClicked, this, &frmManual::OpenLine);
  connect(lstPassages, &QListWidget::itemActivated, this, &frmManual::OpenLine);
  connect(txtManual, &ManualBrowser::shown, this, &frmManual::MarkLine);
  connect(txtManual, &ManualBrowser::leavesManual, this, &frmManual::LeaveFor);
  connect(txtManual, &QTextBrowser::backwardAvailable, cmdBack, &QWidget::setEnabled);
  connect(txtManual, &QTextBrowser::forwardAvailable, cmdForward, &QWidget::setEnabled);
  connect(cmdBack, &QPushButton::clicked, txtManual, &QTextBrowser::backward);
  connect(cmdForward, &QPushButton::clicked, txtManual, &QTextBrowser::forward);
  connect(cmdContents, &QPushButton::clicked, this, [this] { ShowPlace({}); });
  connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
  AddShortcut(this, QKeySequence::Find, tr("Searches the manual"), [this] {
    txtFind->setFocus(Qt::ShortcutFocusReason);
    txtFind->selectAll();
  });
  AddShortcut(this, QKeySequence::Back, cmdBack);
  AddShortcut(this, QKeySequence::Forward, cmdForward);
  AddShortcut(this, QKeySequence::ZoomIn, tr("Larger words"), [this] { txtManual->zoomIn(); });
  AddShortcut(this, QKeySequence::ZoomOut, tr("Smaller words"), [this] { txtManual->zoomOut(); });
  for (QPushButton* button : {cmdBack, cmdForward}) button->setEnabled(false);
  resize(1080, 760);
  const QByteArray place =
      QByteArray::fromBase64(settings_.Read(kWindow, QStringLiteral("Place")).toLatin1());
  if (!place.isEmpty()) restoreGeometry(place);
  ListContents();
}

void frmManual::LayOut() {
  auto* side = new QWidget;
  auto* search = new QVBoxLayout(side);
  search->setContentsMargins(16, 16, 8, 16);
  search->setSpacing(8);
  search->addWidget(txtFind);
  search->addWidget(lblFound);
  search->addWidget(lstPassages, 1);
  auto* page = new QWidget;
  auto* reading = new QVBoxLayout(page);
  reading->setContentsMargins(8, 16, 16, 16);
  reading->setSpacing(8);
  auto* commands = new QHBoxLayout;
  commands->setSpacing(8);
  for (QPushButton* button : {cmdBack, cmdForward, cmdContents}) commands->addWidget(button);
  commands->addStretch(1);
  commands->addWidget(cmdClose);
  reading->addLayout(commands);
  reading->addWidget(txtManual, 1);
  auto* halves = new QSplitter;
  halves->addWidget(side);
  halves->addWidget(page);
  halves->setStretchFactor(1, 1);
  halves->setSizes({280, 800});
  halves->setChildrenCollapsible(false);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->addWidget(halves);
}

void frmManual::AddLine(const Passage& passage, bool indented) {
  auto* line = new QListWidgetItem((indented ? QStringLiteral("    ") : QString()) + passage.title);
  line->setData(kPlaceRole, passage.place);
  line->setToolTip(passage.title);
  if (!indented) {
    QFont font = lstPassages->font();
    font.setWeight(QFont::DemiBold);
    line->setFont(font);
  }
  lstPassages->addItem(line);
}

void frmManual::ListContents() {
  lstPassages->clear();
  for (const Passage& passage : manual_.Passages())
    if (passage.level <= 2) AddLine(passage, passage.level > 1);
  lblFound->setVisible(manual_.Passages().empty());
  lblFound->setText(tr("The manual is not installed."));
  MarkLine();
}

void frmManual::ListFound(const QString& words) {
  if (words.trimmed().isEmpty()) return ListContents();
  lstPassages->clear();
  const auto found = manual_.Find(words);
  for (const Passage* passage : found) AddLine(*passage, false);
  lblFound->setText(found.empty()       ? tr("Nothing found. Fewer or shorter words find more.")
                    : found.size() == 1 ? tr("1 passage")
                                        : tr("%1 passages").arg(found.size()));
  lblFound->show();
}

void frmManual::OpenLine(const QListWidgetItem* line) {
  ShowPlace(line->data(kPlaceRole).toString());
}

void frmManual::MarkLine() {
  const QUrl page = txtManual->Shown();
  QString place = page.fileName();
  if (page.hasFragment()) place += u'#' + page.fragment();
  const QString heading = manual_.HeadingOf(place);
  for (int at = 0; at < lstPassages->count(); ++at)
    if (lstPassages->item(at)->data(kPlaceRole).toString() == heading)
      return lstPassages->setCurrentRow(at);
}

void frmManual::ShowPlace(const QString& place) {
  if (manual_.Passages().empty()) return;
  const QString file = place.section(u'#', 0, 0);
  QUrl page = QUrl::fromLocalFile(manual_.Folder() + u'/' +
                                  (file.isEmpty() ? QStringLiteral("index.html") : file));
  if (place.contains(u'#')) page.setFragment(place.section(u'#', 1));
  txtManual->setSource(page);
}

void frmManual::StandOver(QWidget* dialog) {
  winId();  // makes the window, whose leader is then the dialog's; Qt blocks all others meanwhile
  QWindow* leader = dialog ? dialog->windowHandle() : nullptr;
  if (windowHandle()->transientParent() != leader) {
    hide();
    windowHandle()->setTransientParent(leader);
  }
  show();
  raise();
  activateWindow();
  txtManual->setFocus();
}

void frmManual::LeaveFor(const QString& address) {
  if (desktop_.OpenInBrowser(address)) return;
  prompter_.Tell(Tone::Exclamation, tr("No browser answers on this machine. The address is\n%1\n"
                                       "and needs a connection to the internet.")
                                        .arg(address));
}

void frmManual::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
  if (txtFind->text().isEmpty())
    close();
  else
    txtFind->clear();
}

void frmManual::closeEvent(QCloseEvent* event) {
  settings_.Write(kWindow, QStringLiteral("Place"), QString::fromLatin1(saveGeometry().toBase64()));
  QWidget::closeEvent(event);
}

}  // namespace quillary::help
