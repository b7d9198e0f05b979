#pragma once

#include "base/DateTime.h"
#include "base/Money.h"

#include <QByteArrayView>
#include <QString>

#include <optional>

/// How Access writes values into its pages, for as far as exactness matters.
namespace quillary {

/// The moment of a stored date: whole days from 30 December 1899, the fraction being the time of
/// day, also before that day. Exact to the second. Nothing for what is no date of the years 100 to
/// 9999.
std::optional<DateTime> AccessDate(double days);

/// The text of a stored field of a Jet 4 file: UTF-16, or its compressed form. Nothing when the
/// bytes are no text.
std::optional<QString> AccessText(QByteArrayView bytes);

/// The largest amount that a business file keeps to the last ten-thousandth; a stored amount beyond
/// it, of either sign, is damage.
inline constexpr Money kLargestAmount = Money::FromWhole(900'000'000'000);

}  // namespace quillary
