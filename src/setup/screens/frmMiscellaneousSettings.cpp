#include "setup/screens/frmMiscellaneousSettings.h"

#include "kit/Combos.h"
#include "kit/Keys.h"
#include "kit/Layouts.h"
#include "kit/PageTabs.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>

namespace quillary::setup {
namespace {

QLineEdit* Box(const char* name, const char* field, int width = 0) {
  auto* box = ForField(field, Named(new QLineEdit, name));
  LimitTo(box, width);
  SelectAllText(box);
  return box;
}

template <typename Button>
Button* Choice(const char* name, const QString& words) {
  auto* button = Named(new Button, name);
  button->setText(words);
  return button;
}

QWidget* PageOf(const QList<QLayout*>& lines) {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 16, 0, 8);
  column->setSpacing(12);
  for (QLayout* line : lines) column->addLayout(line);
  column->addStretch(1);
  return page;
}

QLayout* Under(const QString& title, const QList<QWidget*>& choices) {
  auto* column = new QVBoxLayout;
  column->setSpacing(6);
  column->addWidget(MakeLabel("", title, LabelRole::Muted));
  for (QWidget* choice : choices) column->addWidget(choice);
  return column;
}

}  // namespace

frmMiscellaneousSettings::frmMiscellaneousSettings(Business& business, const ScreenTools& tools,
                                                   const QString& programFolder)
    : Dialog("frmMiscellaneousSettings", QStringLiteral("Miscellaneous settings"),
             business.World().prompter),
      business_(business),
      logFile_(QDir(programFolder).filePath(QStringLiteral("Log.txt"))) {
  MakeControls();
  LayOut();
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  connect(optVBSendMail, &QRadioButton::toggled, this, [this] { EnableSmtp(); });
  connect(txtAutoScheduleDays, &QLineEdit::editingFinished, this, [this] { CheckDays(); });
  tools.runner.OnClick(cmdCloseAndSave, objectName(), [this] { Save(); });
  tools.runner.Run(objectName(), QStringLiteral("Form_Load"), [this] { Load(); });
  state_.WatchFieldsOf(this);
}

void frmMiscellaneousSettings::MakeControls() {
  txtGSTPercentage = Box("txtGSTPercentage", "taxPercent");
  txtAutoScheduleDays = Box("txtAutoScheduleDays", "daysToAdvanceSchedule", 9);
  optAccrual = Choice<QRadioButton>("optAccrual", tr("&Accrual"));
  optCash = Choice<QRadioButton>("optCash", tr("Cas&h"));
  txtInvoiceNumber = Box("txtInvoiceNumber", "invoiceNumber", 9);
  txtDBVersion = Box("txtDBVersion", "databaseVersion", 9);
  dtScheduleEnd = Named(new DateField(business_.Today()), "dtScheduleEnd");
  chkEnableLogging = Choice<QCheckBox>("chkEnableLogging", tr("Enable &Logging"));
  chkEnableOstrel4WebServices =
      Choice<QCheckBox>("chkEnableOstrel4WebServices", tr("Enable Ostrel 4 &Web Services"));
  chkCompactDatabaseBeforeUpload = Choice<QCheckBox>(
      "chkCompactDatabaseBeforeUpload", tr("Compact database before database &upload"));
  txtDefaultEmailMessage = Named(new QPlainTextEdit, "txtDefaultEmailMessage");
  txtDefaultEmailMessage->setTabChangesFocus(true);
  txtDefaultEmailMessage->setMinimumHeight(96);
  txtAdobePath = Box("txtAdobePath", "adobePath", 255);
  txtCCEmailAddress = Box("txtCCEmailAddress", "ccEmailAddress", 255);
  chkCalculateClientAmtsOwingOnPrint =
      Choice<QCheckBox>("chkCalculateClientAmtsOwingOnPrint",
                        tr("Calculate what clients &owe before documents are printed"));
  chkShowDBSelection =
      Choice<QCheckBox>("chkShowDBSelection", tr("Show data&base selection during start up"));
  chkUseButtonsInDiary = Choice<QCheckBox>("chkUseButtonsInDiary", tr("Use buttons &in Diary"));
  cboNameOrder = Named(new QComboBox, "cboNameOrder");
  FillComboWithWords(cboNameOrder,
                     {tr("First name, then surname"), tr("Surname, then first name")});
  optMAPI = Choice<QRadioButton>("optMAPI", tr("Bravanti Email Ser&ver"));
  optVBSendMail = Choice<QRadioButton>("optVBSendMail", tr("Local Mail &Client"));
  txtSMTPHost = Box("txtSMTPHost", "smtpHost");
  txtSMTPUserName = Box("txtSMTPUserName", "smtpUserName");
  txtSMTPPassword = Box("txtSMTPPassword", "smtpPassword");
  txtSMTPPassword->setEchoMode(QLineEdit::Password);
  cboSMTPSecurity = Named(new QComboBox, "cboSMTPSecurity");
  for (const auto& [words, code] :
       {std::pair{tr("As is usual on its port"), ""}, std::pair{tr("STARTTLS"), "starttls"},
        std::pair{tr("TLS"), "tls"}, std::pair{tr("None: others can read it"), "none"}})
    cboSMTPSecurity->addItem(words, QString::fromLatin1(code));
  optMSWordCompatible = Choice<QRadioButton>("optMSWordCompatible", tr("For a &word processor"));
  optPDF = Choice<QRadioButton>("optPDF", tr("As PD&F"));
  optClean = Choice<QRadioButton>("optClean", tr("Clea&n"));
  optClassic = Choice<QRadioButton>("optClassic", tr("Classi&c"));
  cmdCancel = MakeButton("cmdCancel", tr("Cancel"));
  cmdCloseAndSave = MakeButton("cmdCloseAndSave", tr("&Save and close"), ButtonKind::Main);
  // Radio buttons of one page would otherwise all exclude one another.
  for (const QList<QAbstractButton*>& either : {QList<QAbstractButton*>{optAccrual, optCash},
                                                {optMAPI, optVBSendMail},
                                                {optMSWordCompatible, optPDF},
                                                {optClean, optClassic}}) {
    auto* group = new QButtonGroup(this);
    for (QAbstractButton* button : either) group->addButton(button);
  }
}

