#include "link/screens/frmCopyFromOstrel.h"

#include "kit/Keys.h"
#include "kit/Layouts.h"
#include "link/CopyFromHeadOffice.h"

#include <QCheckBox>
#include <QLineEdit>

namespace quillary::link {

frmCopyFromOstrel::frmCopyFromOstrel(Business& business, const ScreenTools& tools,
                                     const HeadOfficeAccount& account, const QString& archive)
    : Dialog("frmCopyFromOstrel", QStringLiteral("Download data from Bravanti's Online..."),
             business.World().prompter),
      business_(business),
      account_(account),
      archive_(archive) {
  txtFSE_ID = ForField("userName", Named(new QLineEdit, "txtFSE_ID"));
  txtPassword = ForField("password", Named(new QLineEdit, "txtPassword"));
  txtPassword->setEchoMode(QLineEdit::Password);
  SelectAllText(txtFSE_ID);
  SelectAllText(txtPassword);
  chkDownloadFSEDetails =
      Named(new QCheckBox(tr("Download &your own details...")), "chkDownloadFSEDetails");
  chkDownloadServices = Named(new QCheckBox(tr("Download &Services...")), "chkDownloadServices");
  chkDownloadClients = Named(new QCheckBox(tr("Download c&lients...")), "chkDownloadClients");
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(LabelOver(txtFSE_ID, tr("&Username")));
  column->addLayout(LabelOver(txtPassword, tr("&Password")));
  column->addWidget(chkDownloadFSEDetails);
  column->addWidget(chkDownloadServices);
  column->addWidget(chkDownloadClients);
  column->addWidget(MakeParagraph(
      "lblAbout",
      tr("What is ticked is replaced by what head office holds. You see how much it is before "
         "anything changes, and a checked copy of your business is kept first."),
      LabelRole::Hint));
  column->addStretch(1);
  SetContent(column);
  SetRoom({520, 340});
  cmdClose = MakeButton("cmdClose", tr("&Close"));
  cmdGenerate =
      MakeButton("cmdGenerate", tr("&Download"), ButtonKind::Main, QStringLiteral("download"));
  AddActions({cmdClose, cmdGenerate});
  connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
  tools.runner.OnClick(cmdGenerate, objectName(), [this] { Generate(); });
}

void frmCopyFromOstrel::Generate() {
  const CopyChoice choice{.userName = txtFSE_ID->text().trimmed(),
                          .password = txtPassword->text(),
                          .services = chkDownloadServices->isChecked(),
                          .clients = chkDownloadClients->isChecked(),
                          .details = chkDownloadFSEDetails->isChecked()};
  if (!IsAccepted(CheckCopyChoice(choice))) return;
  const BusyWhile busy(business_.World().busy);
  if (CopyFromHeadOffice(business_, account_, choice, archive_)) cmdClose->setFocus();
}

}  // namespace quillary::link
