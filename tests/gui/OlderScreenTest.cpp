#include "base/ports/requests/Setup.h"
#include "gui/ScreenFixture.h"
#include "older/screens/frmConvY12RY1.h"

#include <QComboBox>
#include <QDir>
#include <QFile>

namespace quillary {
namespace {

/// Coming from the older product, by keys.
class OlderScreenTest : public ScreenFixture {
 protected:
  void SetUp() override {
    ScreenFixture::SetUp();
    older::RegisterOlderScreens(business(), {navigator, host, runner}, folder.filePath("Archive"));
    QDir(folder.path()).mkdir("older");
    ASSERT_TRUE(
        QFile::copy(QUILLARY_TEST_DATA "/older-product.mdb", folder.filePath("older/FSEData.mdb")));
  }
};

TEST_F(OlderScreenTest, TheChosenFileIsMovedOverAfterAQuestion) {
  UseDialog(ImportFromBravantiOne{}, [&](Dialog& dialog) {
    auto* file = Find<QComboBox>(&dialog, "File");
    TypeOver(&dialog, "Folder", folder.filePath("nowhere"));
    PressAlt(&dialog, Qt::Key_S);
    EXPECT_EQ(Told(), "Please select a Bravanti One database.");
    EXPECT_TRUE(file->hasFocus());
    TypeOver(&dialog, "Folder", folder.filePath("older"));
    EXPECT_EQ(file->currentText(), "FSEData.mdb") << "the only one there";
    outside.prompter.Expect("This business is emptied first: 2 clients", Answer::No);
    PressAlt(&dialog, Qt::Key_S);
    EXPECT_EQ(Count("Clients"), 2);
    outside.prompter.Expect("This business is emptied first: 2 clients", Answer::Yes);
    outside.prompter.Expect(
        "DONE. You are required to close the system to effect the changes.\nExit?", Answer::No);
    PressAlt(&dialog, Qt::Key_S);
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_EQ(Count("Clients"), 73);
  EXPECT_TRUE(Told().startsWith("Imported: 73 clients, 1195 diary entries, 815 payments"));
  EXPECT_TRUE(QFile::exists(folder.filePath("older/FSEData.mdb.receipt.txt")));
}

}  // namespace
}  // namespace quillary
