#include "maintenance/oneclient/DifferenceWords.h"

#include "base/Text.h"
#include "data/store/Statement.h"
#include "domain/EntryStatus.h"

namespace quillary::maintenance {
namespace {

QString DayOf(const Value& value) {
  return value.IsDate() ? ToShortDateText(value.ToDate()) : QStringLiteral("no day");
}

/// "Display_Name" as a heading: "Display name"; of a key the word for what it is the key of.
QString ColumnWords(const QString& column) {
  static const std::map<QString, QString> ownWords = {
      {"Billing_Client_ID", "Paid by"},
      {"Is_Billed_To", "Pays for others"},
      {"Other_Schedule_Client_Service_ID", "Comes along with"},
      {"InvoiceWithOutstanding", "Invoice with outstanding"},
      {"InvoiceWithNextJob", "Invoice with next job"},
      {"InvoiceWithUnpaidPastJobs", "Invoice with unpaid past jobs"},
      {"InvoiceWithTelNo", "Invoice with telephone"},
      {"StatementWithPayments", "Statement with payments"},
      {"WorkCoverLabel", "Work cover label"},
      {"IsPaid", "Paid"},
      {"Total_GST", "Tax"},
      {"GST_Included", "Tax included"}};
  const auto own = ownWords.find(column);
  if (own != ownWords.end()) return own->second;
  QString words = column;
  if (words.endsWith(QStringLiteral("_ID"))) words.chop(3);
  words = words.replace(u'_', u' ').toLower();
  if (!words.isEmpty()) words[0] = words[0].toUpper();
  return words;
}

QString WordOf(PieceKind kind) {
  switch (kind) {
    case PieceKind::Client:
      return QStringLiteral("Client");
    case PieceKind::Service:
      return QStringLiteral("Service");
    case PieceKind::Quote:
      return QStringLiteral("Quote");
    case PieceKind::Invoice:
      return QStringLiteral("Invoice");
    case PieceKind::Payment:
      return QStringLiteral("Payment");
    case PieceKind::Entry:
      return QStringLiteral("Job");
  }
  return {};
}

void ReadNames(sqlite3* file, const char* statement, std::map<qint64, QString>& names) {
  Statement rows(file, statement);
  while (rows.Step())
    names.emplace(rows.Column(0, jet::ColumnType::Long).ToLong(),
                  rows.Column(1, jet::ColumnType::Text).ToText());
}

}  // namespace

DifferenceWords::DifferenceWords(Business& business, const OpenedBackup& backup,
                                 const ClientComparison& of)
    : comparison_(of) {
  // A name that is gone today is still known to the backup.
  for (sqlite3* file : {business.StoreConnection().Handle(), backup.Handle()}) {
    ReadNames(file, "SELECT Service_ID, Service FROM Services", services_);
    ReadNames(file, "SELECT Employee_ID, Employee_Name FROM Employees", employees_);
    ReadNames(file, "SELECT Client_ID, Display_Name FROM Clients", payers_);
    ReadNames(file, "SELECT Invoice_ID, Invoice_Number FROM Invoices", invoices_);
    ReadNames(file, "SELECT Payment_ID, Payment_Date FROM Payments", payments_);
  }
  for (const Record row : business.RunSQL(Sql("SELECT Invoice_Number FROM Invoices")))
    numbersToday_.insert(row[size_t{0}].ToText());
}

void DifferenceWords::Fill(ClientDifference& difference) const {
  const PieceShape& shape = comparison_.Shape(difference.kind);
  const Piece& piece = difference.backup ? *difference.backup : *difference.today;
  difference.what = What(shape, piece);
  if (difference.since == Since::Changed) {
    if (difference.kind == PieceKind::Client)
      difference.what = ColumnWords(shape.heads[difference.columns.front()].name);
    difference.then = Changes(shape, difference, *difference.backup);
    difference.now = Changes(shape, difference, *difference.today);
  } else {
    (difference.backup ? difference.then : difference.now) = Summary(shape, piece);
  }
  if (!difference.backup) return;
  // After a whole restoration numbers go on from where the restored file stood.
  const QString number = shape.Cell(piece, "Invoice_Number").ToText();
  if (difference.kind == PieceKind::Invoice && difference.since == Since::Missing &&
      numbersToday_.contains(number)) {
    difference.canComeBack = false;
    difference.remark = QStringLiteral("Another invoice has its number now: stays in the backup.");
    return;
  }
  difference.remark = Remark(shape, difference);
}

QString DifferenceWords::What(const PieceShape& shape, const Piece& piece) const {
  const PieceKind kind = shape.facts.value;
  switch (kind) {
    case PieceKind::Client:
      return QStringLiteral("The client");
    case PieceKind::Service:
      return QStringLiteral("Service ") + NameIn(services_, shape.Cell(piece, "Service_ID"));
    case PieceKind::Invoice:
      return QStringLiteral("Invoice ") + shape.Cell(piece, "Invoice_Number").ToText();
    case PieceKind::Quote:
      return QStringLiteral("Quote of ") + DayOf(shape.Cell(piece, "Quote_Date"));
    case PieceKind::Payment:
      return QStringLiteral("Payment of ") + DayOf(shape.Cell(piece, "Payment_Date"));
    case PieceKind::Entry:
      break;
  }
  const StoredEntryStatus status(shape.Cell(piece, "Status").ToText());
  const EntryKind entry = KindOf(status).value_or(EntryKind::Job);
  const QString word = entry == EntryKind::Visit   ? QStringLiteral("Visit")
                       : entry == EntryKind::Quote ? QStringLiteral("Visit for a quote")
                                                   : WordOf(kind);
  return word + QStringLiteral(" of ") + DayOf(shape.Cell(piece, "Schedule_Date"));
}

QString DifferenceWords::Summary(const PieceShape& shape, const Piece& piece) const {
  const QString head = OfHead(shape, piece);
  // Of a job and a quote the lines are what it is about.
  const bool isOfServices = PlaceOf(shape.parts, "Service_ID").has_value();
  const QString lines = isOfServices ? Lines(shape, piece) : QString();
  if (lines.isEmpty()) return head;
  return head.isEmpty() ? lines : head + QStringLiteral(": ") + lines;
}

QString DifferenceWords::OfHead(const PieceShape& shape, const Piece& piece) const {
  const auto money = [&](const char* column) {
    return shape.Cell(piece, column).ToMoney().ToCurrencyText();
  };
  const auto text = [&](const char* column) { return shape.Cell(piece, column).ToText(); };
  QStringList words;
  switch (shape.facts.value) {
    case PieceKind::Client:
      words = {text("Display_Name"), text("Status"), text("Street_Number") + u' ' + text("Street"),
               text("Suburb")};
      break;
    case PieceKind::Service: {
      const qint64 days = shape.Cell(piece, "Frequency").ToLong();
      words = {text("Status"), money("Price"),
               days > 0 ? QStringLiteral("every ") + Counted(static_cast<size_t>(days), "day")
                        : QString(),
               text("Notes")};
      break;
    }
    case PieceKind::Quote:
      words = {text("Description")};
      break;
    case PieceKind::Invoice:
      words = {DayOf(shape.Cell(piece, "Generation_Date")), money("Total_Amount"),
               text("Invoice_Description")};
      break;
    case PieceKind::Payment:
      words = {money("Amount"), text("Payment_Method"), text("Description")};
      break;
    case PieceKind::Entry:
      words = {WordsOf(StoredEntryStatus(text("Status"))), money("Total_Price"), text("Notes")};
      break;
  }
  QStringList said;
  for (const QString& word : words)
    if (!word.trimmed().isEmpty()) said += word.simplified();
  return said.join(QStringLiteral(", "));
}

QString DifferenceWords::Lines(const PieceShape& shape, const Piece& piece) const {
  std::optional<size_t> words;
  std::optional<size_t> amount;
  for (const char* name : {"Service_ID", "Item_Description", "GL_Entry_Description"})
    if (!words) words = PlaceOf(shape.parts, name);
  for (const char* name : {"Price", "Item_Amount", "GL_Amount"})
    if (!amount) amount = PlaceOf(shape.parts, name);
  if (!words || !amount) return {};
  QStringList lines;
  for (const PieceRow& part : piece.parts) {
    const Value& what = part.cells[*words];
    const QString said =
        shape.parts[*words].type == jet::ColumnType::Long ? NameIn(services_, what) : what.ToText();
    lines += (said + u' ' + part.cells[*amount].ToMoney().ToCurrencyText()).simplified();
  }
  return lines.isEmpty() ? QStringLiteral("no lines") : lines.join(QStringLiteral(", "));
}

QString DifferenceWords::Changes(const PieceShape& shape, const ClientDifference& of,
                                 const Piece& piece) const {
  QStringList words;
  for (const size_t column : of.columns) {
    const QString cell = CellWords(shape, column, piece.head.cells[column]);
    words += of.kind == PieceKind::Client
                 ? cell
                 : ColumnWords(shape.heads[column].name) + QStringLiteral(": ") + cell;
  }
  if (of.partsDiffer) words += Lines(shape, piece);
  return words.join(QStringLiteral("; "));
}

QString DifferenceWords::CellWords(const PieceShape& shape, size_t column,
                                   const Value& value) const {
  const jet::Column& known = shape.heads[column];
  if (known.type == jet::ColumnType::YesNo)
    return value.ToBool() ? QStringLiteral("yes") : QStringLiteral("no");
  if (IsSameCell(value, Value()) && known.type != jet::ColumnType::Currency)
    return QStringLiteral("none");
  if (known.type == jet::ColumnType::Currency) return value.ToMoney().ToCurrencyText();
  if (known.type == jet::ColumnType::Date) return DayOf(value);
  if (known.name == u"Service_ID") return NameIn(services_, value);
  if (known.name == u"Employee_ID") return NameIn(employees_, value);
  if (known.name == u"Billing_Client_ID") return NameIn(payers_, value);
  if (known.name == u"Invoice_ID") return NameIn(invoices_, value);
  if (known.name == u"Payment_ID") {
    const auto moment = FromIsoText(NameIn(payments_, value));
    return moment ? QStringLiteral("of ") + ToShortDateText(moment->date) : NameIn({}, value);
  }
  if (shape.facts.value == PieceKind::Entry && known.name == u"Status")
    return WordsOf(StoredEntryStatus(value.ToText()));
  return value.ToText().simplified();
}

QString DifferenceWords::Remark(const PieceShape& shape, const ClientDifference& of) const {
  QStringList remarks;
  for (const OutwardLink& link : OutwardLinks()) {
    if (link.kind != of.kind) continue;
    const auto at = PlaceOf(shape.heads, link.column);
    if (!at || (of.today && std::ranges::find(of.columns, *at) == of.columns.end())) continue;
    const qint64 number = of.backup->head.cells[*at].ToLong();
    const bool isOwn = link.kind == PieceKind::Client && number == comparison_.ClientId().Number();
    if (number == 0 || isOwn || !comparison_.IsGone({link.table, number})) continue;
    // What is missing too can be ticked as well.
    const bool isListed =
        std::ranges::any_of(comparison_.Differences(), [&](const ClientDifference& other) {
          return other.since == Since::Missing && other.backup->head.number == number &&
                 FactsOf(other.kind).heads.table == std::string_view(link.table);
        });
    remarks += QString::fromUtf8(link.without) +
               (isListed ? QStringLiteral(", unless that is ticked too.") : QStringLiteral("."));
  }
  return remarks.join(u' ');
}

QString DifferenceWords::NameIn(const Names& names, const Value& number) const {
  const auto found = names.find(number.ToLong());
  if (found != names.end() && !found->second.isEmpty()) return found->second;
  return number.ToLong() == 0 ? QStringLiteral("none")
                              : QStringLiteral("number %1").arg(number.ToLong());
}

}  // namespace quillary::maintenance
