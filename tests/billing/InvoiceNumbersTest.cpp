#include "billing/invoices/InvoiceNumbers.h"
#include "support/BusinessTest.h"

namespace quillary::billing {
namespace {

using InvoiceNumbersTest = BusinessTest;

TEST_F(InvoiceNumbersTest, EveryCallSpendsANumber) {
  Run(Sql("UPDATE infSystem SET Invoice_Number = NULL"));
  EXPECT_EQ(GetNextInvoiceNumber(business()), QStringLiteral("1"));
  EXPECT_EQ(GetNextInvoiceNumber(business()), QStringLiteral("2"));
  Run(Sql("UPDATE infSystem SET Invoice_Number = 41"));
  EXPECT_EQ(GetNextInvoiceNumber(business()), QStringLiteral("42"));
}

TEST_F(InvoiceNumbersTest, LettersOfOldNumbersAreNotShown) {
  const std::pair<Value, const char*> cases[] = {
      {"12A", "12"},  {"A12", "0"}, {" 7 ", "7"}, {"007", "7"},
      {Value(), "0"}, {"", "0"},    {150, "150"},
  };
  for (const auto& [stored, shown] : cases)
    EXPECT_EQ(ShownInvoiceNumber(stored), QString::fromUtf8(shown)) << shown;
}

}  // namespace
}  // namespace quillary::billing
