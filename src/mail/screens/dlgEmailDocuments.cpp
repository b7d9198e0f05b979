#include "mail/screens/dlgEmailDocuments.h"

#include "base/Text.h"
#include "kit/Layouts.h"
#include "mail/ClientAddresses.h"
#include "mail/DocumentMails.h"
#include "mail/Sending.h"
#include "mail/screens/frmEmailList.h"
#include "session/ProgramFolder.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>

namespace quillary::mail {

dlgEmailDocuments::dlgEmailDocuments(Business& business, const EmailDocuments& asked)
    : Dialog("dlgEmailDocuments", tr("Email documents to clients"), business.World().prompter),
      business_(business),
      asked_(asked) {
  MakeControls();
  LayOut();
  connect(cmdCancel, &QPushButton::clicked, this, [this] { Close(Rejected); });
  connect(cmdSend, &QPushButton::clicked, this, [this] {
    try {
      Queue();
    } catch (const std::exception& error) {
      business_.World().errors.Report(objectName(), QStringLiteral("cmdSend_Click"), error);
    }
    prgRun->hide();
    setEnabled(true);
  });
}

void dlgEmailDocuments::MakeControls() {
  const auto option = [](const char* name, const QString& caption) {
    return Named(new QRadioButton(caption), name, PlainCaption(caption));
  };
  optInvoices = option("optInvoices", tr("&Invoices"));
  optStatements = option("optStatements", tr("S&tatements"));
  optReminders = option("optReminders", tr("&Reminders"));
  optInvoices->setChecked(true);
  cmbRoute = Named(new QComboBox, "cmbRoute");
  FillWithRoutes(cmbRoute, {Route::HeadOffice, Route::Smtp}, RouteOfRuns(business_));
  txtMessage = Named(new QPlainTextEdit, "txtMessage");
  txtMessage->setTabChangesFocus(true);
  txtMessage->setMinimumHeight(104);
  txtMessage->setPlainText(DefaultText(business_));
  lblFacts = MakeParagraph("lblFacts", Facts());
  prgRun = Named(new QProgressBar, "prgRun", tr("Documents written"));
  prgRun->setFormat(tr("%v of %m"));
  prgRun->hide();
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  cmdSend = MakeButton("cmdSend", tr("&Send"), ButtonKind::Main);
  cmdSend->setEnabled(!asked_.invoices.empty());
}

QString dlgEmailDocuments::Facts() const {
  const auto clients = ClientsOfInvoices(business_, asked_.invoices);
  size_t without = 0;
  for (const Id<Client> client : clients) {
    const auto known = mail::LoadClientEmail(business_, {client});
    if (std::ranges::find(known, client, &ClientAddress::client) == known.end()) ++without;
  }
  if (clients.empty()) return tr("No invoice is ticked.");
  QString facts =
      tr("%1 of %2.")
          .arg(Counted(asked_.invoices.size(), "invoice"), Counted(clients.size(), "client"));
  if (without > 0)
    facts += tr(" %1 no email address and will get nothing.")
                 .arg(Counted(without, "client has", "clients have"));
  return facts;
}

void dlgEmailDocuments::LayOut() {
  auto* which = new QHBoxLayout;
  which->setSpacing(16);
  for (QRadioButton* option : {optInvoices, optStatements, optReminders}) which->addWidget(option);
  which->addStretch(1);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addWidget(lblFacts);
  column->addLayout(which);
  column->addLayout(LabelOver(cmbRoute, tr("Send &by")));
  column->addLayout(LabelOver(txtMessage, tr("Te&xt")));
  column->addWidget(prgRun);
  SetContent(column);
  SetRoom({520, 0});
  AddActions({cmdCancel, cmdSend});
}

Contents dlgEmailDocuments::Chosen() const {
  return optStatements->isChecked()  ? Contents::Statement
         : optReminders->isChecked() ? Contents::Reminder
                                     : Contents::Invoice;
}

void dlgEmailDocuments::Queue() {
  setEnabled(false);
  DocumentRun run;
  run.contents = Chosen();
  run.invoices = asked_.invoices;
  run.route = ChosenIn(cmbRoute);
  run.days = {asked_.days.from, asked_.days.to};
  run.mode = asked_.priceIncludesGST ? documents::TaxMode::Included : documents::TaxMode::Excluded;
  run.text = txtMessage->toPlainText();
  const documents::ReportPlaces places = documents::ReportPlacesUnder(session::ProgramFolder());
  const documents::BillingPlaces billing{
      .report = places, .fonts = std::make_shared<const documents::PageFonts>(places.fontFolder)};
  QueuedDocuments queued;
  {
    const BusyWhile busy(business_.World().busy);
    Outbox outbox(business_);
    queued = QueueDocuments(business_, outbox, billing, run, [this](int done, int total) {
      prgRun->setRange(0, total);
      prgRun->setValue(done);
      prgRun->show();
      QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    });
  }
  if (queued.known > 0 || !queued.withoutAddress.isEmpty())
    business_.World().prompter.Tell(Tone::Information, queued.InWords());
  Close(Accepted);
}

}  // namespace quillary::mail
