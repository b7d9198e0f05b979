#include "data/LocalSettings.h"
#include "support/ScriptedOutside.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <unistd.h>

namespace quillary {
namespace {

class LocalSettingsTest : public ::testing::Test {
 protected:
  void Write(const QByteArray& text) {
    QFile file(settings.FilePath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }
  QByteArray Text() {
    QFile file(settings.FilePath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  QTemporaryDir folder;
  ScriptedPrompter prompter;
  LocalSettings settings{folder.path(), prompter};
};

TEST_F(LocalSettingsTest, AMissingFileGivesTheDefaults) {
  EXPECT_TRUE(settings.Initialize());
  EXPECT_EQ(settings.ostrel4NetUserName, "quillary");
  EXPECT_EQ(settings.ReadLocalSetting("BACKUPS", "Any", "later"), "later");
}

TEST_F(LocalSettingsTest, PlaceholdersEndTheProgram) {
  for (const char* key : {"Ostrel4NetUserName", "Ostrel4NetPassword", "Ostrel4NetURL"}) {
    Write(QByteArray("[OSTREL4NET]\r\n") + key + "=#{" + key + "}\r\n");
    EXPECT_FALSE(settings.Initialize()) << key;
    EXPECT_EQ(prompter.TakeTold(),
              QStringList{"The current INI file has invalid connection values.  Exiting system"});
  }
}

TEST_F(LocalSettingsTest, ValuesAreFoundAsOtherProgramsWroteThem) {
  Write("\xEF\xBB\xBF; comment\n[backups]\n Daily = 1 \nPath=C:\\a=b;c\n\n[Other]\nDaily=2\n");
  EXPECT_EQ(settings.ReadLocalSetting("BACKUPS", "DAILY", "0"), "1");
  EXPECT_EQ(settings.ReadLocalSetting("BACKUPS", "Path"), "C:\\a=b;c");
  EXPECT_EQ(settings.ReadLocalSetting("Other", "Daily"), "2");
  EXPECT_EQ(settings.ReadLocalSetting("Other", "Path", "none"), "none");
}

TEST_F(LocalSettingsTest, WritingKeepsWhatItDoesNotUnderstand) {
  Write("; keep me\n[A]\nx=1\n\n[B]\ny=2\n");
  settings.WriteLocalSetting("A", "X", "5");
  settings.WriteLocalSetting("A", "new", "two\r\nlines");
  settings.WriteLocalSetting("C", "z", "3");
  EXPECT_EQ(Text(),
            "; keep me\r\n[A]\r\nX=5\r\nnew=two  lines\r\n\r\n[B]\r\ny=2\r\n[C]\r\nz=3\r\n");
}

TEST_F(LocalSettingsTest, LongValuesComeBackCut) {
  settings.WriteLocalSetting("A", "x", QString(300, u'v'));
  EXPECT_EQ(settings.ReadLocalSetting("A", "x").size(), 200);
}

TEST_F(LocalSettingsTest, AFailedWriteIsToldAndGoneOnFrom) {
  LocalSettings nowhere("/proc/nowhere", prompter);
  nowhere.WriteLocalSetting("BACKUPS", "Daily", "1");
  const QStringList told = prompter.TakeTold();
  ASSERT_EQ(told.size(), 1);
  EXPECT_TRUE(
      told.first().startsWith("An error has occured while accessing /proc/nowhere/qy.ini, "
                              "but it should be possible to continue though. "));
  EXPECT_TRUE(told.first().endsWith(" while setting BACKUPS:Daily to 1."));
}

}  // namespace
}  // namespace quillary
