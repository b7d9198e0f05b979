#include "data/settings/LocalSettings.h"
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

struct Rewritten {
  const char* what;
  QByteArray before;
  QByteArray after;
};

TEST_F(LocalSettingsTest, WritingChangesOneLineAndNoOtherByte) {
  const Rewritten cases[] = {
      {"a key in another case", "; keep\n[A]\nx=1\n\n[B]\ny=2\n",
       "; keep\n[A]\nX=\xC3\xA9  2\n\n[B]\ny=2\n"},
      {"a new key, before the blank line", "[A]\r\nw=1\r\n\r\n[B]\r\ny=2\r\n\r\n",
       "[A]\r\nw=1\r\nX=\xC3\xA9  2\r\n\r\n[B]\r\ny=2\r\n\r\n"},
      {"a new section, and no end to the last line", "\xEF\xBB\xBF[B]\ny=2",
       "\xEF\xBB\xBF[B]\ny=2\n[A]\nX=\xC3\xA9  2\n"},
      {"no file yet", "", "[A]\r\nX=\xC3\xA9  2\r\n"},
      {"lines of a Windows code page", "; d\xE9j\xE0\r\n[A]\r\nPath=C:\\Caf\xE9\r\nx=1\r\n",
       "; d\xE9j\xE0\r\n[A]\r\nPath=C:\\Caf\xE9\r\nX=\xC3\xA9  2\r\n"},
  };
  for (const Rewritten& each : cases) {
    Write(each.before);
    settings.WriteLocalSetting("A", "X", QStringLiteral("é\r\n2"));
    EXPECT_EQ(Text(), each.after) << each.what;
    EXPECT_EQ(settings.ReadLocalSetting("A", "x"), QStringLiteral("é  2")) << each.what;
  }
}

TEST_F(LocalSettingsTest, TextsAreReadInUtf8OrElseAsWindowsWroteThem) {
  const std::pair<QByteArray, const char16_t*> cases[] = {
      {"Caf\xC3\xA9", u"Café"}, {"Caf\xE9", u"Café"}, {"\x80 5 \x96 \x93no\x94", u"€ 5 – “no”"}};
  for (const auto& [bytes, text] : cases) {
    Write("[A]\r\nx=" + bytes + "\r\n");
    EXPECT_EQ(settings.ReadLocalSetting("A", "x"), QString::fromUtf16(text));
  }
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
