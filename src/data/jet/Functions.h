#pragma once

/// The names of the SQLite functions that emitted texts call and that the store registers on each
/// connection. All are deterministic. Null in gives null out unless told otherwise.
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
inline constexpr char kText[] = "q_text";          // (x): a number as the dialect writes it in text
// The order of texts, a collation: without regard to case in all letters, accents coming last.
inline constexpr char kTextOrder[] = "q_textorder";

inline constexpr char kMoneySum[] = "q_moneysum";  // aggregate (currency): exact; null when no rows

}  // namespace quillary::jet::functions
