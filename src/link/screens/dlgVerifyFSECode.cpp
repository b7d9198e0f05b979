#include "link/screens/dlgVerifyFSECode.h"

#include "kit/Keys.h"
#include "kit/Layouts.h"
#include "kit/Roles.h"

#include <QApplication>

namespace quillary::link {

dlgVerifyFSECode::dlgVerifyFSECode(Business& business, const ScreenTools& tools,
                                   const HeadOfficeAccount& account)
    : Dialog("dlgVerifyFSECode", QStringLiteral("Log into Ostrel 4"), business.World().prompter),
      business_(business),
      account_(account) {
  lblError = MakeParagraph("lblError", {}, LabelRole::Plain);
  txtUserName = ForField("userName", Named(new QLineEdit(account.userName), "txtUserName"));
  txtPassword = ForField("password", Named(new QLineEdit, "txtPassword"));
  txtPassword->setEchoMode(QLineEdit::Password);
  SelectAllText(txtUserName);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addWidget(lblError);
  column->addLayout(LabelOver(txtUserName, tr("&User name")));
  column->addLayout(LabelOver(txtPassword, tr("&Password")));
  column->addStretch(1);
  SetContent(column);
  SetRoom({440, 250});
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  cmdLogIn = MakeButton("cmdLogIn", tr("&Log in"), ButtonKind::Main);
  AddActions({cmdCancel, cmdLogIn});
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  tools.runner.OnClick(cmdLogIn, objectName(), [this] { LogIn(); });
  Say(QStringLiteral("Please enter your user name and password for Bravanti Online, and click 'Log "
                     "in'."),
      Look::Plain);
}

void dlgVerifyFSECode::showEvent(QShowEvent* event) {
  Dialog::showEvent(event);
  txtPassword->setFocus();
}

std::unique_ptr<Wexor> dlgVerifyFSECode::TakeSession() {
  return result() == Accepted ? std::move(session_) : nullptr;
}

void dlgVerifyFSECode::Say(const QString& text, Look look) {
  lblError->setText(text);
  QPalette colours = palette();
  if (look != Look::Plain)
    colours.setColor(QPalette::WindowText,
                     look == Look::Failed ? RolesOf(palette()).danger : RolesOf(palette()).accent);
  lblError->setPalette(colours);
}

void dlgVerifyFSECode::EnableCommands(bool on) {
  cmdLogIn->setEnabled(on);
  cmdCancel->setEnabled(on);
}

void dlgVerifyFSECode::LogIn() {
  const auto refuse = [this](const char* words, const char* field) {
    IsAccepted(Refusal{QString::fromLatin1(words), QString::fromLatin1(field)});
  };
  const QString user = txtUserName->text().trimmed();
  if (user.isEmpty()) return refuse("Please enter your user name.", "userName");
  if (txtPassword->text().isEmpty()) return refuse("Please enter your password.", "password");
  Say(QStringLiteral("Logging in..."), Look::Working);
  EnableCommands(false);
  repaint();
  session_ = std::make_unique<Wexor>(business_.World().clock, account_.authorities);
  session_->Log(QStringLiteral("Logging in ") + user);
  session_->Login(user, txtPassword->text(), account_.url, ServerDatabase(), ServerData());
  EnableCommands(true);
  if (session_->IsLoggedOn()) {
    Close(Accepted);
    return;
  }
  const QString why = session_->LastError();
  session_.reset();
  if (why.contains(u"The connection pool has been exhausted"))
    business_.World().prompter.Tell(
        Tone::Exclamation,
        QStringLiteral("Ostrel4net server is currently busy, please try again in 5 minutes"));
  Say(why, Look::Failed);
  txtPassword->setFocus();
  txtPassword->selectAll();
}

}  // namespace quillary::link
