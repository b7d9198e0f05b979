#pragma once

#include "billing/payments/PaymentsList.h"
#include "kit/GridColumns.h"

/// How payments stand in their tables.
namespace quillary::billing {

std::vector<GridColumn> PaymentListColumns();
/// A payment that differs from its jobs has a hue of its own.
std::vector<GridRow> PaymentListRows(const std::vector<PaymentRow>& payments);

/// What the hue of PaymentListRows() says.
inline constexpr char kMismatchLegend[] =
    "Yellow - Amount/GST doesn't match with Account amount/GST";

}  // namespace quillary::billing
