#include "maintenance/oneclient/ClientPieces.h"

#include "data/store/Statement.h"

#include <algorithm>

namespace quillary::maintenance {
namespace {

std::string SelectOf(const PieceTable& table, const PieceColumns& columns) {
  std::string text = std::string("SELECT ") + (table.key ? table.key : "0");
  for (const jet::Column& column : columns) text += ", \"" + column.name.toStdString() + '"';
  return text + " FROM " + table.table;
}

PieceRow RowOf(const Statement& rows, const PieceColumns& columns) {
  PieceRow row;
  row.number = rows.Column(0, jet::ColumnType::Long).ToLong();
  row.cells.reserve(columns.size());
  for (size_t at = 0; at < columns.size(); ++at)
    row.cells.push_back(rows.Column(static_cast<int>(at) + 1, columns[at].type));
  return row;
}

}  // namespace

const std::array<PieceFacts, 6>& AllPieceFacts() {
  static const std::array<PieceFacts, 6> facts = {{
      {PieceKind::Client,
       {"Clients", "Client_ID", {"Account_Balance", "Previous_Billing_Balance", "Debtor_Since"}},
       {}},
      // The roll moves the next visit on by itself.
      {PieceKind::Service, {"Client_Services", "Client_Service_ID", {"Next_Visit"}}, {}},
      {PieceKind::Quote, {"Quotes", "Quote_ID"}, PieceTable{"Quote_Services", "Quote_Service_ID"}},
      {PieceKind::Invoice, {"Invoices", "Invoice_ID"}, PieceTable{"Invoice_Items", nullptr}},
      {PieceKind::Payment,
       {"Payments", "Payment_ID"},
       PieceTable{"General_Ledger_Entries", "GL_Entry_ID"}},
      // The place within a day is that of the day as it stands.
      {PieceKind::Entry,
       {"Diary", "Diary_ID", {"Sequence"}},
       PieceTable{"Diary_Services", "Diary_Service_ID"}},
  }};
  return facts;
}

const PieceFacts& FactsOf(PieceKind kind) {
  return AllPieceFacts()[static_cast<size_t>(kind)];
}

PieceColumns CommonColumns(const PieceTable& table, const jet::Catalogue& today, sqlite3* backup) {
  PieceColumns columns;
  const jet::Table* known = today.FindTable(QString::fromLatin1(table.table));
  if (known == nullptr) return columns;
  Statement names(backup, "SELECT name FROM pragma_table_info(?1)");
  names.Bind(1, Value(table.table));
  while (names.Step()) {
    const jet::Column* column = known->Find(names.Column(0, jet::ColumnType::Text).ToText());
    if (column != nullptr && column->type != jet::ColumnType::Counter) columns.push_back(*column);
  }
  return columns;
}

Value PieceShape::Cell(const Piece& piece, const char* column) const {
  const auto at = PlaceOf(heads, column);
  return at ? piece.head.cells[*at] : Value();
}

std::vector<Piece> LoadPieces(sqlite3* file, const PieceShape& shape, qint64 client) {
  std::vector<Piece> pieces;
  if (shape.heads.empty()) return pieces;
  const PieceTable& heads = shape.facts.heads;
  Statement rows(file, SelectOf(heads, shape.heads) + " WHERE Client_ID = ?1 ORDER BY 1");
  rows.Bind(1, Value(client));
  while (rows.Step()) pieces.push_back({RowOf(rows, shape.heads), {}});
  if (!shape.facts.parts || shape.parts.empty()) return pieces;
  Statement parts(file, SelectOf(*shape.facts.parts, shape.parts) + " WHERE " + heads.key +
                            " = ?1 ORDER BY rowid");
  for (Piece& piece : pieces) {
    const ResetAtEnd reset(parts);
    parts.Bind(1, Value(piece.head.number));
    while (parts.Step()) piece.parts.push_back(RowOf(parts, shape.parts));
  }
  return pieces;
}

bool IsSameCell(const Value& one, const Value& other) {
  const auto isNothing = [](const Value& value) {
    return value.IsNull() || (value.IsText() ? value.ToText().isEmpty()
                                             : !value.IsDate() && value.ToMoney() == Money());
  };
  return one == other || (isNothing(one) && isNothing(other));
}

bool IsOwnAffair(const PieceTable& table, const QString& column) {
  return std::ranges::any_of(table.ownAffair, [&](const char* own) {
    return own != nullptr && column.compare(QLatin1StringView(own), Qt::CaseInsensitive) == 0;
  });
}

std::optional<size_t> PlaceOf(const PieceColumns& columns, const char* name) {
  for (size_t at = 0; at < columns.size(); ++at)
    if (columns[at].name.compare(QLatin1StringView(name), Qt::CaseInsensitive) == 0) return at;
  return std::nullopt;
}

}  // namespace quillary::maintenance
