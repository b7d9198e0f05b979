#pragma once

#include "base/Value.h"
#include "data/store/Statement.h"

#include <sqlite3.h>

#include <array>
#include <optional>
#include <vector>

/// What a business knows of one client, cut into pieces that can come back one by one without
/// tearing anything apart: a job with its lines, a payment with its ledger entries.
namespace quillary::maintenance {

enum class PieceKind { Client, Service, Quote, Invoice, Payment, Entry };

/// A table of pieces, or of their parts.
struct PieceTable {
  const char* table;
  const char* key;  // its counter; null for rows without a number of their own
  /// What the program moves by itself: no difference lies in it, and it is never brought back over
  /// what stands today.
  std::array<const char*, 3> ownAffair = {};
};

struct PieceFacts {
  PieceKind value;
  PieceTable heads;
  std::optional<PieceTable> parts;  // each points to its head by the column of the head's key
};
/// In the order in which pieces come back: what others point at comes first.
const std::array<PieceFacts, 6>& AllPieceFacts();
const PieceFacts& FactsOf(PieceKind kind);

struct PieceRow {
  qint64 number = 0;         // 0 for one without
  std::vector<Value> cells;  // of PieceColumns, in their order
};
struct Piece {
  PieceRow head;
  std::vector<PieceRow> parts;
};

/// The columns of a table that both files have, without its counter.
using PieceColumns = std::vector<jet::Column>;
PieceColumns CommonColumns(const PieceTable& table, const jet::Catalogue& today, sqlite3* backup);

struct PieceShape {
  const PieceFacts& facts;
  PieceColumns heads;
  PieceColumns parts;

  /// The cell of the head in that column; null when there is no such column.
  Value Cell(const Piece& piece, const char* column) const;
};

/// Both sides are read by the same statements of the store, so that what differs is a difference of
/// rows. Throws StorageFailure.
std::vector<Piece> LoadPieces(sqlite3* file, const PieceShape& shape, qint64 client);

/// Empty, null, no and 0 all stand for nothing where one of them became another.
bool IsSameCell(const Value& one, const Value& other);
bool IsOwnAffair(const PieceTable& table, const QString& column);
/// Where the column stands; nothing when it is not there.
std::optional<size_t> PlaceOf(const PieceColumns& columns, const char* name);

}  // namespace quillary::maintenance
