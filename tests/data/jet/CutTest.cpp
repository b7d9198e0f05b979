#include "data/jet/Translator.h"

#include <gtest/gtest.h>

namespace quillary::jet {
namespace {

/// The shape with its marks made visible, then each literal.
std::string Cut(const std::string& text) {
  const CutStatement cut = CutLiterals(text);
  std::string all;
  for (const char c : cut.shape) {
    all += c > 0 && c < 9 ? "<" + std::to_string(c) + ">" : std::string(1, c);
  }
  for (const Value& literal : cut.literals) all += "|" + literal.ToText().toStdString();
  return all;
}

TEST(CutLiterals, FindsEachLiteralAndNothingElse) {
  const char* const cases[][2] = {
      {"SELECT Phone_1, T2.a3 FROM t5x", "SELECT Phone_1, T2.a3 FROM t5x"},
      {"x=5 AND y=-.01", "x=<1> AND y=-<2>|5|0.01"},
      {"1.5e3+2E-1,7.", "<2>+<2>,<2>|1500|0.2|7"},
      {"1e", "<1>e|1"},
      {"99999999999999999999", "<2>|1e+20"},
      {"'O''Brien'+''", "<3>+<3>|O'Brien|"},
      {"'''' & 'a''''b'", "<3> & <3>|'|a''b"},
      {"\"say \"\"yes\"\"\"", "<3>|say \"yes\""},
      {"#2019/3/5 14:7:9#", "<4>|2019-03-05 14:07:09"},
      {"#2019/3/5#=#3/5/2019#", "<4>=<4>|2019-03-05 00:00:00|2019-03-05 00:00:00"},
      {"#2019-03-05 2:05 PM#", "<4>|2019-03-05 14:05:00"},
      {"#14:07#", "<4>|1899-12-30 14:07:00"},
      {"#5 Mar 2019#,#march 5, 2019#,#5-Mar-19 2 pm#",
       "<4>,<4>,<4>|2019-03-05 00:00:00|2019-03-05 00:00:00|2019-03-05 14:00:00"},
      {"#13/5/2019#,#12/5/2019#", "<4>,<4>|2019-05-13 00:00:00|2019-12-05 00:00:00"},
      {"#2019 Sep 5#,#1/2/29#,#1/2/30#",
       "<4>,<4>,<4>|2019-09-05 00:00:00|2029-01-02 00:00:00|1930-01-02 00:00:00"},
      {"[a'1#].[2]=3", "[a'1#].[2]=<1>|3"},
      {"True,False,Yes,No,Null", "True,False,Yes,No,Null"},
      {"'it''s {}' {}", "<3> {}|it's {}"},
      {"a\x01\x05"
       "b",
       "a  b"},
      {"'a\x03"
       "b\r\nc'",
       "<3>|a\x03"
       "b\r\nc"},
      {"'\xC3\xA9' + \xC3\xA9"
       "1",
       "<8> + \xC3\xA9"
       "1|\xC3\xA9"},
      {"a.5", "a.5"},
  };
  for (const auto& each : cases) EXPECT_EQ(Cut(each[0]), each[1]) << each[0];
}

TEST(CutLiterals, RefusesWhatIsNoLiteral) {
  for (const char* text : {"'a",
                           "'a''",
                           "\"a",
                           "#2019/2/30#",
                           "#2019/3/5",
                           "##",
                           "#a#",
                           "#2019/3/5 24:0:0#",
                           "#2019/3/5 1#2",
                           "#1/2/3/4#",
                           "[a",
                           "#99999/1/1#",
                           "1e999",
                           "#13:00 PM#",
                           "#5 Mar#",
                           "#Mar 2019#",
                           "#30 Feb 2019#",
                           "#5 Ma 2019#",
                           "#5 Mar May 2019#",
                           "#13/13/2019#",
                           "#1/2-2019#",
                           "#1 2 2019#",
                           "#31/2/28#",
                           "#14:07 5 Mar 2019#",
                           "#5/Mar/2019/1#"}) {
    EXPECT_THROW(CutLiterals(text), StatementError) << text;
  }
}

TEST(CutLiterals, TakesArgumentsAtTheirPlaces) {
  const std::vector<Value> arguments{
      5, nullptr, Money::FromUnits(12345), true, "it's {}", QDate(2026, 11, 2), 0.5};
  const CutStatement cut = CutLiterals("a={} b={} c={} '{}' d={} e={} f={} g={}", arguments);
  EXPECT_EQ(cut.shape, "a=\x01 b=\x05 c=\x06 \x03 d=\x07 e=\x03 f=\x04 g=\x02");
  ASSERT_EQ(cut.literals.size(), 8u);
  EXPECT_EQ(cut.literals[2], arguments[2]);
  EXPECT_EQ(cut.literals[3], Value("{}"));
  EXPECT_EQ(cut.literals[5], arguments[4]);
  EXPECT_THROW(CutLiterals("{}", {}), StatementError);
  EXPECT_THROW(CutLiterals("{}", {QDate(2019, 2, 30)}), StatementError);
  EXPECT_THROW(CutLiterals("{} {}", {1}), StatementError);
  EXPECT_THROW(CutLiterals("a", {1}), StatementError);
}

TEST(Convert, FollowsAssignment) {
  struct Case {
    Value value;
    ColumnType type;
    std::optional<Value> expected;
  };
  const Value moment(DateTime(QDate(2019, 3, 5), QTime(12, 0)));
  const Case cases[] = {
      {"$1,234.50", ColumnType::Currency, Money::FromUnits(12345000)},
      {"(5.00)", ColumnType::Currency, Money::FromUnits(-50000)},
      {0.00005, ColumnType::Currency, Money()},
      {"five", ColumnType::Currency, std::nullopt},
      {1e300, ColumnType::Currency, std::nullopt},
      {2.5, ColumnType::Long, 2},
      {"3.5", ColumnType::Long, 4},
      {"", ColumnType::Long, std::nullopt},
      {Money::FromUnits(25000), ColumnType::Long, 2},
      {-1, ColumnType::YesNo, true},
      {0, ColumnType::YesNo, false},
      {nullptr, ColumnType::YesNo, false},
      {nullptr, ColumnType::Currency, Value()},
      {"Yes", ColumnType::YesNo, true},
      {"maybe", ColumnType::YesNo, std::nullopt},
      {7, ColumnType::Text, "7"},
      {82.5, ColumnType::Text, "82.5"},
      {true, ColumnType::Text, "-1"},
      {"5/3/2019 12:00", ColumnType::Date, moment},
      {"2019/3/5 12:0:0", ColumnType::Date, moment},
      {"5 Mar 2019", ColumnType::Date, QDate(2019, 3, 5)},
      {43529.5, ColumnType::Date, moment},
      {3e6, ColumnType::Date, std::nullopt},
      {"31/2/2019", ColumnType::Date, std::nullopt},
      {"5 Mar", ColumnType::Date, std::nullopt},
      {"soon", ColumnType::Date, std::nullopt},
      {moment, ColumnType::Double, 43529.5},
      {moment, ColumnType::Text, "5/03/2019 12:00:00 PM"},
      {QDate(2019, 3, 5), ColumnType::Text, "5/03/2019"},
      {"5/13/2019", ColumnType::Date, QDate(2019, 5, 13)},
      {"Mar 5, 2019 12:00 pm", ColumnType::Date, moment},
      {2147483647, ColumnType::Long, 2147483647},
      {2147483647.5, ColumnType::Long, std::nullopt},
      {"-2147483649", ColumnType::Counter, std::nullopt},
  };
  for (const Case& each : cases) {
    const auto converted = Convert(each.value, each.type);
    const bool same =
        converted && each.expected ? *converted == *each.expected : !converted && !each.expected;
    EXPECT_TRUE(same) << each.value.ToText().toStdString() << " into "
                      << static_cast<int>(each.type);
  }
}

}  // namespace
}  // namespace quillary::jet
