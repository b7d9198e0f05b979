#pragma once

/// The names of the SQLite functions that emitted texts call and that the store registers on each
/// connection. All are deterministic. Null in gives null out unless told otherwise. What is an
/// error here refuses the statement.
namespace quillary::jet::functions {

inline constexpr char kClng[] = "q_clng";          // (x): whole number, half to even; error if none
inline constexpr char kRound[] = "q_round";        // (x [, decimals]): half to even
inline constexpr char kUcase[] = "q_ucase";        // (text), Unicode
inline constexpr char kLcase[] = "q_lcase";        // (text), Unicode
inline constexpr char kMoney[] = "q_money";        // (number or text): canonical currency; error
inline constexpr char kWhole[] = "q_whole";        // (number or text) into a whole-number column
inline constexpr char kFraction[] = "q_fraction";  // (number or text) into Single or Double; error
inline constexpr char kDate[] = "q_date";          // (text) into ISO "yyyy-MM-dd HH:mm:ss"; error
inline constexpr char kYesNo[] = "q_yesno";        // (x): 0 or 1, null gives 0
inline constexpr char kDateText[] = "q_datetext";  // (ISO text): a moment as a text shows it
inline constexpr char kText[] = "q_text";          // (x): a number as the dialect writes it in text
// The order of texts, a collation: without regard to case in all letters, accents coming last.
inline constexpr char kTextOrder[] = "q_textorder";

inline constexpr char kDivisor[] = "q_divisor";  // (number): itself; error when it is zero
inline constexpr char kCount[] = "q_count";      // (whole number): itself; error when negative
inline constexpr char kPlace[] = "q_place";      // (whole number): itself; error when below 1
inline constexpr char kReplace[] =
    "q_replace";                             // (text, find, with [, start [, count [, compare]]])
inline constexpr char kInStr[] = "q_instr";  // (start, text, find, compare): from 1; 0 if nowhere
inline constexpr char kIsNumeric[] = "q_isnumeric";  // (text): 0 or 1, null gives 0
inline constexpr char kIsDate[] = "q_isdate";        // (text): 0 or 1, null gives 0
// (kind, value [, pattern [, first day of the week [, first week of the year]]]); null gives ''
inline constexpr char kFormat[] = "q_format";

// Moments are ISO texts. An interval is one of the dialect's letters; others are an error, and so
// is a day or month that there is none of. Days of the week count from 1, Sunday.
inline constexpr char kDateAdd[] = "q_dateadd";        // (interval, number, moment)
inline constexpr char kDateDiff[] = "q_datediff";      // (interval, from, to [, first day])
inline constexpr char kDatePart[] = "q_datepart";      // (interval, moment [, first day [, week]])
inline constexpr char kDateSerial[] = "q_dateserial";  // (year, month, day), rolling over
inline constexpr char kTimeSerial[] = "q_timeserial";  // (hour, minute, second), rolling over
inline constexpr char kMonthName[] = "q_monthname";    // (month [, short])
inline constexpr char kWeekdayName[] = "q_weekdayname";  // (day [, short [, first day]])

inline constexpr char kFirst[] = "q_first";        // aggregate: of the first row, null or not
inline constexpr char kLast[] = "q_last";          // aggregate: of the last row, null or not
inline constexpr char kMoneySum[] = "q_moneysum";  // aggregate (currency): exact; null when no rows

}  // namespace quillary::jet::functions
