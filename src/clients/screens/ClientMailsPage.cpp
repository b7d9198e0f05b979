#include "clients/screens/ClientMailsPage.h"

#include "base/Text.h"
#include "base/ports/requests/Mail.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"

namespace quillary::clients {

ClientMailsPage::ClientMailsPage(ClientDesk& desk) : desk_(desk) {
  txtMailFilter = MakeFilterBox(this, "txtMailFilter");
  txtMailFilter->setFixedWidth(240);
  grdMails = new Grid(QStringLiteral("grdMails"));
  grdMails->setAccessibleName(tr("Mails to this client"));
  grdMails->SetColumns({{{}, ColumnKind::HiddenId},
                        {tr("State"), ColumnKind::Chip, 96},
                        {tr("When"), ColumnKind::Text, 144},
                        {tr("Subject"), ColumnKind::StrongText, 120},
                        {tr("Document"), ColumnKind::Text, 240},
                        {tr("To"), ColumnKind::Text, 192},
                        {tr("By"), ColumnKind::Text, 120}});
  grdMails->SetEmptyText(tr("Nothing was mailed to this client."),
                         tr("Email one of its invoices, and it is listed here."));
  grdMails->RememberIn(desk.business.World().settings);
  grdMails->FilterBy(txtMailFilter);
  grdMails->setMinimumHeight(140);
  cmdResendMail = MakeButton("cmdResendMail", tr("Send a&gain..."), ButtonKind::Plain, "mail-send");
  cmdOpenMailed = MakeButton("cmdOpenMailed", tr("&Open document"), ButtonKind::Main);
  auto* commands = new QHBoxLayout;
  commands->setSpacing(8);
  commands->addStretch(1);
  commands->addWidget(cmdResendMail);
  commands->addWidget(cmdOpenMailed);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 12, 0, 8);
  column->setSpacing(12);
  column->addWidget(txtMailFilter);
  column->addWidget(grdMails, 1);
  column->addLayout(commands);
  desk_.OnClick(cmdOpenMailed, [this] { OpenDocument(); });
  desk_.OnClick(cmdResendMail, [this] { SendAgain(); });
  connect(grdMails, &Grid::rowOpened, cmdOpenMailed, &QPushButton::click);
  connect(grdMails, &Grid::selectedRowChanged, this, [this] {
    const MailToClient* mail = Selected();
    for (QPushButton* button : {cmdOpenMailed, cmdResendMail})
      button->setEnabled(mail && !mail->document.isEmpty());
  });
  for (QPushButton* button : {cmdOpenMailed, cmdResendMail}) button->setEnabled(false);
}

ClientMailsPage::~ClientMailsPage() = default;

size_t ClientMailsPage::LoadMails() {
  const auto client = desk_.edit.client.clientId;
  const Navigator& navigator = desk_.tools.navigator;
  mails_ = client && navigator.CanOpen<ListMailsTo>() ? navigator.Open(ListMailsTo{*client})
                                                      : std::vector<MailToClient>();
  std::vector<GridRow> rows;
  for (const MailToClient& mail : mails_)
    rows.push_back({.cells = {mail.number, mail.state, ToIsoText(mail.when).chopped(3),
                              mail.subject, FileNameOfPath(mail.document), mail.to, mail.route},
                    .hue = static_cast<Hue>(mail.hue)});
  grdMails->SetRows(std::move(rows));
  grdMails->SelectFirst();
  return mails_.size();
}

const MailToClient* ClientMailsPage::Selected() const {
  const auto row = grdMails->SelectedRow();
  return row ? &mails_[static_cast<size_t>(*row)] : nullptr;
}

void ClientMailsPage::OpenDocument() {
  if (const MailToClient* mail = Selected())
    desk_.tools.navigator.Open(OpenMailedDocument{mail->document});
}

void ClientMailsPage::SendAgain() {
  const MailToClient* mail = Selected();
  const auto client = desk_.edit.client.clientId;
  if (!mail || !client) return;
  if (desk_.tools.navigator.Open(EmailFile{mail->subject, mail->document, {*client}}))
    desk_.Prompt().Tell(Tone::Information, tr("The document was sent again."));
}

}  // namespace quillary::clients
