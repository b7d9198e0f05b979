#include "base/ports/requests/Maintenance.h"
#include "base/ports/requests/Setup.h"
#include "gui/ScreenFixture.h"
#include "link/screens/LinkScreens.h"
#include "link/screens/frmAcquireServices.h"
#include "support/HeadOfficeProcess.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace quillary {
namespace {

class LinkScreensTest : public ScreenFixture {
 protected:
  void SetUp() override {
    ScreenFixture::SetUp();
    office.Start();
    QFile ini(folder.filePath("qy.ini"));
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write("[OSTREL4NET]\nOstrel4NetURL=" + office.Url().toUtf8() + "\n");
    ini.close();
    Run(Sql("UPDATE infPersonalDetails SET FSE_Code = 'F77'"));
    link::RegisterLinkScreens(business(), {navigator, host, runner}, folder.path());
  }
  static void Type(QWidget& in, const char* field, const QString& text) {
    auto* box = in.findChild<QLineEdit*>(field);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, text);
  }
  HeadOfficeProcess office;
};

TEST_F(LinkScreensTest, TheLoginOfAnUploadIsTriedAgainUntilItIsRight) {
  outside.prompter.Expect("Are you sure you want to upload your database", Answer::Yes);
  UseDialog(UploadDatabase{}, [&](Dialog& dialog) {
    auto* says = dialog.findChild<QLabel*>("lblError");
    EXPECT_TRUE(says->text().startsWith("Please enter your user name and password"));
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "txtPassword");
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(Told(), "Please enter your password.");
    Type(dialog, "txtPassword", "wrong");
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(says->text(), "Wrong user name or password.");
    EXPECT_EQ(dialog.findChild<QLineEdit*>("txtPassword")->selectedText().size(), 5);
    Type(dialog, "txtPassword", office.kPassword);
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  EXPECT_TRUE(Told().endsWith(" succeeded."));
}

TEST_F(LinkScreensTest, CopyingDownAsksForWhatIsMissingAndReplacesOnYes) {
  UseDialog(OpenCopyFromOstrel{}, [&](Dialog& dialog) {
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(Told(), "Please enter your franchisee id.");
    Type(dialog, "txtFSE_ID", office.kUser);
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(Told(), "Please enter your password.");
    Type(dialog, "txtPassword", office.kPassword);
    dialog.findChild<QCheckBox*>("chkDownloadClients")->click();
    outside.prompter.Expect("Clients: 2 here, 40 at head office", Answer::Yes);
    dialog.findChild<QPushButton*>("cmdGenerate")->click();
    EXPECT_EQ(Told(), "Finished copying data!");
  });
  EXPECT_EQ(Count("Clients"), 40);
}

TEST_F(LinkScreensTest, ServicesOfADivisionAreSeenBeforeTheyReplaceOurs) {
  link::frmAcquireServices dialog(business(), {navigator, host, runner}, folder.path());
  ASSERT_TRUE(dialog.LoadFrom({office.Url(), office.kUser, office.kPassword, {}}));
  dialog.show();
  auto* load = dialog.findChild<QPushButton*>("cmdLoadServicesToList");
  load->click();
  EXPECT_EQ(Told(), "Please select a division.");
  dialog.findChild<QComboBox*>("cboDivisions")->setCurrentIndex(1);
  load->click();
  EXPECT_EQ(RowText(dialog.findChild<Grid*>("grdServices"), 0), "Windows inside|WIN");
  outside.prompter.Expect("Are you sure you want to do the download?", Answer::Yes);
  dialog.findChild<QPushButton*>("cmdDownload")->click();
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(Told(), "Done");
  EXPECT_EQ(Word(Sql("SELECT Service FROM Services")), "Windows inside");
}

}  // namespace
}  // namespace quillary
