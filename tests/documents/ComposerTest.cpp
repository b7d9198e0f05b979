#include "PageFixture.h"
#include "documents/pages/PageSearch.h"
#include "documents/pages/PageText.h"

namespace quillary::documents {
namespace {

TEST(PageFonts, WrapsAtBlanksAndCutsOnlyWhatNoLineHolds) {
  const PageFont font;
  const auto wrap = [&](const QString& text, double width) {
    return TestFonts()->Wrap(text, font, width).join(u'/');
  };
  const double eight = TestFonts()->WidthOf(u"oooooooo", font) + 1;
  struct Case {
    const char* text;
    const char* lines;
  };
  const Case cases[] = {
      {"", ""},
      {"ooo ooo", "ooo ooo"},
      {"ooo ooo ooo", "ooo ooo/ooo"},
      {"ooooooooooo", "oooooooo/ooo"},
      {"oo ooooooooooo", "oo/oooooooo/ooo"},
      {"o\r\no\no\ro", "o/o/o/o"},
      {"o\r\n\r\no", "o//o"},
      {"   oo", "   oo"},
      {"o\to\x01", "o o"},
      {"oooooooo     ", "oooooooo"},
      {"ooo ooo    ooo   ", "ooo ooo/ooo   "},
  };
  for (const Case& c : cases) EXPECT_EQ(wrap(c.text, eight), c.lines) << c.text;
  // A picture of two code units is not torn apart.
  for (const QString& line : TestFonts()->Wrap(QString::fromUtf8("😀😀😀"), font, 10))
    EXPECT_EQ(line.size(), 2);
}

TEST(PageFonts, KnowsTheFacesApart) {
  const auto width = [](PageFont font) { return TestFonts()->WidthOf(u"Width", font); };
  EXPECT_NEAR(TestFonts()->WidthOf(u"0", {.size = 10}), 0.556 * 200, 0.01);
  EXPECT_GT(width({.bold = true}), width({}));
  EXPECT_NEAR(width({.name = "Courier"}), 5 * 0.6 * 180, 0.01);
  EXPECT_LT(width({.name = "times", .italic = true}), width({}));
  EXPECT_EQ(width({.name = "No such font"}), width({}));
  EXPECT_GT(TestFonts()->WidthOf(u"文", {}), TestFonts()->WidthOf(u"?", {}));
}

TEST(Composer, RepeatsTheHeadingOfATableThatGoesOn) {
  Composer composer(TestFonts(), {});
  Table table("<+3in|>+1in");
  table.AddHeader({"Client", "Amount"});
  for (int i = 1; i <= 160; ++i) table.AddRow({QString("Client %1").arg(i), "$1.00"});
  composer.AddTable(table);
  const Composition document = composer.Finish({});
  ASSERT_EQ(document.pages.size(), 3u);
  QStringList clients;
  for (const Page& page : document.pages) {
    const QStringList texts = TextsOf(page);
    EXPECT_EQ(texts.first(2), QStringList({"Client", "Amount"}));
    clients += texts.filter("Client ");
  }
  EXPECT_EQ(clients.size(), 160);
  EXPECT_EQ(clients.last(), "Client 160");
  ExpectTidy(document);
}

TEST(Composer, SplitsARowThatNoPageHolds) {
  QStringList lines;
  for (int i = 1; i <= 200; ++i) lines.append(QString("line %1").arg(i));
  Composer composer(TestFonts(), {});
  composer.AddText("Above");
  Table table("<+3in|<+3in");
  table.AddHeader({"Notes", "Short"});
  table.AddRow({lines.join("\r\n"), "beside"});
  table.AddRow({"after", ""});
  composer.AddTable(table);
  const Composition document = composer.Finish({});
  QStringList seen;
  for (const Page& page : document.pages) seen += TextsOf(page);
  EXPECT_EQ(seen.filter("line "), lines);
  EXPECT_EQ(seen.last(), "after");
  EXPECT_EQ(seen.count("Notes"), qsizetype(document.pages.size()));
  EXPECT_GE(document.pages.size(), 3u);
  ExpectTidy(document);
}

TEST(Composer, KeepsHeadingsWithWhatTheyHead) {
  struct Case {
    const char* name;
    double y;
    bool group;
    size_t page;  // on which the heading stands
  };
  const double bottom = PageSetup{}.Height() - 725;
  const Case cases[] = {{"room for the heading alone", bottom - 300, false, 1},
                        {"room for both", bottom - 600, false, 0},
                        {"room for the group's heading alone", bottom - 300, true, 1}};
  for (const Case& c : cases) {
    Composer composer(TestFonts(), {});
    composer.SetCurrentY(c.y);
    Table table("<+3in");
    if (c.group)
      table.AddRow({"Heading"}).Bold().KeepWithNext();
    else
      table.AddHeader({"Heading"});
    table.AddRow({"row"});
    composer.AddTable(table);
    const Composition document = composer.Finish({});
    ASSERT_GT(document.pages.size(), c.page) << c.name;
    EXPECT_EQ(TextsOf(document.pages[c.page]), QStringList({"Heading", "row"})) << c.name;
  }
}

TEST(Composer, HeadingsThatFillAPageDoNotLoop) {
  Composer composer(TestFonts(), {});
  Table table("<+3in");
  table.AddHeader({QString("heading\n").repeated(100)});
  for (int i = 0; i < 3; ++i) table.AddRow({"row"});
  composer.AddTable(table);
  const Composition document = composer.Finish({});
  QStringList seen;
  for (const Page& page : document.pages) seen += TextsOf(page);
  EXPECT_EQ(seen.count("heading"), 100);
  EXPECT_EQ(seen.count("row"), 3);
  ExpectTidy(document);
}

TEST(Composer, MovesTheCurrentY) {
  Composer composer(TestFonts(), {});
  EXPECT_EQ(composer.CurrentY(), 725);
  composer.SetMargins({.left = 1000, .top = 500});
  EXPECT_EQ(composer.CurrentY(), 500);
  composer.SetFontSize(10);
  composer.AddText("one\r\ntwo");
  EXPECT_NEAR(composer.CurrentY(), 500 + 2 * 230, 0.01);
  composer.SetCurrentY(12000);
  composer.AddText("here");
  composer.AddRule(78);
  EXPECT_NEAR(composer.CurrentY(), 12000 + 230 + 78, 0.01);
  composer.NewPage();
  EXPECT_EQ(composer.CurrentY(), 500);
  const Composition document = composer.Finish({});
  EXPECT_EQ(document.pages.size(), 2u);
  EXPECT_EQ(document.pages[0].texts.back().x, 1000);
  EXPECT_EQ(document.pages[0].texts.back().top, 12000);
}

TEST(Composer, AClosingRuleStaysWithWhatItCloses) {
  const double bottom = PageSetup{}.Height() - 725;
  for (const double y : {bottom - 200, bottom - 20, bottom, bottom + 150}) {
    Composer composer(TestFonts(), {});
    composer.SetCurrentY(y);
    composer.AddRule(78);
    composer.AddText("next");
    const Composition document = composer.Finish({});
    ASSERT_EQ(document.pages[0].lines.size(), 1u) << y;
    EXPECT_NEAR(document.pages[0].lines[0].y1, std::min(y + 78, bottom), 0.01);
    EXPECT_EQ(document.pages.size(), 2u) << "only the text goes on";
  }
}

TEST(Composer, NumbersItsPagesAtTheFoot) {
  Composer composer(TestFonts(), {});
  composer.SetFooter("Page %1 of %2");
  composer.NewPage();
  const Composition document = composer.Finish({});
  EXPECT_EQ(TextsOf(document.pages[1]), QStringList("Page 2 of 2"));
}

TEST(PageSearch, FindsPlacesInReadingOrder) {
  Composer composer(TestFonts(), {});
  Table table("<+3in|<+3in");
  table.AddRow({"Ann owes; ann pays", "ANN"});
  table.AddRow({"wrapped an", "n"});
  composer.AddTable(table);
  composer.NewPage();
  composer.AddText("Joanna");
  const Composition document = composer.Finish({});
  const auto hits = FindOnPages(document, "ann");
  ASSERT_EQ(hits.size(), 4u);
  EXPECT_NEAR(hits[0].x, 725, 0.1);
  EXPECT_NEAR(hits[1].x, 725 + TestFonts()->WidthOf(u"Ann owes; ", {}), 0.1);
  EXPECT_GT(hits[2].x, hits[1].x);
  EXPECT_EQ(hits[3].page, 1);
  EXPECT_TRUE(FindOnPages(document, " ").empty());
}

}  // namespace
}  // namespace quillary::documents
