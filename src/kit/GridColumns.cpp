#include "kit/GridColumns.h"

#include <algorithm>

namespace quillary {

GridCell::GridCell(const Value& from, const QString& shown) : value(from), words(shown) {}

QString ShownText(const GridColumn& column, const GridCell& cell,
                  const std::vector<GridChoice>& choices) {
  if (!cell.words.isEmpty()) return cell.words;
  if (cell.value.IsNull()) return {};
  switch (column.kind) {
    case ColumnKind::Money:
      return cell.value.ToMoney().ToCurrencyText();
    case ColumnKind::Date:
      return ToShortDateText(cell.value.ToDate());
    case ColumnKind::Bar:
      return QStringLiteral("%1 %").arg(qRound(cell.value.ToDouble() * 100));
    case ColumnKind::Tick:
    case ColumnKind::Mark:
      return {};
    case ColumnKind::Chip:
    case ColumnKind::Choice: {
      const auto at = std::ranges::find_if(
          choices, [&](const GridChoice& choice) { return choice.key == cell.value; });
      return at == choices.end() ? cell.value.ToText() : at->word;
    }
    default:
      return cell.value.ToText();
  }
}

}  // namespace quillary
