#pragma once

#include "base/Value.h"

#include <string>
#include <vector>

namespace quillary {

/// A statement of the dialect with a "{}" for each value:
///   Sql("UPDATE Diary SET Status = {} WHERE Diary_ID = {}", status, diaryId)
/// Values never become part of the text. They mean what SQLValue() would have written: an empty
/// text is null, and control characters other than line ends become blanks. A clause with values of
/// its own is an Sql too: it is joined by "+", or stands for a "{}":
///   Sql("SELECT Diary_ID FROM Diary WHERE Status IN {}", CodesOf(EntryGroup::WorkDone))
class Sql {
 public:
  template <typename... Parts>
  explicit Sql(const char* text, const Parts&... parts) : text_(text) {
    arguments_.reserve(sizeof...(parts));
    size_t at = 0;
    if constexpr ((std::is_same_v<Parts, Sql> || ...)) {
      (Put(parts, at), ...);
    } else {
      (arguments_.push_back(AsArgument(Value(parts))), ...);
    }
  }

  const std::string& Text() const { return text_; }
  const std::vector<Value>& Arguments() const { return arguments_; }
  Sql operator+(const Sql& other) const;

 private:
  static Value AsArgument(Value value);
  /// Fills the first "{}" from `at` on, and moves `at` behind it.
  void Put(const Sql& clause, size_t& at);
  void Put(const Value& value, size_t& at);

  std::string text_;
  std::vector<Value> arguments_;
};

/// The literal of the dialect for a value: "NULL" for null and "null" for an empty text, a date as
/// #2019/3/5 14:7:9#, yes/no as 1 and 0, a text in quotes with its own quotes doubled and control
/// characters other than line ends made blanks. With `endOfDay` a date is given 23:59:00, for the
/// upper end of a range.
QString SQLValue(const Value& value, bool endOfDay = false);

/// `date` at 23:59:00: the upper end of a range, as SQLValue(date, true) writes it.
DateTime EndOfDay(QDate date);

}  // namespace quillary
