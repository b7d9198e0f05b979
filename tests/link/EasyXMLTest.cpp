#include "base/Errors.h"
#include "link/EasyXML.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quillary::link {
namespace {

EasyXML Loaded(const char* text) {
  EasyXML document;
  document.LoadXml(text);
  return document;
}

TEST(EasyXMLTest, WalksRowsPastTheirMetadata) {
  EasyXML rows = Loaded("<R><_METADATA><X>1</X></_METADATA><A><n>1</n></A><A><n>2</n></A></R>");
  EXPECT_EQ(rows.RowCount(), 2);
  EXPECT_EQ(rows.Field("n"), "1");  // the cursor stands on the first row
  QStringList seen;
  while (rows.Read()) seen += rows.Field("n");
  EXPECT_EQ(seen, (QStringList{"1", "2"}));
  EXPECT_TRUE(rows.EndOfFile());
  EXPECT_FALSE(rows.Read());  // and stays behind the last
  EXPECT_TRUE(rows.Read(EasyXML::kStart));
  EXPECT_TRUE(rows.Read());
  EXPECT_EQ(rows.RowCursor(), 0);
  EXPECT_EQ(rows.Find("2", "n"), 1);
  EXPECT_EQ(rows.Find("3", "n"), -1);
  EXPECT_FALSE(rows.FindRow("3", "n"));
  EXPECT_FALSE(rows.Read(2));
  EXPECT_EQ(rows.Field("n"), "");
}

TEST(EasyXMLTest, ReadsFieldsAsServersWriteThem) {
  const EasyXML row =
      Loaded("<R><A><session_key> a&amp;b </session_key><E/><p>12.5 %</p><n>x</n></A></R>");
  EXPECT_EQ(row.Field("Session_Key"), " a&b ");  // and keeps its blanks
  EXPECT_EQ(row.Field("Nothing"), "");
  EXPECT_EQ(row.Field(1), "");
  EXPECT_EQ(row.FieldIndex("p"), 2);
  EXPECT_EQ(row.FieldIndex("P"), -1);
  EXPECT_EQ(row.FieldName(9), "");
  EXPECT_EQ(row.FieldCount(), 4);
  EXPECT_DOUBLE_EQ(row.Number("p", 7), 0.125);
  EXPECT_DOUBLE_EQ(row.Number("n", 7), 7);
  const EasyXML value = Loaded("<string xmlns=\"x\">ok</string>");
  EXPECT_EQ(value.RowCount(), 0);
  EXPECT_EQ(value.Content(), "ok");
}

TEST(EasyXMLTest, WritesThroughViewsAndLogsChangesOnce) {
  EasyXML rows =
      Loaded("<R><_METADATA><Log_Changes>true</Log_Changes></_METADATA><A><name>x</name></A></R>");
  ASSERT_TRUE(rows.LogsChanges());
  rows.SetField("Name", "x");  // as it is
  EXPECT_FALSE(rows.HasChanges());
  rows.SetField("Name", "y");  // into the tag that the server uses
  EasyXML added = rows.NewRow("A");
  added.SetField("When", DateTime({2026, 11, 2}, {9, 5}));
  EXPECT_EQ(added.Field("ID"), "-1");
  EXPECT_EQ(rows.NewRow("A").Field("ID"), "-2");
  rows.DeleteRow(2);
  const EasyXML log = rows.Changes();
  QStringList kinds;
  for (int at = 0; at < log.RowCount(); ++at) kinds += log.Row(at)->Name();
  EXPECT_EQ(kinds, (QStringList{"Edit", "Add", "Edit", "Add", "Delete"}));
  EXPECT_TRUE(rows.ToString().contains("<name>y</name>")) << rows.ToString().toStdString();
  EXPECT_TRUE(rows.ToString().contains("<When>2026-11-02 09:05:00</When>"));
  const auto extracted = rows.ExtractRow(0);
  EXPECT_EQ(extracted->Field("name"), "y");
  EXPECT_EQ(rows.RowCount(), 1);
}

TEST(EasyXMLTest, TakesNoHarmFromWhatIsNoReply) {
  const QByteArray deep = QByteArray("<a>").repeated(100'000);
  const QByteArray closing = QByteArray("</a>").repeated(100'000);
  for (const QByteArray& text : {QByteArray(), QByteArray("<html><p>later"), QByteArray("no xml"),
                                 deep + closing, QByteArray("<a><b>1</b></a").left(12)}) {
    EasyXML document;
    document.LoadXml(text);
    EXPECT_FALSE(document.IsReady()) << text.left(40).toStdString();
    EXPECT_EQ(document.Name(), "unnamed");
    EXPECT_EQ(document.Field("b"), "");
    EXPECT_FALSE(document.Read());
  }
  const EasyXML bomb = Loaded(
      "<!DOCTYPE a [<!ENTITY x SYSTEM \"file:///etc/passwd\"><!ENTITY y \"yyyyyyyy\">]>"
      "<a><r><b>&x;&y;</b></r></a>");
  EXPECT_EQ(bomb.Field("b"), "&x;&y;");
  QTemporaryDir folder;
  EasyXML saved = Loaded("<a><r><b>Ørsted</b></r></a>");
  saved.SaveFile(folder.filePath("a.xml"));
  EasyXML loaded;
  loaded.LoadFile(folder.filePath("a.xml"));
  EXPECT_EQ(loaded.Field("b"), "Ørsted");
  EXPECT_THROW(loaded.LoadFile(folder.filePath("none.xml")), ProgramError);
}

}  // namespace
}  // namespace quillary::link
