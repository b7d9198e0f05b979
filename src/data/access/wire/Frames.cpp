#include "data/access/wire/Frames.h"

#include <QDataStream>
#include <QIODevice>

#include <utility>

namespace quillary::wire {
namespace {

constexpr auto kStreamVersion = QDataStream::Qt_6_0;

enum class Tag : quint8 { Null, Whole, Fraction, Currency, YesNo, Moment, Text };

constexpr quint8 kLastColumnType = static_cast<quint8>(jet::ColumnType::Memo);

void WriteValue(QDataStream& out, const Value& value) {
  const auto tag = [&out](Tag t) -> QDataStream& { return out << static_cast<quint8>(t); };
  const Value::Variant& held = value.variant();
  if (const auto* whole = std::get_if<qint64>(&held)) {
    tag(Tag::Whole) << *whole;
  } else if (const auto* fraction = std::get_if<double>(&held)) {
    tag(Tag::Fraction) << *fraction;
  } else if (const auto* amount = std::get_if<Money>(&held)) {
    tag(Tag::Currency) << amount->Units();
  } else if (const auto* yes = std::get_if<bool>(&held)) {
    tag(Tag::YesNo) << *yes;
  } else if (const auto* moment = std::get_if<DateTime>(&held)) {
    tag(Tag::Moment) << moment->date.toJulianDay() << moment->time.msecsSinceStartOfDay();
  } else if (const auto* text = std::get_if<QString>(&held)) {
    tag(Tag::Text) << *text;
  } else {
    tag(Tag::Null);
  }
}

std::optional<Value> ReadMoment(QDataStream& in) {
  qint64 day = 0;
  int milliseconds = 0;
  in >> day >> milliseconds;
  const DateTime moment(QDate::fromJulianDay(day), QTime::fromMSecsSinceStartOfDay(milliseconds));
  if (!moment.IsValid()) return std::nullopt;
  return Value(moment);
}

template <typename T>
Value Read(QDataStream& in) {
  T held{};
  in >> held;
  return Value(held);
}

std::optional<Value> ReadValue(QDataStream& in) {
  quint8 tag = 0;
  in >> tag;
  switch (static_cast<Tag>(tag)) {
    case Tag::Null:
      return Value();
    case Tag::Whole:
      return Read<qint64>(in);
    case Tag::Fraction:
      return Read<double>(in);
    case Tag::Currency: {
      qint64 units = 0;
      in >> units;
      return Value(Money::FromUnits(units));
    }
    case Tag::YesNo:
      return Read<bool>(in);
    case Tag::Moment:
      return ReadMoment(in);
    case Tag::Text:
      return Read<QString>(in);
  }
  return std::nullopt;
}

std::optional<AccessTable> ReadTable(QDataStream& in) {
  AccessTable table;
  quint32 leftOut = 0;
  quint32 columns = 0;
  in >> table.schema.name >> leftOut;
  // One by one: Qt would make room for as many as are announced before it looks for the first.
  for (quint32 i = 0; i < leftOut && in.status() == QDataStream::Ok; ++i)
    table.columnsLeftOut += Read<QString>(in).ToText();
  in >> table.declaredRows >> table.lastCounter >> columns;
  for (quint32 i = 0; i < columns && in.status() == QDataStream::Ok; ++i) {
    jet::Column column;
    quint8 type = 0;
    qint32 width = 0;
    in >> column.name >> type >> width;
    if (type > kLastColumnType) return std::nullopt;
    column.type = static_cast<jet::ColumnType>(type);
    column.width = width;
    table.schema.columns.push_back(column);
  }
  if (in.status() != QDataStream::Ok) return std::nullopt;
  return table;
}

}  // namespace

QByteArray PackFrame(FrameKind kind, const QByteArray& content) {
  QByteArray bytes;
  QDataStream out(&bytes, QIODevice::WriteOnly);
  out << static_cast<quint32>(content.size()) << static_cast<quint8>(kind);
  return bytes + content;
}

QByteArray PackTables(const std::vector<AccessTable>& tables) {
  QByteArray bytes;
  QDataStream out(&bytes, QIODevice::WriteOnly);
  out.setVersion(kStreamVersion);
  out << static_cast<quint32>(tables.size());
  for (const AccessTable& table : tables) {
    out << table.schema.name << static_cast<quint32>(table.columnsLeftOut.size());
    for (const QString& column : table.columnsLeftOut) out << column;
    out << table.declaredRows << table.lastCounter
        << static_cast<quint32>(table.schema.columns.size());
    for (const jet::Column& column : table.schema.columns) {
      out << column.name << static_cast<quint8>(column.type) << static_cast<qint32>(column.width);
    }
  }
  return bytes;
}

void RowPacker::Add(const std::vector<Value>& cells) {
  QDataStream out(&content_, QIODevice::WriteOnly | QIODevice::Append);
  out.setVersion(kStreamVersion);
  for (const Value& cell : cells) WriteValue(out, cell);
}

QByteArray RowPacker::Take() {
  return std::exchange(content_, {});
}

std::optional<std::vector<AccessTable>> UnpackTables(const QByteArray& content) {
  QDataStream in(content);
  in.setVersion(kStreamVersion);
  quint32 count = 0;
  in >> count;
  std::vector<AccessTable> tables;
  for (quint32 i = 0; i < count; ++i) {
    std::optional<AccessTable> table = ReadTable(in);
    if (!table) return std::nullopt;
    tables.push_back(std::move(*table));
  }
  if (in.status() != QDataStream::Ok || !in.atEnd()) return std::nullopt;
  return tables;
}

std::optional<std::vector<std::vector<Value>>> UnpackRows(const QByteArray& content,
                                                          size_t columns) {
  if (columns == 0) return std::nullopt;
  QDataStream in(content);
  in.setVersion(kStreamVersion);
  std::vector<std::vector<Value>> rows;
  while (!in.atEnd()) {
    std::vector<Value> cells;
    cells.reserve(columns);
    for (size_t i = 0; i < columns; ++i) {
      std::optional<Value> cell = ReadValue(in);
      if (!cell || in.status() != QDataStream::Ok) return std::nullopt;
      cells.push_back(std::move(*cell));
    }
    rows.push_back(std::move(cells));
  }
  return rows;
}

}  // namespace quillary::wire
