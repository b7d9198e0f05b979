#pragma once

#include "base/Value.h"
#include "data/store/Weeks.h"

#include <QStringView>

namespace quillary {

/// What the dialect's Format gives for a value and a pattern: a name such as "Currency" or "Short
/// Date", or figures ("#,##0.00"), parts of a date ("d mmm yyyy"), places of a text ("@@@"), each
/// with sections behind semicolons. Without a pattern, the value as a text shows it. Null gives the
/// empty text unless a section is meant for it. A text that reads as what the pattern is for is
/// taken as such; any other stays as it is.
QString FormatValue(const Value& value, const QString& pattern, const Weeks& weeks);

/// Figures for a number: 0 and # for digits, point, comma, %, E+00; halves are rounded away from
/// zero.
QString FormatNumber(double number, QStringView pattern);
/// Parts of a moment: d m y q w h n s and their repetitions, AM/PM, c for all.
QString FormatMoment(const DateTime& moment, QStringView pattern, const Weeks& weeks);
/// Places of a text: @ and & from the right, or with ! from the left; < and > fold it.
QString FormatText(const QString& text, QStringView pattern);

/// The section of a pattern at that place, from 0; empty when there are fewer. Semicolons in quotes
/// or behind a backslash part nothing.
QStringView SectionOf(QStringView pattern, int place);
/// A sign of a pattern that stands for itself: behind a backslash or in quotes. Takes it off and
/// returns true; nothing is taken otherwise.
bool TakeVerbatim(QStringView& pattern, QString& into);

}  // namespace quillary
