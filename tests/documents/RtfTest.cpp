#include "PageFixture.h"
#include "documents/forms/Rtf.h"

#include <QRegularExpression>

namespace quillary::documents {
namespace {

/// Reads RTF as strictly as is needed to see what it says: its visible text, cells ended by "|",
/// rows and paragraphs by a line end, destinations that are no text left out. Fails the test on
/// braces that do not balance and on bytes beyond ASCII.
class RtfReader {
 public:
  explicit RtfReader(const QByteArray& rtf) : rtf_(rtf) {
    while (at_ < rtf_.size()) Step();
    EXPECT_EQ(depth_, 0) << "braces do not balance";
  }
  const QString& Text() const { return text_; }

 private:
  void Step() {
    const char sign = rtf_[at_++];
    EXPECT_TRUE(sign >= 32 || sign == '\r' || sign == '\n') << "byte " << int(sign);
    if (sign == '{') {
      ++depth_;
    } else if (sign == '}') {
      if (--depth_ < hidden_) hidden_ = 0;
      EXPECT_GE(depth_, 0);
      EXPECT_TRUE(depth_ > 0 || at_ >= rtf_.size() - 2) << "text after the last brace";
    } else if (sign == '\\') {
      Control();
    } else if (sign != '\r' && sign != '\n') {
      Show(QChar::fromLatin1(sign));
    }
  }

  void Control() {
    static const QRegularExpression word("\\G([a-z]+)(-?\\d+)? ?");
    const QString rest = QString::fromLatin1(rtf_.mid(at_, 40));
    const auto match = word.match(rest);
    if (!match.hasMatch()) {
      const char symbol = rtf_[at_++];
      if (symbol == '\\' || symbol == '{' || symbol == '}')
        Show(QChar::fromLatin1(symbol));
      else if (symbol == '\'')
        at_ += 2;
      else if (symbol == '*')
        Hide();
      else
        ADD_FAILURE() << "unknown control symbol " << symbol;
      return;
    }
    at_ += match.capturedLength();
    const QString name = match.captured(1);
    const QStringList destinations = {"fonttbl", "colortbl", "info", "footer", "shp"};
    if (destinations.contains(name)) Hide();
    if (name == "u") {
      Show(QChar(static_cast<char16_t>(match.captured(2).toInt())));
      at_ += rtf_[at_] == '\\' ? 4 : 1;  // what old readers show instead
    }
    if (name == "cell") Show(u'|');
    if (name == "row" || name == "par") Show(u'\n');
    if (name == "line") Show(u'/');
  }

  void Hide() {
    if (hidden_ == 0) hidden_ = depth_;
  }
  void Show(QChar sign) {
    if (hidden_ == 0) text_ += sign;
  }

  QByteArray rtf_;
  qsizetype at_ = 0;
  int depth_ = 0;
  int hidden_ = 0;
  QString text_;
};

QString Read(const QByteArray& rtf) {
  return RtfReader(rtf).Text();
}

TEST(Rtf, HostileTextStaysText) {
  const char* const texts[] = {
      "plain",
      "back\\slash \\par {braces} \\\\ }",
      "\"quotes\" 'single'",
      "{\\rtf1 {\\object evil}}",
      "café – naïve €",
      "\\u8364? 1234",
      "digits after é123",
      "עברית and عربي",
      "emoji 😀 tail",
      "文字",
      "CO₂ H⁴ １２",
  };
  for (const char* utf8 : texts) {
    const QString text = QString::fromUtf8(utf8);
    Composer composer(TestFonts(), {});
    composer.AddText(text);
    Table table("<+3in");
    table.AddRow({text});
    composer.AddTable(table);
    const QString read = Read(WriteRtf(composer.Finish(text)));
    EXPECT_TRUE(read.startsWith(text + "\n" + text + "|\n"))
        << utf8 << " became " << read.toStdString();
  }
  EXPECT_EQ(Read("{" + RtfText(QString("a\x01\tb\r\nc\u2028d") + QChar(0)) + "}"), "a b/c/d");
}

TEST(Rtf, TablesAreTables) {
  Composer composer(TestFonts(), {});
  Table table("<+1in|>+1in|^+1in");
  table.AddHeader({"A", "B", "C"});
  table.AddRow({"1", "2", "3"});
  table.AddRow({"Total", "", "9"}).Span(0, 2, Align::Right);
  table.AddRow({"", "", ""});
  composer.AddTable(table);
  composer.AddTable(table);
  const QByteArray rtf = WriteRtf(composer.Finish({}));
  EXPECT_TRUE(Read(rtf).startsWith("A|B|C|\n1|2|3|\nTotal|9|\n|||\n\nA|B|C|\n"))
      << rtf.toStdString();
  EXPECT_EQ(rtf.count("\\trowd"), rtf.count("\\row\r\n"));
  EXPECT_EQ(rtf.count("\\cellx"), rtf.count("\\cell\r\n"));
  EXPECT_EQ(rtf.count("\\trhdr"), 2);
  EXPECT_TRUE(rtf.contains("\\fs18{}\\cell")) << "an empty cell makes no higher row";
  // The spanning cell ends where the second column of the other rows does.
  EXPECT_TRUE(rtf.contains("\\cellx2820\\cellx4260\r\n")) << rtf.toStdString();
  EXPECT_EQ(rtf.count("\\qr\\keepn\\f0\\fs18{\\b A}"), 0);
  EXPECT_EQ(rtf.count("\\qr\\keepn\\f0\\fs18{\\b B}"), 2);
}

TEST(Rtf, KeepsPagesSpacesAndLooks) {
  Composer composer(TestFonts(), {.paper = Paper::Letter, .landscape = true});
  composer.SetFont({.name = "Times", .size = 8.5, .italic = true, .colour = 0xFF8000});
  composer.AddText("look", Align::Centre);
  composer.SetCurrentY(6000);
  composer.AddRule(78);
  composer.AddRtf("{linked}");
  composer.AdvanceY(850);
  composer.NewPage();
  composer.SetFooter("Page %1 of %2");
  const QByteArray rtf = WriteRtf(composer.Finish({}));
  for (const char* part :
       {"\\paperw15840\\paperh12240\\landscape", "\\margl725", "\\red255\\green128\\blue0;",
        "{\\f1\\fnil Times;}", "\\qc\\f1\\fs17{\\i\\cf1 look}\\par", "\\brdrb\\brdrs",
        "\\page\\par", "\\fldinst PAGE", "\\fldinst NUMPAGES", "\\sl-78",
        "\\sl850\\slmult0 {linked}\\par"})
    EXPECT_TRUE(rtf.contains(part)) << part;
  Read(rtf);
}

}  // namespace
}  // namespace quillary::documents
