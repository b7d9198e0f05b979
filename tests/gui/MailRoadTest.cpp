#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Mail.h"
#include "billing/invoices/InvoiceRecord.h"
#include "gui/ScreenFixture.h"
#include "mail/Outbox.h"
#include "mail/screens/MailScreens.h"

#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace quillary {
namespace {

/// Over Abbott (1), who has an address, and a head office that takes every mail.
class MailRoadTest : public ScreenFixture {
 protected:
  void SetUp() override {
    ScreenFixture::SetUp();
    Run(Sql("UPDATE Clients SET Email = 'ann@example.org' WHERE Client_ID = 1"));
    Run(Sql("UPDATE infOptions SET Default_Email_Message = 'Dear client'"));
    outside.headOffice.connected = true;
    outside.headOffice.sessionKey = "key";
    outside.headOffice.replies = {{"Upload_File", "ref/1"}, {"Send_Email_Message_Quillary", "ok"}};
    mail::RegisterMailScreens(business(), {navigator, host, runner});
  }
  QString Document() {
    QFile file(folder.filePath("Invoice.pdf"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    return file.fileName();
  }
  bool EmailByKeys(const std::function<void(Dialog&)>& use) {
    return UseDialog(EmailFile{"Invoice", Document(), {Id<Client>(1)}}, use);
  }
};

TEST_F(MailRoadTest, ADocumentIsMailedByKeysToTheAddressOfItsClient) {
  EXPECT_TRUE(EmailByKeys([](Dialog& list) {
    EXPECT_EQ(Find<QLineEdit>(&list, "lblSelectedEmail")->text(), "ann@example.org");
    EXPECT_EQ(Find<QPlainTextEdit>(&list, "txtMessage")->toPlainText(), "Dear client");
    EnterField(Find<QPlainTextEdit>(&list, "txtMessage"));
    TypeKeys("Hello. ");
    EnterField(Find<QLineEdit>(&list, "lblSelectedEmail"));
    PressKey(Qt::Key_Return);
  }));
  ASSERT_EQ(outside.headOffice.calls.size(), 2);
  EXPECT_TRUE(outside.headOffice.calls[1].contains("Recipient=ann@example.org"));
  const auto rows = navigator.Open(ListMailsTo{Id<Client>(1)});
  ASSERT_EQ(rows.size(), 1U) << "not found under the client";
  EXPECT_EQ(rows[0].state, "Sent");
}

TEST_F(MailRoadTest, EscSendsNothingAndAWrongAddressKeepsTheListOpen) {
  EXPECT_FALSE(EmailByKeys([](Dialog&) { PressKey(Qt::Key_Escape); }));
  EXPECT_FALSE(EmailByKeys([this](Dialog& list) {
    TypeOver(&list, "lblSelectedEmail", "ann");
    PressKey(Qt::Key_Return);
    EXPECT_TRUE(list.isVisible());
    EXPECT_EQ(QApplication::focusWidget(), Find<QLineEdit>(&list, "lblSelectedEmail"));
    EXPECT_TRUE(Told().contains("is no email address"));
  }));
  EXPECT_EQ(outside.headOffice.calls, QStringList());
  EXPECT_FALSE(mail::Outbox::Exists(business()));
}

TEST_F(MailRoadTest, WhatFailedIsSentFromTheOutboxAndWhatIsInDoubtOnlyAfterAsking) {
  outside.headOffice.replies["Send_Email_Message_Quillary"] = "mailbox full";
  EXPECT_FALSE(EmailByKeys([](Dialog& list) { Find<QPushButton>(&list, "cmdOK")->click(); }));
  EXPECT_TRUE(Told().startsWith("Your email failed to send.  The server returned the following"));
  Screen& outbox = OpenTab(OpenOutbox{});
  auto* grid = Find<Grid>(&outbox, "grdOutbox");
  ASSERT_EQ(grid->Rows().size(), 1U);
  EXPECT_FALSE(Find<QPushButton>(&outbox, "cmdSendAgain")->isEnabled());
  outside.headOffice.replies["Send_Email_Message_Quillary"] = std::nullopt;
  ClickOn(&outbox, "cmdRetry");
  EXPECT_TRUE(Told().contains("1 in doubt"));
  outbox.Reload();
  const auto sends = outside.headOffice.calls.size();
  EXPECT_FALSE(Find<QPushButton>(&outbox, "cmdSendNow")->isEnabled());
  outside.prompter.Expect("may have arrived already", Answer::No);
  ClickOn(&outbox, "cmdSendAgain");
  outbox.Reload();
  EXPECT_FALSE(Find<QPushButton>(&outbox, "cmdSendNow")->isEnabled());
  ClickOn(&outbox, "cmdArrived");
  outbox.Reload();
  EXPECT_EQ(grid->Rows().size(), 0U);
  EXPECT_EQ(outside.headOffice.calls.size(), sends) << "it was sent again";
}

TEST_F(MailRoadTest, WithoutHeadOfficeTheUserIsTold) {
  outside.headOffice.connected = false;
  EXPECT_FALSE(EmailByKeys([](Dialog& list) { Find<QPushButton>(&list, "cmdOK")->click(); }));
  EXPECT_TRUE(Told().startsWith("Internet connection unavailable or your Session has expired."));
}

}  // namespace
}  // namespace quillary
