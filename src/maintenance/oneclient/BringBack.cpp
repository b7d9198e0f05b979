#include "maintenance/oneclient/BringBack.h"

#include "balances/ClientBalance.h"
#include "base/Text.h"
#include "data/store/Connection.h"
#include "domain/EntryStatus.h"
#include "roll/ScheduleEngine.h"

#include <QRegularExpression>

#include <algorithm>

namespace quillary::maintenance {
namespace {

using Cells = std::vector<std::pair<QString, Value>>;

/// A service that comes along with another comes back after it; otherwise as the kinds stand.
void Order(std::vector<const ClientDifference*>& chosen, const ClientComparison& comparison) {
  std::ranges::stable_sort(chosen, {}, [&](const ClientDifference* difference) {
    const bool comesAlong = difference->kind == PieceKind::Service &&
                            comparison.Shape(PieceKind::Service)
                                    .Cell(*difference->backup, "Other_Schedule_Client_Service_ID")
                                    .ToLong() != 0;
    return std::pair(difference->kind, comesAlong);
  });
}

/// One run of bringing back.
class Return {
 public:
  Return(Business& business, const ClientComparison& comparison)
      : business_(business), comparison_(comparison) {}

  BroughtBack Run(const std::vector<const ClientDifference*>& chosen) {
    Transaction all(business_);
    const auto payerBefore = Payer();
    for (const ClientDifference* difference : chosen) Take(*difference);
    if (rollsAnew_) roll::AdvanceScheduleForClient(business_, Client());
    if (payerBefore && payerBefore != Payer())
      balances::RecalculateClientBalance(business_, payerBefore);
    balances::RecalculateClientAndPayer(business_, Client());
    all.Commit();
    told_.removeDuplicates();
    return {chosen.size(), {}, told_};
  }

 private:
  Id<quillary::Client> Client() const { return comparison_.ClientId(); }

  std::optional<Id<quillary::Client>> Payer() {
    const auto info = balances::GetClientBillingInfo(business_, Client());
    return info ? std::optional(info->payer) : std::nullopt;
  }

  void Take(const ClientDifference& difference) {
    const PieceShape& shape = comparison_.Shape(difference.kind);
    const bool isMissing = difference.since == Since::Missing;
    rollsAnew_ =
        rollsAnew_ || difference.kind == PieceKind::Client || difference.kind == PieceKind::Service;
    if (isMissing) {
      const qint64 number = Insert(shape, *difference.backup);
      returned_[{shape.facts.heads.table, difference.backup->head.number}] = number;
      ReplaceParts(shape, *difference.backup, number);
    } else {
      Update(shape, difference);
    }
    if (difference.kind == PieceKind::Invoice) SpendInvoiceNumber(shape, *difference.backup);
  }

  /// Returns the number under which it stands.
  qint64 Insert(const PieceShape& shape, const Piece& piece) {
    Cells cells;
    for (size_t at = 0; at < shape.heads.size(); ++at)
      cells.emplace_back(shape.heads[at].name, CellToStore(shape, piece, at));
    return InsertRow(shape.facts.heads, piece.head.number, cells);
  }

  /// Under a head that was gone there may be lines that it left behind.
  void ReplaceParts(const PieceShape& shape, const Piece& piece, qint64 head) {
    if (!shape.facts.parts) return;
    business_.Write(Sql("DELETE FROM {} WHERE {} = {}", Sql(shape.facts.parts->table),
                        Sql(shape.facts.heads.key), head));
    for (const PieceRow& part : piece.parts) {
      Cells cells;
      for (size_t at = 0; at < shape.parts.size(); ++at) {
        const QString& name = shape.parts[at].name;
        const bool isLink = name == QLatin1StringView(shape.facts.heads.key);
        cells.emplace_back(name, isLink ? Value(head) : part.cells[at]);
      }
      InsertRow(*shape.facts.parts, part.number, cells);
    }
  }

  /// A number that another row has been given is not taken from it.
  qint64 InsertRow(const PieceTable& table, qint64 number, Cells cells) {
    const bool isFree = table.key != nullptr && IsFree(table, number);
    if (isFree) cells.emplace_back(QLatin1StringView(table.key), number);
    Sql names("");
    Sql values("");
    for (const auto& [name, value] : cells) {
      const Sql comma(&name == &cells.front().first ? "" : ", ");
      names = names + Sql("{}[{}]", comma, Sql(qUtf8Printable(name)));
      values = values + Sql("{}{}", comma, value);
    }
    business_.Write(Sql("INSERT INTO {} ({}) VALUES ({})", Sql(table.table), names, values),
                    Rows::Exactly(1));
    return isFree || table.key == nullptr ? number : business_.StoreConnection().LastInsertedKey();
  }

  bool IsFree(const PieceTable& table, qint64 number) {
    const Sql count("SELECT Count(*) FROM {} WHERE {} = {}", Sql(table.table), Sql(table.key),
                    number);
    return business_.FirstField(count).ToLong() == 0;
  }

  void Update(const PieceShape& shape, const ClientDifference& difference) {
    const PieceTable& table = shape.facts.heads;
    const qint64 number = difference.today->head.number;
    for (const size_t at : difference.columns)
      business_.Write(Sql("UPDATE {} SET [{}] = {} WHERE {} = {}", Sql(table.table),
                          Sql(qUtf8Printable(shape.heads[at].name)),
                          CellToStore(shape, *difference.backup, at), Sql(table.key), number),
                      Rows::Exactly(1));
    if (difference.partsDiffer) ReplaceParts(shape, *difference.backup, number);
  }

