#include "base/Money.h"

#include <gtest/gtest.h>

namespace quillary {
namespace {

struct ParseCase {
  const char* fault;
  const char* text;
  std::optional<qint64> units;
};

TEST(Money, ReadsWhatPeopleType) {
  const ParseCase cases[] = {
      {"plain", "1234.5", 12345000},
      {"dollar and thousands", "$1,234.50", 12345000},
      {"brackets are a debt", "(5.00)", -50000},
      {"brackets around a dollar", "($5)", -50000},
      {"minus before the dollar", "-$5", -50000},
      {"minus after the dollar", "$-5", -50000},
      {"trailing minus", "5-", -50000},
      {"no whole part", ".05", 500},
      {"no decimals after the point", "5.", 50000},
      {"half to even, down", "0.00005", 0},
      {"half to even, up", "0.00015", 2},
      {"just over the half", "0.000050001", 1},
      {"empty", "", std::nullopt},
      {"only a sign", "-", std::nullopt},
      {"only a point", ".", std::nullopt},
      {"letters", "12a", std::nullopt},
      {"two points", "1.2.3", std::nullopt},
      {"thousands mark among decimals", "1.2,3", std::nullopt},
      {"beyond the range", "99999999999999999999", std::nullopt},
  };
  for (const ParseCase& entry : cases) {
    const auto money = Money::Parse(QString::fromUtf8(entry.text));
    ASSERT_EQ(money.has_value(), entry.units.has_value()) << entry.fault;
    EXPECT_EQ(money, entry.units ? std::optional(Money::FromUnits(*entry.units)) : std::nullopt)
        << entry.fault;
  }
}

TEST(Money, ShowsAsCurrency) {
  const std::pair<qint64, const char*> cases[] = {
      {12345000, "$1,234.50"}, {-50000, "-$5.00"}, {0, "$0.00"},
      {-1, "$0.00"},           {250, "$0.02"},     {350, "$0.04"},
  };
  for (const auto& [units, text] : cases) {
    EXPECT_EQ(Money::FromUnits(units).ToCurrencyText(), QString(text)) << units;
  }
}

TEST(Money, EveryCentSurvivesTheTripThroughADouble) {
  for (qint64 units = -2000000; units <= 2000000; units += 37) {
    const Money money = Money::FromUnits(units * 1001);
    ASSERT_EQ(Money::FromDouble(money.ToDouble()), money) << units;
  }
}

TEST(Rounding, HalvesGoToTheEvenNeighbour) {
  struct Case {
    double number;
    int decimals;
    double rounded;
  };
  const Case cases[] = {{0.5, 0, 0},
                        {1.5, 0, 2},
                        {2.5, 0, 2},
                        {-2.5, 0, -2},
                        {-1.5, 0, -2},
                        {2.675, 2, 2.68},
                        {1.005, 2, 1.0},
                        {0.125, 2, 0.12},
                        {10.015, 2, 10.02},
                        {10.0, 2, 10.0},
                        {1234.5678, 3, 1234.568}};
  for (const Case& entry : cases) {
    EXPECT_DOUBLE_EQ(RoundHalfEven(entry.number, entry.decimals), entry.rounded) << entry.number;
  }
}

}  // namespace
}  // namespace quillary
