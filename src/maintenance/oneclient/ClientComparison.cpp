#include "maintenance/oneclient/ClientComparison.h"

#include "data/store/Connection.h"
#include "data/store/Statement.h"
#include "domain/EntryStatus.h"
#include "maintenance/oneclient/DifferenceWords.h"

#include <algorithm>

namespace quillary::maintenance {
namespace {

bool IsMadeByTheRoll(const PieceShape& shape, const Piece& piece) {
  return shape.facts.value == PieceKind::Entry &&
         StoredEntryStatus(shape.Cell(piece, "Status").ToText()).IsIn(EntryGroup::RebuiltByRoll);
}

bool IsLink(PieceKind kind, const QString& column) {
  return std::ranges::any_of(OutwardLinks(), [&](const OutwardLink& link) {
    return link.kind == kind && column == QLatin1StringView(link.column);
  });
}

/// What a piece says, whatever its number: one that came back under another number is known by it.
QString ContentOf(const PieceShape& shape, const Piece& piece) {
  const auto words = [](const Value& value) {
    return IsSameCell(value, Value()) ? QString() : value.ToText();
  };
  QStringList content;
  for (size_t at = 0; at < shape.heads.size(); ++at) {
    const QString& name = shape.heads[at].name;
    if (!IsOwnAffair(shape.facts.heads, name) && !IsLink(shape.facts.value, name))
      content += words(piece.head.cells[at]);
  }
  for (const PieceRow& part : piece.parts)
    for (size_t at = 0; at < shape.parts.size(); ++at)
      if (shape.parts[at].name != QLatin1StringView(shape.facts.heads.key))
        content += words(part.cells[at]);
  return content.join(QChar(0x1f));
}

bool AreSameParts(const PieceShape& shape, const Piece& one, const Piece& other) {
  return std::ranges::equal(one.parts, other.parts, [&](const PieceRow& a, const PieceRow& b) {
    for (size_t at = 0; at < shape.parts.size(); ++at)
      if (shape.parts[at].name != QLatin1StringView(shape.facts.heads.key) &&
          !IsSameCell(a.cells[at], b.cells[at]))
        return false;
    return true;
  });
}

/// The witness of a row; nothing when the row is not there.
std::optional<Value> WitnessOf(sqlite3* file, const OutwardLink& link, qint64 number) {
  Statement row(file, std::string("SELECT ") + link.witness + " FROM " + link.table + " WHERE " +
                          link.key + " = ?1");
  row.Bind(1, Value(number));
  if (!row.Step()) return std::nullopt;
  return row.Column(0, jet::ColumnType::Text);
}

}  // namespace

const std::array<OutwardLink, 5>& OutwardLinks() {
  static const std::array<OutwardLink, 5> links = {{
      {PieceKind::Client, "Billing_Client_ID", "Clients", "Client_ID", "Client_ID",
       "Who paid is gone: comes back as paying for itself"},
      {PieceKind::Service, "Other_Schedule_Client_Service_ID", "Client_Services",
       "Client_Service_ID", "Client_ID",
       "The service that it came along with is gone: comes back with a rhythm of its own"},
      {PieceKind::Payment, "Banking_ID", "Bankings", "Banking_ID", "Banking_Date",
       "Its deposit is gone: comes back as waiting to be banked"},
      {PieceKind::Entry, "Invoice_ID", "Invoices", "Invoice_ID", "Client_ID",
       "Its invoice is gone: comes back as done and not invoiced"},
      {PieceKind::Entry, "Payment_ID", "Payments", "Payment_ID", "Client_ID",
       "Its payment is gone: comes back as unpaid"},
  }};
  return links;
}

ClientComparison::ClientComparison(Business& business, const OpenedBackup& backup,
                                   Id<Client> client)
    : client_(client) {
  Load(business, backup);
  NoteWhatIsGone(business, backup);
  CompareClient();
  for (const PieceFacts& facts : AllPieceFacts())
    if (facts.value != PieceKind::Client) ComparePieces(facts.value);
  const DifferenceWords words(business, backup, *this);
  for (ClientDifference& difference : differences_) words.Fill(difference);
}

void ClientComparison::Load(Business& business, const OpenedBackup& backup) {
  business.ConnectToDatabase();
  Connection& today = business.StoreConnection();
  for (const PieceFacts& facts : AllPieceFacts()) {
    PieceShape shape{facts, CommonColumns(facts.heads, today.Schema(), backup.Handle()), {}};
    if (facts.parts) shape.parts = CommonColumns(*facts.parts, today.Schema(), backup.Handle());
    then_[facts.value] = LoadPieces(backup.Handle(), shape, client_.Number());
    now_[facts.value] = LoadPieces(today.Handle(), shape, client_.Number());
    shapes_.emplace(facts.value, std::move(shape));
  }
  const auto nameIn = [this](const std::vector<Piece>& clients) {
    return clients.empty() ? QString()
                           : Shape(PieceKind::Client).Cell(clients[0], "Display_Name").ToText();
  };
  nameThen_ = nameIn(then_[PieceKind::Client]);
  nameToday_ = nameIn(now_[PieceKind::Client]);
}

void ClientComparison::NoteWhatIsGone(Business& business, const OpenedBackup& backup) {
  sqlite3* const today = business.StoreConnection().Handle();
  for (const OutwardLink& link : OutwardLinks()) {
    for (const Piece& piece : then_[link.kind]) {
      const qint64 number = Shape(link.kind).Cell(piece, link.column).ToLong();
      if (number == 0) continue;
      const auto now = WitnessOf(today, link, number);
      if (!now || now != WitnessOf(backup.Handle(), link, number))
        gone_.insert({link.table, number});
    }
  }
}

void ClientComparison::CompareClient() {
  const std::vector<Piece>& then = then_[PieceKind::Client];
  const std::vector<Piece>& now = now_[PieceKind::Client];
  if (then.empty()) return;
  if (now.empty()) {
    differences_.push_back({.since = Since::Missing, .backup = &then[0]});
    return;
  }
  // Each field is a choice of its own: a lost note comes back without the old telephone number.
  AddPair(PieceKind::Client, then[0], now[0]);
  if (differences_.empty()) return;
  const ClientDifference all = std::move(differences_.back());
  differences_.pop_back();
  for (const size_t column : all.columns) {
    ClientDifference one = all;
    one.columns = {column};
    differences_.push_back(std::move(one));
  }
}

void ClientComparison::ComparePieces(PieceKind kind) {
  const PieceShape& shape = Shape(kind);
  const std::vector<Piece>& now = now_[kind];
  std::map<qint64, const Piece*> byNumber;
  for (const Piece& piece : now) byNumber[piece.head.number] = &piece;
  std::vector<const Piece*> unpaired;
  for (const Piece& piece : then_[kind]) {
    const auto same = byNumber.find(piece.head.number);
    if (same == byNumber.end()) {
      unpaired.push_back(&piece);
      continue;
    }
    AddPair(kind, piece, *same->second);
    byNumber.erase(same);
  }
  std::multimap<QString, const Piece*> byContent;
  for (const auto& [number, piece] : byNumber) byContent.emplace(ContentOf(shape, *piece), piece);
  for (const Piece* piece : unpaired) {
    const auto same = byContent.find(ContentOf(shape, *piece));
    if (same != byContent.end()) {
      AddPair(kind, *piece, *same->second);
      byContent.erase(same);
    } else if (!IsMadeByTheRoll(shape, *piece)) {
      differences_.push_back({.kind = kind, .since = Since::Missing, .backup = piece});
    }
  }
  for (const auto& [content, piece] : byContent)
    if (!IsMadeByTheRoll(shape, *piece))
      differences_.push_back(
          {.kind = kind, .since = Since::New, .canComeBack = false, .today = piece});
}

void ClientComparison::AddPair(PieceKind kind, const Piece& then, const Piece& now) {
  const PieceShape& shape = Shape(kind);
  if (IsMadeByTheRoll(shape, then) && IsMadeByTheRoll(shape, now)) return;
  ClientDifference pair{.kind = kind, .since = Since::Changed, .backup = &then, .today = &now};
  for (size_t at = 0; at < shape.heads.size(); ++at)
    if (!IsOwnAffair(shape.facts.heads, shape.heads[at].name) &&
        !IsSameCell(then.head.cells[at], now.head.cells[at]) &&
        !IsLedElsewhere(shape, at, then, now))
      pair.columns.push_back(at);
  pair.partsDiffer = !AreSameParts(shape, then, now);
  if (!pair.columns.empty() || pair.partsDiffer) differences_.push_back(std::move(pair));
}

bool ClientComparison::IsLedElsewhere(const PieceShape& shape, size_t column, const Piece& then,
                                      const Piece& now) const {
  if (now.head.cells[column].ToLong() == 0) return false;
  return std::ranges::any_of(OutwardLinks(), [&](const OutwardLink& link) {
    return link.kind == shape.facts.value &&
           shape.heads[column].name == QLatin1StringView(link.column) &&
           IsGone({link.table, then.head.cells[column].ToLong()});
  });
}

std::vector<size_t> ClientComparison::AllThatCanComeBack() const {
  std::vector<size_t> places;
  for (size_t at = 0; at < differences_.size(); ++at)
    if (differences_[at].canComeBack) places.push_back(at);
  return places;
}

}  // namespace quillary::maintenance
