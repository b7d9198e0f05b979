#include "base/Value.h"

#include <gtest/gtest.h>

namespace quillary {
namespace {

TEST(Value, NumberOfARowIsNoneForWhatOldFilesStoreForNone) {
  const struct {
    Value stored;
    std::optional<qint64> number;
  } cases[] = {{{}, {}},        {0, {}},    {"0", {}},   {"none", {}},
               {QString(), {}}, {0.0, {}},  {17, 17},    {"17", 17},
               {17.0, 17},      {-17, -17}, {false, {}}, {Money::FromWhole(17), 17}};
  for (const auto& [stored, number] : cases) {
    const auto id = stored.ToId<Client>();
    EXPECT_EQ(id ? std::optional(id->Number()) : std::nullopt, number)
        << stored.ToText().toStdString();
  }
}

TEST(Value, NumberOfARowGoesIntoAStatementAsItsNumber) {
  EXPECT_EQ(Value(Id<Client>(17)), Value(17));
  EXPECT_EQ(Value(std::optional(Id<Client>(17))), Value(17));
  EXPECT_TRUE(Value(std::optional<Id<Client>>()).IsNull());
}

TEST(Value, IsYesWhenItIsNotNothing) {
  const struct {
    Value value;
    bool isYes;
  } cases[] = {{0, false},    {-1, true},       {0.25, true},
               {0.0, false},  {Money(), false}, {Money::FromUnits(1), true},
               {"yes", true}, {"TRUE", true},   {"no", false},
               {"-1", true},  {"0.0", false},   {"$0.50", true}};
  for (const auto& [value, isYes] : cases) {
    EXPECT_EQ(value.ToBool(!isYes), isYes) << value.ToText().toStdString();
  }
  EXPECT_TRUE(Value("perhaps").ToBool(true));
}

}  // namespace
}  // namespace quillary
