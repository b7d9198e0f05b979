#pragma once

#include "reports/ReportKinds.h"

namespace quillary::reports {

/// What the tax office asks for, of some days.
struct TaxFigures {
  Money sales;  // tax included
  Money taxOnSales;
  Money untaxedSales;  // the part of the sales that holds no tax
  Money capital;       // purchases with tax
  Money untaxedCapital;
  Money purchases;  // other ones, with tax
  Money untaxedPurchases;
  Money taxOnPurchases;
  Money Payable() const { return taxOnSales - taxOnPurchases; }
};

/// Sales are the payments of the days on cash, the done jobs of the days on accrual; purchases are
/// the same for both.
enum class SalesBasis { Cash, Accrual };
TaxFigures CollectTaxFigures(Business& business, const DateRange& days, SalesBasis basis);

std::vector<ReportKind> TaxReportKinds();

}  // namespace quillary::reports
