#include "data/jet/Declarations.h"

#include <array>
#include <utility>

namespace quillary::jet {
namespace {

constexpr std::array<std::pair<const char16_t*, ColumnType>, 27> kWords{{
    {u"AUTOINCREMENT", ColumnType::Counter},
    {u"COUNTER", ColumnType::Counter},
    {u"LONG", ColumnType::Long},
    {u"INT", ColumnType::Long},
    {u"INTEGER", ColumnType::Long},
    {u"SHORT", ColumnType::Long},
    {u"SMALLINT", ColumnType::Long},
    {u"BYTE", ColumnType::Long},
    {u"SINGLE", ColumnType::Single},
    {u"REAL", ColumnType::Single},
    {u"DOUBLE", ColumnType::Double},
    {u"FLOAT", ColumnType::Double},
    {u"NUMBER", ColumnType::Double},
    {u"NUMERIC", ColumnType::Double},
    {u"CURRENCY", ColumnType::Currency},
    {u"MONEY", ColumnType::Currency},
    {u"DATE", ColumnType::Date},
    {u"DATETIME", ColumnType::Date},
    {u"TIME", ColumnType::Date},
    {u"YESNO", ColumnType::YesNo},
    {u"BIT", ColumnType::YesNo},
    {u"LOGICAL", ColumnType::YesNo},
    {u"TEXT", ColumnType::Text},
    {u"CHAR", ColumnType::Text},
    {u"VARCHAR", ColumnType::Text},
    {u"MEMO", ColumnType::Memo},
    {u"LONGTEXT", ColumnType::Memo},
}};

ColumnType TypeByAffinity(QStringView declared) {
  const auto has = [&](const char16_t* part) {
    return declared.contains(QStringView(part), Qt::CaseInsensitive);
  };
  if (has(u"INT")) return ColumnType::Long;
  if (has(u"CHAR")) return ColumnType::Text;
  if (has(u"CLOB") || has(u"TEXT")) return ColumnType::Memo;
  if (has(u"REAL") || has(u"FLOA") || has(u"DOUB")) return ColumnType::Double;
  if (has(u"DATE") || has(u"TIME")) return ColumnType::Date;
  if (has(u"BOOL")) return ColumnType::YesNo;
  return declared.isEmpty() ? ColumnType::Memo : ColumnType::Double;
}

}  // namespace

QString DeclarationOf(const Column& column) {
  switch (column.type) {
    case ColumnType::Counter:
      return QStringLiteral("INTEGER PRIMARY KEY AUTOINCREMENT");
    case ColumnType::Long:
      return QStringLiteral("INTEGER");
    case ColumnType::Single:
      return QStringLiteral("SINGLE REAL");
    case ColumnType::Double:
      return QStringLiteral("NUMBER");
    case ColumnType::Currency:
      return QStringLiteral("CURRENCY");
    case ColumnType::Date:
      return QStringLiteral("DATETIME");
    case ColumnType::YesNo:
      return QStringLiteral("YESNO NOT NULL DEFAULT 0");
    case ColumnType::Memo:
      return QStringLiteral("MEMOTEXT COLLATE NOCASE");
    case ColumnType::Text:
      break;
  }
  if (column.width <= 0) return QStringLiteral("TEXT COLLATE NOCASE");
  return QStringLiteral("TEXT(%1) COLLATE NOCASE").arg(column.width);
}

ColumnType TypeOfDeclaration(QStringView declared) {
  const QStringView whole = declared.trimmed();
  if (whole.contains(QStringView(u"PRIMARY KEY"), Qt::CaseInsensitive)) return ColumnType::Counter;
  qsizetype end = 0;
  while (end < whole.size() && (whole[end].isLetterOrNumber() || whole[end] == u'_')) ++end;
  const QStringView word = whole.left(end);
  if (word.compare(QStringView(u"MEMOTEXT"), Qt::CaseInsensitive) == 0) return ColumnType::Memo;
  // A bare REAL was never declared by this system; elsewhere it is SQLite's double.
  if (word.compare(QStringView(u"REAL"), Qt::CaseInsensitive) == 0) return ColumnType::Double;
  if (const auto type = TypeOfWord(word)) return *type;
  return TypeByAffinity(whole);
}

int WidthOfDeclaration(QStringView declared) {
  const qsizetype open = declared.indexOf(u'(');
  const qsizetype close = declared.indexOf(u')', open + 1);
  if (open < 0 || close < 0) return 0;
  return declared.mid(open + 1, close - open - 1).trimmed().toInt();
}

std::optional<ColumnType> TypeOfWord(QStringView word) {
  for (const auto& [name, type] : kWords) {
    if (word.compare(QStringView(name), Qt::CaseInsensitive) == 0) return type;
  }
  return std::nullopt;
}

}  // namespace quillary::jet
