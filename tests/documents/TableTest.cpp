#include "PageFixture.h"
#include "documents/pages/TableLayout.h"

#include <stdexcept>

namespace quillary::documents {
namespace {

TEST(TableFormat, ReadsColumnsOfEveryKind) {
  struct Case {
    const char* format;
    std::vector<TableColumn> columns;
  };
  const Case cases[] = {
      {"<+2in|>+.75in", {{Align::Left, 2880}, {Align::Right, 1080}}},
      {"<+.75in|6.25in", {{Align::Left, 1080}, {Align::Left, 9000}}},
      {"^2.54cm", {{Align::Centre, 1440}}},
      {">1440", {{Align::Right, 1440}}},
      {" < + 1IN ", {{Align::Left, 1440}}},
      {"+1.in", {{Align::Left, 1440}}},
  };
  for (const Case& c : cases) {
    const auto columns = ParseTableFormat(c.format);
    ASSERT_TRUE(columns) << c.format;
    ASSERT_EQ(columns->size(), c.columns.size()) << c.format;
    for (size_t i = 0; i < columns->size(); ++i) {
      EXPECT_EQ((*columns)[i].align, c.columns[i].align) << c.format;
      EXPECT_NEAR((*columns)[i].width, c.columns[i].width, 0.01) << c.format;
    }
  }
}

TEST(TableFormat, RefusesWhatIsNoColumn) {
  for (const char* format : {"", "|", "<+1in|", "<+in", "<>1in", "1ft", "-1in", "<+0in", "1.2.3in",
                             "<+1in<+1in", "9999in", "1e3", "<+1in|x", "."}) {
    EXPECT_FALSE(ParseTableFormat(format)) << format;
    EXPECT_THROW(Table{QString(format)}, std::invalid_argument) << format;
  }
}

TEST(TableRows, KeepEveryTextThatTheyAreGiven) {
  Table table("<1in|<1in|<1in");
  table.AddBody("a|b|c\r\nonly\r\n|x|y|and|more\r\n");
  table.AddRow({"one|two", "line\r\nbreak"});
  QStringList rows;
  for (const TableRow& row : table.Rows()) {
    QStringList cells;
    for (const TableCell& cell : row.cells) cells.append(cell.text);
    rows.append(cells.join(u';'));
  }
  EXPECT_EQ(rows, QStringList({"a;b;c", "only;;", ";x;y|and|more", "one|two;line\r\nbreak;"}));
  EXPECT_THROW(table.AddRow({"1", "2", "3", "4"}), std::invalid_argument);
}

TEST(TableRows, SpansCountColumnsOfTheFormat) {
  Table table("<1in|<1in|<1in|>1in|>1in");
  TableRow& row = table.AddRow({"Total", "", "", "$1.00", "$0.10"});
  row.Span(0, 3, Align::Right).BoldCell(3).AlignCell(4, Align::Left);
  ASSERT_EQ(row.cells.size(), 3u);
  EXPECT_EQ(row.cells[0].span, 3);
  EXPECT_TRUE(row.cells[1].bold);
  EXPECT_EQ(row.cells[2].align, Align::Left);
  row.Span(3, 9).Span(7, 2).BoldCell(-1);  // beyond the last column
  ASSERT_EQ(row.cells.size(), 2u);
  EXPECT_EQ(row.cells[1].span, 2);
}

TEST(TableLayout, PlacesTextsByTheirColumns) {
  Composer composer(TestFonts(), {});
  Table table("<+1in|>+1in|^+1in|<+1in");
  table.AddRow({"left", "right", "centre", "next"});
  table.AddRow({"all three", "", "", "last"}).Span(0, 3, Align::Right);
  composer.AddTable(table);
  const Composition document = composer.Finish({});
  const auto& texts = document.pages[0].texts;
  ASSERT_EQ(texts.size(), 6u);
  const double left = 725;
  EXPECT_NEAR(texts[0].x, left, 0.1);
  EXPECT_NEAR(texts[1].x + texts[1].width, left + 2 * 1440 - kCellGap, 0.1);
  EXPECT_NEAR(texts[2].x + texts[2].width / 2, left + 2.5 * 1440 - kCellGap / 2, 0.1);
  EXPECT_NEAR(texts[3].x, left + 3 * 1440, 0.1);
  EXPECT_NEAR(texts[4].x + texts[4].width, left + 3 * 1440 - kCellGap, 0.1);
  EXPECT_NEAR(texts[5].x, left + 3 * 1440, 0.1);
}

TEST(TableLayout, ATableThatIsTooWideIsNarrowedToThePage) {
  Composer composer(TestFonts(), {.paper = Paper::A5});
  Table table("<+3in|<+4in|>+1in");
  table.AddRow({"a", "b", "$1.00"});
  composer.AddTable(table);
  ExpectTidy(composer.Finish({}));
}

}  // namespace
}  // namespace quillary::documents
