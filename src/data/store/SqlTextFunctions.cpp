#include "data/jet/Functions.h"
#include "data/jet/Translator.h"
#include "data/store/Format.h"
#include "data/store/SqlArguments.h"

#include <limits>

namespace quillary {
namespace {

namespace names = jet::functions;

// Places in a text count its characters, as SQLite does. A text of UTF-16 has more units than that
// when it holds rare signs.
qsizetype UnitsOf(const QString& text, qsizetype characters) {
  qsizetype at = 0;
  for (; characters > 0 && at < text.size(); --characters) {
    at += text.at(at).isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
  }
  return at;
}

Qt::CaseSensitivity SensitivityOf(qint64 compare) {
  if (compare < 0 || compare > 2) throw WrongArgument("there is no such way to compare");
  return compare == 0 ? Qt::CaseSensitive : Qt::CaseInsensitive;
}

Value InStr(const SqlArguments& arguments) {
  const qint64 start = arguments.Long(0);
  const QString text = arguments.Text(1);
  const QString sought = arguments.Text(2);
  if (start < 1) throw WrongArgument("a text begins at place 1");
  const qsizetype from = UnitsOf(text, start - 1);
  if (from >= text.size()) return 0;
  const qsizetype found = text.indexOf(sought, from, SensitivityOf(arguments.Long(3)));
  return found < 0 ? 0 : qint64{text.left(found).toUcs4().size()} + 1;
}

/// Only what begins at `start` is returned; of that, the first `count` places are replaced.
Value Replace(const SqlArguments& arguments) {
  const QString whole = arguments.Text(0);
  const QString sought = arguments.Text(1);
  const QString with = arguments.Text(2);
  const qint64 start = arguments.Long(3, 1);
  qint64 count = arguments.Long(4, -1);
  const Qt::CaseSensitivity sensitivity = SensitivityOf(arguments.Long(5, 1));
  if (start < 1 || count < -1) throw WrongArgument("there is no such place or number of places");
  QString text = whole.mid(UnitsOf(whole, start - 1));
  if (sought.isEmpty()) return text;
  for (qsizetype at = 0; count != 0; --count, at += with.size()) {
    at = text.indexOf(sought, at, sensitivity);
    if (at < 0) break;
    text.replace(at, sought.size(), with);
  }
  return text;
}

template <QString (QString::*Fold)() const&>
Value FoldCase(const SqlArguments& arguments) {
  return (arguments.Text(0).*Fold)();
}

Value IsNumeric(const SqlArguments& arguments) {
  return arguments.At(0).IsNumeric();
}

Value IsDate(const SqlArguments& arguments) {
  const Value value = arguments.At(0);
  return value.IsText() && !value.IsNumeric() &&
         jet::Convert(value, jet::ColumnType::Date).has_value();
}

Value FormatAsAsked(const SqlArguments& arguments) {
  constexpr int kMoment = 2;
  const bool isMoment = arguments.Long(0) == kMoment && !arguments.IsNull(1);
  const Value value = isMoment ? Value(arguments.Moment(1)) : arguments.At(1);
  const Weeks weeks(arguments.Long(3, 1), arguments.Long(4, 1));
  return FormatValue(value, arguments.Count() > 2 ? arguments.Text(2) : QString(), weeks);
}

}  // namespace

void RegisterTextFunctions(sqlite3* database) {
  RegisterFunction(database, names::kInStr, 4, InStr);
  RegisterFunction(database, names::kReplace, -1, Replace);
  RegisterFunction(database, names::kUcase, 1, FoldCase<&QString::toUpper>);
  RegisterFunction(database, names::kLcase, 1, FoldCase<&QString::toLower>);
  RegisterFunction(database, names::kIsNumeric, 1, IsNumeric, Nulls::Taken);
  RegisterFunction(database, names::kIsDate, 1, IsDate, Nulls::Taken);
  RegisterFunction(database, names::kFormat, -1, FormatAsAsked, Nulls::Taken);
}

}  // namespace quillary
