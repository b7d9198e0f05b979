#pragma once

#include "maintenance/oneclient/ClientPieces.h"
#include "maintenance/oneclient/OpenedBackup.h"

#include <map>
#include <set>

/// One client of a backup beside the same client today.
namespace quillary::maintenance {

enum class Since {
  Missing,  // in the backup and gone today
  Changed,
  New,  // came after the backup, which has nothing to bring back of it
};

/// One row of the list.
struct ClientDifference {
  PieceKind kind = PieceKind::Client;
  Since since = Since::Missing;
  QString what = {};    // "Payment of 2 Nov 2026"
  QString then = {};    // what the backup says; of a changed row only what differs
  QString now = {};     // and what stands today
  QString remark = {};  // what cannot come back with it, and why
  bool canComeBack = true;

  const Piece* backup = nullptr;     // in the comparison; null for what is new
  const Piece* today = nullptr;      // null for what is missing
  std::vector<size_t> columns = {};  // of the head that differ
  bool partsDiffer = false;
};

/// A row that pieces of the backup point at: table, number.
using RowName = std::pair<std::string, qint64>;

/// What differs, with both sides as they were read. Open entries of the diary that are gone or new
/// are left out: the roll takes them away and makes them again from the services.
class ClientComparison {
 public:
  /// Throws StorageFailure.
  ClientComparison(Business& business, const OpenedBackup& backup, Id<Client> client);
  ClientComparison(const ClientComparison&) = delete;
  ClientComparison& operator=(const ClientComparison&) = delete;

  Id<Client> ClientId() const { return client_; }
  /// Whether the backup knows the client at all.
  bool IsInBackup() const { return !then_.at(PieceKind::Client).empty(); }
  /// Whether the client stands in the business today.
  bool IsThereToday() const { return !now_.at(PieceKind::Client).empty(); }
  QString NameThen() const { return nameThen_; }
  QString NameToday() const { return nameToday_; }

  const std::vector<ClientDifference>& Differences() const { return differences_; }
  /// The places of all that can come back.
  std::vector<size_t> AllThatCanComeBack() const;
  const PieceShape& Shape(PieceKind kind) const { return shapes_.at(kind); }
  /// Whether what pieces point at is not there today, or is somebody else's by now.
  bool IsGone(const RowName& row) const { return gone_.contains(row); }

 private:
  void Load(Business& business, const OpenedBackup& backup);
  void NoteWhatIsGone(Business& business, const OpenedBackup& backup);
  void CompareClient();
  void ComparePieces(PieceKind kind);
  void AddPair(PieceKind kind, const Piece& then, const Piece& now);
  /// Whether a piece points at something today, where the backup points at what is gone: it came
  /// back under another number, or was given another since, which is better than none.
  bool IsLedElsewhere(const PieceShape& shape, size_t column, const Piece& then,
                      const Piece& now) const;

  Id<Client> client_;
  QString nameThen_;
  QString nameToday_;
  std::map<PieceKind, PieceShape> shapes_;
  std::map<PieceKind, std::vector<Piece>> then_;
  std::map<PieceKind, std::vector<Piece>> now_;
  std::set<RowName> gone_;
  std::vector<ClientDifference> differences_;
};

/// A column by which pieces point at rows outside of them, and what becomes of a piece whose row is
/// gone.
struct OutwardLink {
  PieceKind kind;
  const char* column;
  const char* table;
  const char* key;
  const char* witness;  // a column that tells the row from another that was given its number
  const char* without;
};
const std::array<OutwardLink, 5>& OutwardLinks();

}  // namespace quillary::maintenance