  /// The cell as the backup has it, with what it points at led to where that stands today.
  Value CellToStore(const PieceShape& shape, const Piece& piece, size_t column) {
    const PieceKind kind = shape.facts.value;
    const QString& name = shape.heads[column].name;
    const Value& value = piece.head.cells[column];
    if (kind == PieceKind::Entry && name == u"Status") return StatusToStore(shape, piece);
    if (kind == PieceKind::Client && name == u"Account_Balance") return Money();
    for (const OutwardLink& link : OutwardLinks())
      if (link.kind == kind && name == QLatin1StringView(link.column))
        return LinkToStore(link, value.ToLong());
    return value;
  }

  Value LinkToStore(const OutwardLink& link, qint64 number) {
    if (number == 0) return {};
    if (link.kind == PieceKind::Client && number == Client().Number()) return number;
    const auto returned = returned_.find({link.table, number});
    if (returned != returned_.end()) return returned->second;
    if (!comparison_.IsGone({link.table, number})) return number;
    told_ += QString::fromUtf8(link.without) + u'.';
    if (link.kind == PieceKind::Client) return Client().Number();
    return {};
  }

  /// An invoiced job whose invoice does not come back waits to be billed.
  Value StatusToStore(const PieceShape& shape, const Piece& piece) {
    const Value status = shape.Cell(piece, "Status");
    const RowName invoice{"Invoices", shape.Cell(piece, "Invoice_ID").ToLong()};
    const bool isWithout =
        invoice.second != 0 && comparison_.IsGone(invoice) && !returned_.contains(invoice);
    if (!isWithout || !StoredEntryStatus(status.ToText()).Is(EntryStatus::JobInvoiced))
      return status;
    return Value(EntryStatus::JobDone);
  }

  void SpendInvoiceNumber(const PieceShape& shape, const Piece& piece) {
    static const QRegularExpression digits(QStringLiteral("^\\d{1,9}"));
    const auto leading = digits.match(shape.Cell(piece, "Invoice_Number").ToText().trimmed());
    if (!leading.hasMatch()) return;
    const qint64 number = leading.captured().toLongLong();
    business_.Write(
        Sql("UPDATE infSystem SET Invoice_Number = {} WHERE Invoice_Number < {} OR "
            "Invoice_Number IS NULL",
            number, number));
  }

  Business& business_;
  const ClientComparison& comparison_;
  std::map<RowName, qint64> returned_;  // where what came back stands
  QStringList told_;
  bool rollsAnew_ = false;
};

QString CountedPieces(const std::vector<const ClientDifference*>& chosen) {
  constexpr struct {
    PieceKind kind;
    const char* one;
    const char* many;
  } kWords[] = {{PieceKind::Client, "detail", "details"}, {PieceKind::Service, "service", nullptr},
                {PieceKind::Entry, "job", nullptr},       {PieceKind::Quote, "quote", nullptr},
                {PieceKind::Invoice, "invoice", nullptr}, {PieceKind::Payment, "payment", nullptr}};
  QStringList words;
  for (const auto& [kind, one, many] : kWords) {
    const auto count = std::ranges::count(chosen, kind, &ClientDifference::kind);
    if (count > 0) words += Counted(static_cast<size_t>(count), one, many);
  }
  return words.join(QStringLiteral(", "));
}

}  // namespace

BroughtBack BringBack(Business& business, const ClientComparison& comparison,
                      const std::vector<size_t>& places) {
  std::vector<const ClientDifference*> chosen;
  for (const size_t place : places) {
    const ClientDifference& difference = comparison.Differences().at(place);
    if (difference.canComeBack) chosen.push_back(&difference);
  }
  if (chosen.empty()) return {};
  const ClientDifference& first = comparison.Differences().front();
  const bool isClientGone = !comparison.IsThereToday();
  if (isClientGone && std::ranges::find(chosen, &first) == chosen.end())
    chosen.insert(chosen.begin(), &first);
  Order(chosen, comparison);
  BroughtBack back = Return(business, comparison).Run(chosen);
  back.words =
      QStringLiteral("Brought back for %1: %2").arg(comparison.NameThen(), CountedPieces(chosen));
  business.PastCommands().Describe(back.words);
  return back;
}

bool BringBackAfterAsking(Business& business, Prompter& prompter,
                          const ClientComparison& comparison, const std::vector<size_t>& places) {
  size_t changed = 0;
  size_t coming = 0;
  for (const size_t place : places) {
    const ClientDifference& difference = comparison.Differences().at(place);
    coming += difference.canComeBack;
    changed += difference.canComeBack && difference.since == Since::Changed;
  }
  if (coming == 0) {
    prompter.Tell(Tone::Exclamation,
                  places.empty()
                      ? QStringLiteral("Please tick what is to be brought back.")
                      : QStringLiteral("The backup has nothing to bring back of what is ticked."));
    return false;
  }
  // Only what stands today and is overwritten is lost; what is missing just comes back.
  if (changed > 0 &&
      prompter.AskBeforeLosing(
          QStringLiteral("%1 of what you ticked was changed since the backup and will be as it was "
                         "then.\n\nBring it back?")
              .arg(Counted(changed, "row"))) != Answer::Yes)
    return false;
  const BusyWhile busy(business.World().busy);
  const BroughtBack back = BringBack(business, comparison, places);
  prompter.Tell(Tone::Information, (QStringList{back.words + u'.'} + back.told).join(u'\n'));
  return true;
}

}  // namespace quillary::maintenance
