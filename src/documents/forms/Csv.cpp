#include "documents/forms/Csv.h"

#include <QRegularExpression>

namespace quillary::documents {

namespace {

/// Amounts, numbers of phones and the like begin with a sign too, and have to stay as they are.
bool IsFormula(const QString& text) {
  static const QRegularExpression opening(QStringLiteral(R"(^[\s]*[=+\-@])"));
  static const QRegularExpression number(QStringLiteral(R"(^[\s]*[+\-][\d\s.,$%()+\-]*$)"));
  return opening.match(text).hasMatch() && !number.match(text).hasMatch();
}

}  // namespace

QByteArray CsvField(const QString& text) {
  QByteArray field = (IsFormula(text) ? u'\'' + text : text).toUtf8();
  const bool needsQuotes =
      field.contains(',') || field.contains('"') || field.contains('\r') || field.contains('\n');
  if (!needsQuotes) return field;
  return '"' + field.replace("\"", "\"\"") + '"';
}

QByteArray WriteCsv(const Composition& document) {
  QByteArray csv;
  for (const Block& block : document.blocks) {
    const auto* table = std::get_if<TableBlock>(&block);
    if (table == nullptr) continue;
    if (!csv.isEmpty()) csv += "\r\n";
    for (const TableRow& row : table->table.Rows()) {
      QByteArray line;
      bool isFirst = true;
      for (const TableCell& cell : row.cells) {
        if (!isFirst) line += ',';
        isFirst = false;
        line += CsvField(cell.text) + QByteArray(cell.span - 1, ',');
      }
      csv += line + "\r\n";
    }
  }
  return "\xEF\xBB\xBF" + csv;
}

}  // namespace quillary::documents
