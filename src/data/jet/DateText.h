#pragma once

#include "base/DateTime.h"

#include <QStringView>

#include <optional>
#include <string_view>

namespace quillary::jet {

/// Dates count as days from this one wherever they meet numbers, and a time of day alone falls on
/// it.
inline QDate DayZero() {
  return QDate(1899, 12, 30);
}

/// Reads what stands between the signs of a date literal: "2019/3/5 14:7:9", "2019-03-05",
/// "5 Mar 2019", "March 5, 2019", or a time alone, which falls on day zero of the dialect. Of
/// figures with the year last the month stands first ("3/5/2019"), unless it can't be one
/// ("13/5/2019"). A time may end in AM or PM. Nothing for a date that does not exist or has no
/// year.
std::optional<DateTime> ReadDateLiteral(std::string_view text);

/// Reads a text that is assigned to or compared with a date: the forms of a literal, but as the
/// business writes dates, day before month ("5/3/2019").
std::optional<DateTime> ReadDateText(QStringView text);

/// A moment within a text: "5/03/2019", with a time of day other than midnight
/// "5/03/2019 2:07:09 PM", and on day zero the time alone. ReadDateText reads it back.
QString GeneralDate(const DateTime& moment);

}  // namespace quillary::jet
