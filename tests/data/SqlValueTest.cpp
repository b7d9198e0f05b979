#include "data/store/Sql.h"

#include <gtest/gtest.h>

namespace quillary {
namespace {

TEST(SQLValue, WritesTheLiteralsOfTheDialect) {
  const DateTime moment(QDate(2019, 3, 5), QTime(14, 7, 9));
  const std::pair<Value, const char*> cases[] = {
      {Value("O'Brien"), "'O''Brien'"},
      {Value(""), "null"},
      {Value(), "NULL"},
      {Value(true), "1"},
      {Value(false), "0"},
      {Value(12.5), "12.5"},
      {Value(17), "17"},
      {Value(Money::FromUnits(1234500)), "123.45"},
      {Value(moment), "#2019/3/5 14:7:9#"},
      {Value(QDate(2026, 11, 2)), "#2026/11/2 0:0:0#"},
      {Value("a\tb"), "'a b'"},
      {Value("a\r\nb"), "'a\r\nb'"},
      {Value(QString(QChar(20)) + QChar(21)), "' \x15'"},
  };
  for (const auto& [value, literal] : cases) {
    EXPECT_EQ(SQLValue(value), QString::fromUtf8(literal)) << literal;
  }
  EXPECT_EQ(SQLValue(moment, true), QStringLiteral("#2019/3/5 23:59:00#"));
}

TEST(Sql, ArgumentsMeanWhatTheirLiteralsWouldMean) {
  const Sql statement("UPDATE t SET a = {}, b = {}, c = {}", "", "a\tb", nullptr);
  EXPECT_TRUE(statement.Arguments()[0].IsNull());
  EXPECT_EQ(statement.Arguments()[1], Value("a b"));
  EXPECT_TRUE(statement.Arguments()[2].IsNull());
  const Sql joined = statement + Sql(" WHERE d = {}", 4);
  EXPECT_EQ(joined.Arguments().size(), 4u);
  EXPECT_TRUE(joined.Text().ends_with("c = {} WHERE d = {}"));
}

}  // namespace
}  // namespace quillary
