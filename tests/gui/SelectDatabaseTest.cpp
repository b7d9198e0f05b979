#include "data/schema/Schema.h"
#include "gui/GuiTest.h"
#include "shell/DataSources.h"
#include "shell/RecentFiles.h"
#include "shell/frmODBCConnection.h"
#include "shell/frmSelectDatabaseToAccess.h"

#include <QComboBox>
#include <QDir>
#include <QTimer>

namespace quillary {
namespace {

class SelectDatabaseTest : public ::testing::Test {
 protected:
  void SetUp() override {
    TestApplication();
    CreateEmptyBusiness(File());
  }
  void TearDown() override { outside.prompter.CheckAllAsked(); }
  QString File() const { return folder.filePath(QStringLiteral("DATA.MDB")); }
  QStringList Recent() { return shell::RecentFiles(outside.settings).Paths(); }

  /// Shows the dialog, uses it, and returns the business that was chosen.
  std::unique_ptr<Business> Choose(const std::function<void(QWidget*)>& use) {
    shell::frmSelectDatabaseToAccess dialog(outside.Ports(), folder.path());
    QTimer::singleShot(0, &dialog, [&] { use(&dialog); });
    return dialog.Choose();
  }

  ScriptedOutside outside;
  QTemporaryDir folder;
};

TEST_F(SelectDatabaseTest, ProposesTheProgramsOwnFileFirst) {
  const auto business = Choose([&](QWidget* dialog) {
    EXPECT_EQ(dialog->windowTitle(), "Select a Quillary database");
    EXPECT_EQ(Find<QLineEdit>(dialog, "txtPath")->text(), File());
    EXPECT_EQ(Find<QListWidget>(dialog, "File")->count(), 1) << "only database files";
    ClickOn(dialog, "cmdOK");
  });
  ASSERT_TRUE(business);
  EXPECT_EQ(business->DatabaseFile(), File());
  EXPECT_EQ(Recent(), QStringList{File()});
  EXPECT_EQ(outside.settings.Read("Form", "Show DB Selection", {}), "1");
  EXPECT_EQ(outside.settings.Read("LastAccessedFile", "File", {}), File());
}

TEST_F(SelectDatabaseTest, StaysWhenTheFileIsNotThere) {
  const QString gone = folder.filePath("GONE.MDB");
  const auto business = Choose([&](QWidget* dialog) {
    Find<QLineEdit>(dialog, "txtPath")->setText(gone);
    ClickOn(dialog, "cmdOK");
    EXPECT_TRUE(dialog->isVisible());
    ClickOn(dialog, "cmdExit");
  });
  EXPECT_FALSE(business);
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList{"Couldn't find the database file : " + gone});
  EXPECT_TRUE(Recent().isEmpty());
}

TEST_F(SelectDatabaseTest, OpensAtOnceWithTheBoxCleared) {
  outside.settings.Write("Form", "Show DB Selection", "0");
  outside.settings.Write("LastAccessedFile", "File", File());
  bool used = false;
  const auto business = Choose([&](QWidget*) { used = true; });
  ASSERT_TRUE(business);
  EXPECT_EQ(outside.settings.Read("Form", "Show DB Selection", {}), "0");

  outside.settings.Write("LastAccessedFile", "File", folder.filePath("GONE.MDB"));
  shell::frmSelectDatabaseToAccess dialog(outside.Ports(), folder.path());
  dialog.show();
  QTest::qWait(10);
  EXPECT_EQ(outside.prompter.TakeTold().size(), 1) << "a file that has gone is told";
  EXPECT_TRUE(dialog.isVisible()) << "and then it waits";
}

TEST_F(SelectDatabaseTest, RecentFilesAreFourAndTheNewestFirst) {
  shell::RecentFiles recent(outside.settings);
  for (const char* path : {"/a.mdb", "/b.mdb", "/c.mdb", "/d.mdb", "/e.mdb", "/C.MDB"})
    recent.PutInFront(path);
  recent.Save();
  EXPECT_EQ(Recent(), (QStringList{"/C.MDB", "/e.mdb", "/d.mdb", "/b.mdb"}));
  shell::frmSelectDatabaseToAccess dialog(outside.Ports(), folder.path());
  Find<QAction>(&dialog, "mnuMRU2")->trigger();
  EXPECT_EQ(Find<QLineEdit>(&dialog, "txtPath")->text(), "/d.mdb");
}

TEST_F(SelectDatabaseTest, OffersToConvertAnAccessFile) {
  const QString access = folder.filePath("OLD.MDB");
  ASSERT_TRUE(QFile::copy(QStringLiteral(QUILLARY_TEST_DATA "/access-v57.mdb"), access));
  QFile(access).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
  QFile file(access);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray original = file.readAll();
  file.close();
  const auto open = [&](QWidget* dialog) {
    Find<QLineEdit>(dialog, "txtPath")->setText(access);
    ClickOn(dialog, "cmdOK");
    if (dialog->isVisible()) ClickOn(dialog, "cmdExit");
  };
  outside.prompter.Expect("is a Microsoft Access file", Answer::No);
  EXPECT_FALSE(Choose(open));
  EXPECT_FALSE(QDir(folder.path()).exists("Archive"));

  outside.prompter.Expect("is a Microsoft Access file", Answer::Yes);
  const auto business = Choose(open);
  ASSERT_TRUE(business);
  EXPECT_GT(business->FirstField(Sql("SELECT COUNT(*) FROM Clients")).ToLong(), 0);
  const QDir archive(folder.filePath("Archive"));
  const QStringList originals = archive.entryList({"*.MDB"}, QDir::Files);
  ASSERT_EQ(originals.size(), 1);
  EXPECT_TRUE(archive.exists(originals.first() + ".receipt.txt"));
  QFile kept(archive.filePath(originals.first()));
  ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
  EXPECT_TRUE(kept.readAll() == original) << "the original stays byte for byte";
}

TEST_F(SelectDatabaseTest, FurtherConnectionsAreMadeOnce) {
  const auto create = [&](const QString& file) {
    shell::frmODBCConnection dialog(outside.Ports(), folder.path());
    Find<QComboBox>(&dialog, "cboDSN")->setCurrentText("RMS3");
    Find<QLineEdit>(&dialog, "txtFile")->setText(file);
    ClickOn(&dialog, "cmdCreate");
    return outside.prompter.TakeTold().value(0);
  };
  EXPECT_EQ(create("/gone.mdb"), "Please select a valid file.");
  EXPECT_FALSE(shell::DataSourceExists(outside.settings, "RMS3"));
  EXPECT_TRUE(create(File()).startsWith("Done. \nTo use this database connection"));
  EXPECT_TRUE(shell::DataSourceExists(outside.settings, "RMS3"));
  EXPECT_EQ(create(File()),
            "This database connection already exists in the ODBC list. Please select another one.");
  EXPECT_FALSE(shell::DataSourceExists(outside.settings, "RMS2"));
}

}  // namespace
}  // namespace quillary
