#include "mail/screens/frmEmailingServices.h"

#include "base/Text.h"
#include "kit/FlowLayout.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "mail/Sending.h"
#include "mail/SentDocuments.h"
#include "mail/screens/SendingBox.h"

#include <QCheckBox>

namespace quillary::mail {

frmEmailingServices::frmEmailingServices(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmEmailingServices"), tr("Outbox")),
      business_(business),
      tools_(tools) {
  MakeControls();
  LayOut();
  ConnectControls();
  setFocusProxy(grdOutbox);
}

void frmEmailingServices::MakeControls() {
  txtFilter = MakeFilterBox(this);
  txtFilter->setFixedWidth(240);
  chkShowSent = Named(new QCheckBox(tr("S&how what was sent too")), "chkShowSent",
                      tr("Show what was sent too"));
  grdOutbox = new Grid(QStringLiteral("grdOutbox"));
  grdOutbox->setAccessibleName(tr("Mails"));
  grdOutbox->SetColumns({{{}, ColumnKind::HiddenId},
                         {tr("State"), ColumnKind::Chip, 96},
                         {tr("Client"), ColumnKind::StrongText, 168},
                         {tr("To"), ColumnKind::Text, 192},
                         {tr("Subject"), ColumnKind::Text, 112},
                         {tr("Document"), ColumnKind::Text, 216},
                         {tr("By"), ColumnKind::Text, 112},
                         {tr("Since"), ColumnKind::Text, 136},
                         {tr("Attempts"), ColumnKind::Number, 80}});
  grdOutbox->SetEmptyText(tr("The outbox is empty."),
                          tr("Tick invoices in their list and email them, or email a preview."));
  grdOutbox->FilterBy(txtFilter);
  grdOutbox->RememberIn(business_.World().settings);
  grdOutbox->setMinimumHeight(120);
  lblCount = MakeLabel("lblCount", {}, LabelRole::Muted);
  lblReason = MakeParagraph("lblReason", {});
  cmdRemove = MakeButton("cmdRemove", tr("Re&move"), ButtonKind::Danger);
  cmdOpenDocument = MakeButton("cmdOpenDocument", tr("&Open document"));
  cmdArrived = MakeButton("cmdArrived", tr("It &arrived"));
  cmdArrived->setToolTip(tr("The receiver has this mail, so it is not sent again"));
  cmdSendAgain = MakeButton("cmdSendAgain", tr("Send a&gain"));
  cmdSendAgain->setToolTip(tr("The receiver does not have this mail, so it waits to be sent"));
  cmdRetry = MakeButton("cmdRetry", tr("&Retry what failed"), ButtonKind::Plain, "view-refresh");
  cmdClose = MakeButton("cmdClose", tr("Cl&ose"));
  cmdSendNow = MakeButton("cmdSendNow", tr("Send &now"), ButtonKind::Main);
}

void frmEmailingServices::LayOut() {
  auto* over = new FlowLayout(16);
  over->AddWidgets({chkShowSent, lblCount});
  over->AddWidgets({txtFilter}, Qt::AlignRight);
  auto* commands = new FlowLayout;
  commands->AddWidgets({cmdRemove, cmdOpenDocument});
  commands->AddWidgets({cmdArrived, cmdSendAgain, cmdRetry, cmdClose, cmdSendNow}, Qt::AlignRight);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(12);
  column->addLayout(over);
  column->addWidget(grdOutbox, 1);
  column->addWidget(lblReason);
  column->addLayout(commands);
}

void frmEmailingServices::ConnectControls() {
  const auto on = [this](QPushButton* button, std::function<void()> command) {
    tools_.runner.OnClick(button, objectName(), std::move(command));
  };
  on(cmdSendNow, [this] { SendAll(business_); });
  on(cmdRetry, [this] {
    {
      Outbox outbox(business_);
      for (const StoredMail& mail : outbox.In(State::Failed)) outbox.Retry(mail.number);
    }
    SendAll(business_);
  });
  on(cmdArrived, [this] {
    Change([](Outbox& outbox, const StoredMail& mail) { outbox.SettleAsSent(mail.number); });
  });
  on(cmdSendAgain, [this] {
    if (business_.World().prompter.AskBeforeLosing(
            tr("This mail may have arrived already. Are you sure that the receiver does not have "
               "it, and that it is to be sent once more?")) != Answer::Yes)
      return;
    Change([](Outbox& outbox, const StoredMail& mail) { outbox.SettleAsUnsent(mail.number); });
  });
  on(cmdRemove, [this] { RemoveSelected(); });
  on(cmdOpenDocument, [this] {
    if (const StoredMail* mail = Selected()) OpenDocument(business_, mail->document);
  });
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  connect(chkShowSent, &QCheckBox::toggled, this, &frmEmailingServices::Reload);
  connect(grdOutbox, &Grid::selectedRowChanged, this, &frmEmailingServices::EnableCommands);
  connect(grdOutbox, &Grid::rowOpened, this, [this] {
    if (cmdOpenDocument->isEnabled()) cmdOpenDocument->click();
  });
}

void frmEmailingServices::Reload() {
  tools_.runner.RunAside(objectName(), QStringLiteral("Reload"), [this] {
    const auto row = grdOutbox->SelectedRow();
    const qint64 kept = row ? grdOutbox->Key(*row) : 0;
    mails_ = LoadSent(business_, std::nullopt);
    size_t open = 0;
    for (const StoredMail& mail : mails_)
      if (mail.IsOpen()) ++open;
    lblCount->setText(tr("%1 not sent, %2 sent").arg(open).arg(mails_.size() - open));
    if (!chkShowSent->isChecked())
      std::erase_if(mails_, [](const StoredMail& mail) { return !mail.IsOpen(); });
    std::vector<GridRow> rows;
    for (const StoredMail& mail : mails_) {
      const DateTime since = mail.ended.IsValid() ? mail.ended : mail.queued;
      rows.push_back({.cells = {mail.number, WordOf(mail.state), mail.toName, mail.to, mail.subject,
                                FileNameOfPath(mail.document), WordOf(mail.route),
                                ToIsoText(since).chopped(3), static_cast<qint64>(mail.attempts)},
                      .hue = HueOf(mail.state),
                      .note = mail.reason});
    }
    grdOutbox->SetRows(std::move(rows));
    if (!grdOutbox->SelectKey(kept)) grdOutbox->SelectFirst();
    EnableCommands();
  });
}

const StoredMail* frmEmailingServices::Selected() const {
  const auto row = grdOutbox->SelectedRow();
  return row ? &mails_[static_cast<size_t>(*row)] : nullptr;
}

void frmEmailingServices::EnableCommands() {
  const StoredMail* mail = Selected();
  const auto any = [this](State state) {
    return std::ranges::find(mails_, state, &StoredMail::state) != mails_.end();
  };
  lblReason->setText(mail ? mail->reason : QString());
  lblReason->setVisible(mail && !mail->reason.isEmpty());
  cmdRemove->setEnabled(mail && mail->IsOpen());
  cmdOpenDocument->setEnabled(mail && !mail->document.isEmpty());
  for (QPushButton* button : {cmdArrived, cmdSendAgain})
    button->setEnabled(mail && mail->state == State::InDoubt);
  cmdRetry->setEnabled(any(State::Failed));
  cmdSendNow->setEnabled(any(State::Waiting));
}

void frmEmailingServices::Change(const std::function<void(Outbox&, const StoredMail&)>& how) {
  const StoredMail* selected = Selected();
  if (!selected) return;
  const StoredMail mail = *selected;  // the list is loaded anew when the outbox closes
  Outbox outbox(business_);
  how(outbox, mail);
}

void frmEmailingServices::RemoveSelected() {
  const StoredMail* mail = Selected();
  if (!mail ||
      business_.World().prompter.AskBeforeLosing(
          tr("The mail to %1 will not be sent. Do you want to remove it with its document?")
              .arg(mail->to)) != Answer::Yes)
    return;
  Change([](Outbox& outbox, const StoredMail& one) { outbox.Remove(one.number); });
}

void frmEmailingServices::SendAll(Business& business) {
  RunResult result;
  {
    Outbox outbox(business);
    SendingBox box;
    for (const Route route : {Route::HeadOffice, Route::Smtp, Route::LocalMailClient}) {
      const auto waiting = outbox.In(State::Waiting);
      if (std::ranges::find(waiting, route, &StoredMail::route) == waiting.end()) continue;
      const auto courier = MakeCourier(business, route, [&box] { return box.Breathe(); });
      const RunResult one = SendWaiting(business, outbox, *courier, [&box](int done, int total) {
        return box.Show(done, total);
      });
      result.sent += one.sent;
      result.failed += one.failed;
      result.inDoubt += one.inDoubt;
      result.left += one.left;
      if (!one.stopped.isEmpty()) result.stopped = one.stopped;
      if (box.IsPaused()) break;
    }
  }
  const bool allWell = result.failed + result.inDoubt + result.left == 0;
  business.World().prompter.Tell(allWell ? Tone::Information : Tone::Exclamation, result.InWords());
}

}  // namespace quillary::mail
