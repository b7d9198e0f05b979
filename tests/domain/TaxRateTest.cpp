#include "domain/TaxRate.h"
#include "support/BusinessTest.h"

namespace quillary {
namespace {

struct TaxCase {
  Value rate;
  Value amount;
  const char* tax;
};

TEST(TaxRate, IsInsideEveryPrice) {
  const TaxCase cases[] = {
      {0.1, 110, "10"},
      {0.1, "$112.50", "10.23"},
      {0.1, 1, "0.09"},
      {0.1, 0.55, "0.05"},
      {0.1, -110, "-10"},
      {0.1, 0, "0"},
      {0.1, {}, "0"},
      {0.1, "none", "0"},
      {0.125, 112.5, "12.5"},
      {0.0, 110, "0"},
      {"x", 110, "0"},
      {{}, 110, "0"},
      // Twenty percent is a sixth: every third penny is a tie, which goes to the even one.
      {0.2, 45.03, "7.5"},
      {0.2, 45.09, "7.52"},
      {0.2, 0.03, "0"},
      {0.2, 0.09, "0.02"},
      {0.2, -45.03, "-7.5"},
      {0.2, 45.02, "7.5"},
      {0.2, 45.04, "7.51"},
  };
  for (const auto& [rate, amount, tax] : cases) {
    EXPECT_EQ(TaxRate(rate).CalculateGSTComponent(amount).ToText(), tax)
        << amount.ToText().toStdString() << " at " << rate.ToText().toStdString();
  }
}

TEST_F(BusinessTest, AWorkingRateHasNoNoiseBehindItsDigits) {
  const std::pair<float, double> cases[] = {
      {0.1F, 0.1}, {0.2F, 0.2}, {0.125F, 0.125}, {0.175F, 0.175}, {0.15F, 0.15}, {0.F, 0.0},
  };
  for (const auto& [working, digits] : cases) {
    business().values.gstPercentage = working;
    EXPECT_EQ(TaxRate::Of(business()).Fraction(), digits);
  }
  business().values.gstPercentage = 0.2F;
  for (int pennies = 3; pennies <= 30000; pennies += 6) {  // the ties, all of them
    const Money price = Money::FromUnits(pennies * 100);
    const int sixth = pennies / 6;
    EXPECT_EQ(TaxRate::Of(business()).CalculateGSTComponent(price),
              Money::FromUnits((sixth + sixth % 2) * 100))
        << pennies;
  }
}

TEST(TaxRate, WholePercentsGoUpAtTheHalf) {
  const std::pair<double, int> cases[] = {
      {0.1, 10}, {0.125, 13}, {0.145, 15}, {0.1449, 14}, {0.2, 20}, {0.005, 1}, {0.0, 0},
  };
  for (const auto& [rate, percent] : cases) EXPECT_EQ(TaxRate(rate).WholePercent(), percent);
}

TEST_F(BusinessTest, TheRepairAndTheEntryHaveFormulasOfTheirOwn) {
  Run(Sql("INSERT INTO Diary (Total_Price) VALUES (112.5)"));
  const auto inside = [&](const Sql& formula) {
    Run(Sql("UPDATE Diary SET Total_GST = {}", formula));
    return business().FirstField(Sql("SELECT Total_GST FROM Diary")).ToMoney().ToText();
  };
  EXPECT_EQ(inside(TaxRate(0.125).Inside("Total_Price")), "12.5");
  EXPECT_EQ(inside(TaxRate(0.125).InsideByWholePercent("Total_Price")), "12.9425");
  EXPECT_EQ(inside(TaxRate(0.2).Inside("Total_Price")), "18.75");
}

}  // namespace
}  // namespace quillary
