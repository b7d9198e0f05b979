#include "shell/frmErrorHandler.h"

#include "base/Version.h"
#include "base/ports/requests/Mail.h"
#include "kit/Controls.h"
#include "session/Support.h"

#include <QApplication>
#include <QFontDatabase>
#include <QGridLayout>
#include <QVBoxLayout>

namespace quillary::shell {

namespace {

constexpr int kWidth = 600;
constexpr int kHeightWithDetails = 640;

QLabel* Words(const char* name, const QString& text) {
  QLabel* label = MakeLabel(name, text);
  label->setWordWrap(true);
  return label;
}

/// "Error: 5 - The words" without its number.
QString DescriptionOf(const QString& errorLine) {
  return errorLine.section(QStringLiteral(" - "), 1);
}

}  // namespace

frmErrorHandler::frmErrorHandler(Prompter& prompter, Desktop& desktop,
                                 const SettingsStore& settings, const Navigator& navigator,
                                 const session::Support& support)
    : prompter_(prompter),
      desktop_(desktop),
      settings_(settings),
      navigator_(navigator),
      support_(support) {
  setObjectName(QStringLiteral("frmErrorHandler"));
  setWindowTitle(QStringLiteral("Ouch! An error has occured."));
  setModal(true);
  Label1 = MakeLabel("Label1", QStringLiteral("An error has occured."), LabelRole::Title);
  lblFailure = Words("lblFailure", {});
  lblFailure->setTextFormat(Qt::PlainText);
  Label2 = Words("Label2", QStringLiteral("You can email the IT department at Bravanti about it "
                                          "automatically. This will include all "
                                          "of the information about the error. (recommended)"));
  Label3 = Words(
      "Label3",
      QStringLiteral(
          "You can try and continue running Quillary, but the results will be unpredictable! (not "
          "really recommended)"));
  Label4 = Words("Label4", QStringLiteral("Or, you can just exit Quillary completely."));
  Label5 = Words(
      "Label5",
      QStringLiteral("More about Quillary is on its website. The site contains valuable "
                     "information e.g. latest "
                     "update, common problems and solutions...To access the site, please click "));
  lblHere = MakeButton("lblHere", QStringLiteral("&here"), ButtonKind::Link);
  lblHere->setProperty("web", true);
  cmdEmail = MakeButton("cmdEmail", QStringLiteral("&Email IT"), ButtonKind::Main);
  cmdContinue = MakeButton("cmdContinue", QStringLiteral("&Continue"));
  cmdQuit = MakeButton("cmdQuit", QStringLiteral("&Quit"), ButtonKind::Danger);
  cmdErrorDetails = MakeButton("cmdErrorDetails", QStringLiteral("&See error details..."));
  cmdCopy = MakeButton("cmdCopy", QStringLiteral("Copy to clip&board"));
  Text1 = new QPlainTextEdit;
  Text1->setObjectName(QStringLiteral("Text1"));
  Text1->setAccessibleName(tr("Details of the error"));
  Text1->setReadOnly(true);
  Text1->setTabChangesFocus(true);
  Text1->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  Text1->setLineWrapMode(QPlainTextEdit::NoWrap);
  LayOut();
  ConnectCommands();
  for (QWidget* part : std::initializer_list<QWidget*>{cmdEmail, Label2})
    part->setHidden(support_.address.isEmpty());
  for (QWidget* part : std::initializer_list<QWidget*>{Label5, lblHere})
    part->setHidden(support_.webSite.isEmpty());
}

void frmErrorHandler::LayOut() {
  auto* choices = new QGridLayout;
  choices->setHorizontalSpacing(16);
  choices->setVerticalSpacing(12);
  choices->setColumnStretch(1, 1);
  const std::pair<QPushButton*, QLabel*> rows[] = {
      {cmdEmail, Label2}, {cmdContinue, Label3}, {cmdQuit, Label4}};
  int row = 0;
  for (const auto& [button, label] : rows) {
    label->setBuddy(button);
    choices->addWidget(button, row, 0, Qt::AlignTop);
    choices->addWidget(label, row++, 1, Qt::AlignTop);
  }
  auto* web = new QHBoxLayout;
  web->addWidget(Label5, 1);
  web->addWidget(lblHere, 0, Qt::AlignBottom);
  auto* details = new QHBoxLayout;
  details->addWidget(cmdErrorDetails);
  details->addWidget(cmdCopy);
  details->addStretch(1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 24, 24, 24);
  column->setSpacing(16);
  column->addWidget(Label1);
  column->addWidget(lblFailure);
  column->addLayout(choices);
  column->addLayout(web);
  column->addLayout(details);
  column->addWidget(Text1, 1);
}

void frmErrorHandler::ConnectCommands() {
  connect(cmdContinue, &QPushButton::clicked, this, &QDialog::accept);
  connect(cmdQuit, &QPushButton::clicked, this, [this] { desktop_.EndProcess(1); });
  connect(cmdErrorDetails, &QPushButton::clicked, this, &frmErrorHandler::ShowDetails);
  connect(cmdCopy, &QPushButton::clicked, this, [this] {
    desktop_.CopyToClipboard(Text1->toPlainText());
    prompter_.Tell(Tone::Information,
                   QStringLiteral("The error dump has been copied to the clipboard, so you can "
                                  "paste it into wherever you want."));
  });
  connect(lblHere, &QPushButton::clicked, this, [this] {
    prompter_.Tell(Tone::Information,
                   QStringLiteral("The site asks for the name and password of your business. They "
                                  "are those of your head-office login."));
    if (!desktop_.OpenInBrowser(support_.webSite))
      prompter_.Tell(
          Tone::Exclamation,
          tr("No browser answers on this machine. The address is\n%1").arg(support_.webSite));
  });
  connect(cmdEmail, &QPushButton::clicked, this, &frmErrorHandler::Email);
}

void frmErrorHandler::ShowDump(const QString& failure, const QString& dump) {
  lblFailure->setText(failure);
  Text1->setPlainText(dump);
  Text1->hide();
  cmdErrorDetails->setEnabled(true);
  resize(kWidth, layout()->totalHeightForWidth(kWidth));
  (support_.address.isEmpty() ? cmdContinue : cmdEmail)->setFocus();
}

void frmErrorHandler::ShowDetails() {
  Text1->show();
  cmdErrorDetails->setEnabled(false);
  resize(qMax(width(), kWidth), qMax(height(), kHeightWithDetails));
}

void frmErrorHandler::Email() {
  const QString option = settings_.Read(QStringLiteral("Email"), QStringLiteral("Email Option"),
                                        QStringLiteral("MAPI"));
  if (option.toUpper() != QLatin1StringView("VBSENDMAIL") || !navigator_.CanOpen<SendMail>()) {
    prompter_.Tell(Tone::Information,
                   QStringLiteral("This option is not avaliable on this version."));
    return;
  }
  const QString subject = QStringLiteral("Quillary v") + VersionText();
  if (navigator_.Open(SendMail{support_.address, subject, Text1->toPlainText()}))
    prompter_.Tell(Tone::Information, QStringLiteral("Error report successfully sent via email!"));
}

ScreenErrorReporter::ScreenErrorReporter(const Clock& clock, Prompter& prompter, Desktop& desktop,
                                         const SettingsStore& settings, const Navigator& navigator,
                                         const session::Support& support)
    : clock_(clock),
      prompter_(prompter),
      desktop_(desktop),
      settings_(settings),
      navigator_(navigator),
      support_(support) {}

ScreenErrorReporter::~ScreenErrorReporter() = default;

void ScreenErrorReporter::ReportError(const QString& form, const QString& errorLine,
                                      const QString& procedure, const QString& furtherInformation) {
  ErrorReport report;
  report.form = form;
  report.errorLine = errorLine;
  report.procedure = procedure;
  report.furtherInformation = WithRefusals(furtherInformation);
  refused_.clear();
  report.time = clock_.Now();
  NoteActiveControl(report, QApplication::focusWidget(), QApplication::activeWindow());
  if (!screen_)
    screen_ =
        std::make_unique<frmErrorHandler>(prompter_, desktop_, settings_, navigator_, support_);
  screen_->ShowDump(DescriptionOf(errorLine), BuildErrorDump(report));
  if (!screen_->isVisible()) screen_->exec();
}

void ScreenErrorReporter::NoteRefused(const RefusedStatement& refused) {
  constexpr size_t kKept = 5;
  if (refused_.size() == kKept) refused_.erase(refused_.begin());
  refused_.push_back({refused, clock_.Now()});
}

QString ScreenErrorReporter::WithRefusals(const QString& furtherInformation) const {
  QString text = furtherInformation;
  for (const Refused& refused : refused_) {
    if (furtherInformation.contains(refused.statement.statement)) continue;
    if (!text.isEmpty()) text += u'\n';
    text += QStringLiteral("Refused at %1:\n%2")
                .arg(refused.time.time.toString(QStringLiteral("HH:mm:ss")),
                     refused.statement.InLines());
  }
  return text;
}

}  // namespace quillary::shell