void frmMiscellaneousSettings::LayOut() {
  auto* pages = new PageTabs("pages", tr("Kinds of settings"));
  pages->AddPage(BusinessPage(), tr("Business"));
  pages->AddPage(PrintingPage(), tr("Printing and screens"));
  pages->AddPage(MailPage(), tr("Mail"));
  pages->AddPage(TechnicalPage(), tr("Technical"));
  auto* column = new QVBoxLayout;
  column->addWidget(pages);
  SetContent(column);
  SetRoom({680, 480});
  AddActions({cmdCancel, cmdCloseAndSave});
}

QWidget* frmMiscellaneousSettings::BusinessPage() {
  const QString tax = business_.values.taxName;
  return PageOf(
      {InLine({{LabelOver(txtGSTPercentage, tr("%1 &percentage").arg(tax)), 1},
               {LabelOver(txtAutoScheduleDays, tr("&Days that the schedule reaches ahead")), 1}}),
       Under(tr("Accounting method"), {optCash, optAccrual}),
       InLine({{LabelOver(txtInvoiceNumber, tr("Last invoice &number")), 1},
               {LabelOver(dtScheduleEnd, tr("Sch&edule filled to")), 1}})});
}

QWidget* frmMiscellaneousSettings::PrintingPage() {
  return PageOf(
      {Under(tr("Invoices, statements and reminders are made"), {optMSWordCompatible, optPDF}),
       Under(tr("Design of PDF files"), {optClean, optClassic}),
       Under(tr("When printing"), {chkCalculateClientAmtsOwingOnPrint}),
       InLine({{LabelOver(txtAdobePath, tr("P&rogram that shows PDF files")), 1}}),
       Under(tr("Screens"), {chkUseButtonsInDiary, chkShowDBSelection}),
       InLine({{LabelOver(cboNameOrder, tr("Bi&lling names are made of")), 1}})});
}

QWidget* frmMiscellaneousSettings::MailPage() {
  fraVBSendMail = Named(new QWidget, "fraVBSendMail");
  auto* smtp = new QVBoxLayout(fraVBSendMail);
  smtp->setContentsMargins(0, 0, 0, 0);
  smtp->addLayout(InLine({{LabelOver(txtSMTPHost, tr("SMTP &host")), 2},
                          {LabelOver(txtSMTPUserName, tr("&User name")), 1},
                          {LabelOver(txtSMTPPassword, tr("&Password")), 1}}));
  smtp->addLayout(LabelOver(cboSMTPSecurity, tr("Securit&y of the line to the host")));
  auto* frame = new QVBoxLayout;
  frame->addWidget(fraVBSendMail);
  auto* address = InLine({{LabelOver(txtCCEmailAddress, tr("&BCC Email Address")), 1}});
  auto* about = new QVBoxLayout;
  about->addWidget(MakeLabel("lblCCEmailAddress",
                             tr("A copy goes there of what the Bravanti Email Server sends."),
                             LabelRole::Hint));
  return PageOf({Under(tr("Documents are sent by"), {optMAPI, optVBSendMail}), frame, address,
                 about, LabelOver(txtDefaultEmailMessage, tr("&Message that mails begin with"))});
}

QWidget* frmMiscellaneousSettings::TechnicalPage() {
  return PageOf({Under(tr("Head office"), {chkEnableOstrel4WebServices, chkEnableLogging,
                                           chkCompactDatabaseBeforeUpload}),
                 InLine({{LabelOver(txtDBVersion, tr("&Version of the database")), 1}})});
}

