#include "mail/screens/dlgSentDocuments.h"

#include "base/Text.h"
#include "base/ports/requests/Mail.h"
#include "documents/reports/ReportFiles.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "session/ProgramFolder.h"

namespace quillary::mail {

dlgSentDocuments::dlgSentDocuments(Business& business, const ScreenTools& tools)
    : Dialog("dlgSentDocuments", QStringLiteral("Sent Documents in Report Doc Folder"),
             business.World().prompter),
      business_(business),
      tools_(tools) {
  MakeControls();
  LayOut();
  ShowClientsReport();
  connect(btnClose, &QPushButton::clicked, this, [this] { Close(Rejected); });
  connect(ListView1, &Grid::rowOpened, cmdOpen, &QPushButton::click);
  tools_.runner.OnClick(cmdOpen, objectName(), [this] { OpenSelected(); });
  tools_.runner.OnClick(cmdSendAgain, objectName(), [this] { SendAgain(); });
}

void dlgSentDocuments::MakeControls() {
  txtFilter = MakeFilterBox(this);
  ListView1 = new Grid(QStringLiteral("ListView1"));
  ListView1->setAccessibleName(tr("Documents"));
  ListView1->SetColumns({{{}, ColumnKind::HiddenId},
                         {tr("Document"), ColumnKind::StrongText, 296},
                         {tr("Date"), ColumnKind::Text, 152},
                         {tr("State"), ColumnKind::Chip, 88},
                         {tr("To"), ColumnKind::Text, 176},
                         {tr("By"), ColumnKind::Text, 128},
                         {QStringLiteral("DateHidden"), ColumnKind::HiddenId}});
  ListView1->SetEmptyText(tr("No document has been made yet."),
                          tr("Print or email an invoice, and it is kept here."));
  ListView1->FilterBy(txtFilter);
  ListView1->RememberIn(business_.World().settings);
  ListView1->setMinimumHeight(240);
  cmdSendAgain = MakeButton("cmdSendAgain", tr("&Send again..."), ButtonKind::Plain, "mail-send");
  btnClose = MakeButton("btnClose", tr("&Close"));
  cmdOpen = MakeButton("cmdOpen", tr("&Open"), ButtonKind::Main);
}

void dlgSentDocuments::LayOut() {
  auto* over = new QHBoxLayout;
  over->addWidget(
      MakeLabel("lblHint", QStringLiteral("Double click on document to open"), LabelRole::Hint), 1);
  txtFilter->setFixedWidth(240);
  over->addWidget(txtFilter);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(over);
  column->addWidget(ListView1, 1);
  SetContent(column);
  SetRoom({920, 520});
  AddActions({cmdSendAgain, btnClose, cmdOpen});
}

void dlgSentDocuments::ShowClientsReport() {
  documents_ =
      mail::ShowClientsReport(business_, documents::ReportFolder(session::ProgramFolder()));
  std::vector<GridRow> rows;
  for (size_t at = 0; at < documents_.size(); ++at) {
    const SentDocument& document = documents_[at];
    const auto& mail = document.mail;
    rows.push_back({.cells = {static_cast<qint64>(at), FileNameOfPath(document.file),
                              ToIsoText(document.date).chopped(3),
                              mail ? WordOf(mail->state) : QString(), mail ? mail->to : QString(),
                              mail ? WordOf(mail->route) : QString(), document.DateHidden()},
                    .hue = mail ? HueOf(mail->state) : Hue::None,
                    .note = mail ? mail->reason : QString()});
  }
  ListView1->SetRows(std::move(rows));
  ListView1->SelectFirst();
  for (QPushButton* button : {cmdOpen, cmdSendAgain}) button->setEnabled(!documents_.empty());
}

const SentDocument* dlgSentDocuments::Selected() const {
  const auto row = ListView1->SelectedRow();
  return row ? &documents_[static_cast<size_t>(ListView1->Key(*row))] : nullptr;
}

void dlgSentDocuments::OpenSelected() {
  if (const SentDocument* document = Selected()) OpenDocument(business_, document->file);
}

void dlgSentDocuments::SendAgain() {
  const SentDocument* document = Selected();
  if (!document) return;
  EmailFile again{FileNameWithoutExtension(FileNameOfPath(document->file)), document->file};
  if (document->mail) {
    again.subject = document->mail->subject;
    if (document->mail->client) again.clients = {*document->mail->client};
  }
  if (tools_.navigator.Open(again))
    business_.World().prompter.Tell(Tone::Information, tr("The document was sent again."));
  ShowClientsReport();
}

}  // namespace quillary::mail