void frmMiscellaneousSettings::Load() {
  const MiscellaneousSettings settings = LoadMiscellaneousSettings(business_);
  txtGSTPercentage->setText(settings.taxPercent);
  txtAutoScheduleDays->setText(settings.daysToAdvanceSchedule);
  (settings.accrual ? optAccrual : optCash)->setChecked(true);
  txtInvoiceNumber->setText(settings.invoiceNumber);
  txtDBVersion->setText(settings.databaseVersion);
  dtScheduleEnd->SetDate(settings.scheduleEnd);
  chkEnableLogging->setChecked(settings.enableLogging);
  chkEnableOstrel4WebServices->setChecked(settings.enableOstrel4WebServices);
  chkCompactDatabaseBeforeUpload->setChecked(settings.compactDatabaseBeforeUpload);
  txtDefaultEmailMessage->setPlainText(settings.defaultEmailMessage);
  txtAdobePath->setText(settings.adobePath);
  txtCCEmailAddress->setText(settings.ccEmailAddress);
  chkCalculateClientAmtsOwingOnPrint->setChecked(settings.recalculateClientAmtsOwingOnPrint);
  chkShowDBSelection->setChecked(settings.showDatabaseSelection);
  chkUseButtonsInDiary->setChecked(settings.useButtonsInDiary);
  cboNameOrder->setCurrentIndex(static_cast<int>(settings.nameOrder));
  (settings.mailRoute == MailRoute::LocalMailClient ? optVBSendMail : optMAPI)->setChecked(true);
  txtSMTPHost->setText(settings.smtpHost);
  txtSMTPUserName->setText(settings.smtpUserName);
  txtSMTPPassword->setText(settings.smtpPassword);
  cboSMTPSecurity->setCurrentIndex(std::max(0, cboSMTPSecurity->findData(settings.smtpSecurity)));
  (settings.printingFormat == PrintingFormat::Pdf ? optPDF : optMSWordCompatible)->setChecked(true);
  (settings.documentDesign == DocumentDesign::Clean ? optClean : optClassic)->setChecked(true);
  EnableSmtp();
}

void frmMiscellaneousSettings::EnableSmtp() {
  fraVBSendMail->setEnabled(optVBSendMail->isChecked());
}

void frmMiscellaneousSettings::CheckDays() {
  // A field that was only passed through is left alone; otherwise the message would come twice, for
  // leaving it and for the window that it opens.
  if (!state_.IsChanged(txtAutoScheduleDays) || QApplication::activeModalWidget() != this) return;
  if (const auto refusal = CheckDaysToAdvance(txtAutoScheduleDays->text())) IsAccepted(refusal);
}

MiscellaneousSettings frmMiscellaneousSettings::Form() const {
  MiscellaneousSettings settings;
  settings.taxPercent = txtGSTPercentage->text();
  settings.daysToAdvanceSchedule = txtAutoScheduleDays->text();
  settings.accrual = optAccrual->isChecked();
  settings.invoiceNumber = txtInvoiceNumber->text();
  settings.databaseVersion = txtDBVersion->text();
  settings.scheduleEnd = dtScheduleEnd->Date();
  settings.enableLogging = chkEnableLogging->isChecked();
  settings.enableOstrel4WebServices = chkEnableOstrel4WebServices->isChecked();
  settings.compactDatabaseBeforeUpload = chkCompactDatabaseBeforeUpload->isChecked();
  settings.defaultEmailMessage = txtDefaultEmailMessage->toPlainText();
  settings.adobePath = txtAdobePath->text();
  settings.ccEmailAddress = txtCCEmailAddress->text();
  settings.recalculateClientAmtsOwingOnPrint = chkCalculateClientAmtsOwingOnPrint->isChecked();
  settings.showDatabaseSelection = chkShowDBSelection->isChecked();
  settings.useButtonsInDiary = chkUseButtonsInDiary->isChecked();
  settings.nameOrder = static_cast<NameOrder>(cboNameOrder->currentIndex());
  settings.mailRoute =
      optVBSendMail->isChecked() ? MailRoute::LocalMailClient : MailRoute::HeadOffice;
  settings.smtpHost = txtSMTPHost->text();
  settings.smtpUserName = txtSMTPUserName->text();
  settings.smtpPassword = txtSMTPPassword->text();
  settings.smtpSecurity = cboSMTPSecurity->currentData().toString();
  settings.printingFormat =
      optPDF->isChecked() ? PrintingFormat::Pdf : PrintingFormat::WordProcessor;
  settings.documentDesign = optClean->isChecked() ? DocumentDesign::Clean : DocumentDesign::Classic;
  return settings;
}

void frmMiscellaneousSettings::Save() {
  const MiscellaneousSettings settings = Form();
  if (!IsAccepted(CheckMiscellaneousSettings(settings))) return;
  const QStringList notStored = SaveMiscellaneousSettings(business_, settings, logFile_);
  if (!notStored.isEmpty())
    business_.World().prompter.Tell(Tone::Information,
                                    tr("%1 holds an apostrophe and was not stored; it stays as it "
                                       "was. Everything else is saved.")
                                        .arg(notStored.join(tr(" and "))));
  Close(Accepted);
}

}  // namespace quillary::setup
