#include "data/access/reader/MdbFile.h"

#include "data/access/wire/AccessValues.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>

namespace quillary {
namespace {

using jet::ColumnType;

constexpr int kCataloguePage = 2;
constexpr int kLastCounterOffset = 20;  // in a table's first page, from Jet 4 on
constexpr int kRowOffsetMask = 0x1fff;
constexpr qint64 kMostRowsPerPage = 256;
constexpr int kMemoHeader = 12;
constexpr quint32 kMemoInline = 0x80000000U;
constexpr quint32 kMemoOnePage = 0x40000000U;
constexpr quint32 kMemoLength = 0x3fffffffU;

std::optional<ColumnType> TypeOf(const MdbColumn& column) {
  switch (column.col_type) {
    case MDB_BOOL:
      return ColumnType::YesNo;
    case MDB_BYTE:
    case MDB_INT:
      return ColumnType::Long;
    case MDB_LONGINT:
      return column.is_long_auto ? ColumnType::Counter : ColumnType::Long;
    case MDB_MONEY:
      return ColumnType::Currency;
    case MDB_FLOAT:
      return ColumnType::Single;
    case MDB_DOUBLE:
      return ColumnType::Double;
    case MDB_DATETIME:
      return ColumnType::Date;
    case MDB_TEXT:
      return ColumnType::Text;
    case MDB_MEMO:
      return ColumnType::Memo;
    default:
      return std::nullopt;
  }
}

/// How many bytes a value of the type has; 0 when that varies.
int FixedSize(int type) {
  switch (type) {
    case MDB_BYTE:
      return 1;
    case MDB_INT:
      return 2;
    case MDB_LONGINT:
    case MDB_FLOAT:
      return 4;
    case MDB_MONEY:
    case MDB_DOUBLE:
    case MDB_DATETIME:
      return 8;
    default:
      return 0;
  }
}

template <typename T>
T Load(const char* bytes) {
  T value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

std::optional<Value> AsValue(std::optional<DateTime> moment) {
  if (!moment) return std::nullopt;
  return Value(*moment);
}

std::optional<Value> AsFraction(double fraction) {
  if (!std::isfinite(fraction)) return std::nullopt;
  return Value(fraction);
}

/// The number that was typed: .1 rather than the 0.10000000149 that widening would make of it.
double Widened(float narrow) {
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), narrow).ptr;
  double wide = 0;
  std::from_chars(digits.data(), end, wide);
  return wide;
}

std::optional<Value> AsAmount(qint64 units) {
  const Money amount = Money::FromUnits(units);
  if (amount > kLargestAmount || amount < -kLargestAmount) return std::nullopt;
  return Value(amount);
}

/// The value of a type with a fixed size; the pages are little-endian, as we are.
std::optional<Value> FixedValue(int type, const char* bytes) {
  switch (type) {
    case MDB_BYTE:
      return Value(Load<quint8>(bytes));
    case MDB_INT:
      return Value(Load<qint16>(bytes));
    case MDB_LONGINT:
      return Value(Load<qint32>(bytes));
    case MDB_MONEY:
      return AsAmount(Load<qint64>(bytes));
    case MDB_FLOAT: {
      const auto narrow = Load<float>(bytes);
      if (!std::isfinite(narrow)) return std::nullopt;
      return Value(Widened(narrow));
    }
    case MDB_DOUBLE:
      return AsFraction(Load<double>(bytes));
    case MDB_DATETIME:
      return AsValue(AccessDate(Load<double>(bytes)));
    default:
      return std::nullopt;
  }
}

}  // namespace

MdbFile::MdbFile(const QString& path) {
  mdb_ = mdb_open(path.toLocal8Bit().constData(), MDB_NOFLAGS);
  if (mdb_ == nullptr) throw UnreadableFile(QStringLiteral("its first page is damaged"));
  struct stat status {};
  if (fstat(fileno(mdb_->f->stream), &status) != 0) {
    throw UnreadableFile(QStringLiteral("its size cannot be told"));
  }
  mostRows_ = status.st_size / mdb_->fmt->pg_size * kMostRowsPerPage;
}

std::vector<AccessTable> MdbFile::ReadTables() {
  const GPtrArray* catalogue = mdb_read_catalog(mdb_, MDB_ANY);
  if (catalogue == nullptr) throw UnreadableFile(QStringLiteral("its list of tables is damaged"));
  CheckCatalogue(catalogue);
  for (guint i = 0; i < catalogue->len; ++i) {
    auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(catalogue, i));
    if (mdb_is_user_table(entry)) ReadTable(entry);
  }
  return tables_;
}

void MdbFile::CheckCatalogue(const GPtrArray* catalogue) {
  MdbCatalogEntry list{};
  list.mdb = mdb_;
  list.object_type = MDB_TABLE;
  list.table_pg = kCataloguePage;
  MdbTableDef* definition = mdb_read_table(&list);
  const bool complete = definition != nullptr && definition->num_rows == catalogue->len;
  if (definition != nullptr) mdb_free_tabledef(definition);
  if (!complete) {
    throw UnreadableFile(QStringLiteral("its list of tables is damaged, some may be missing"));
  }
}

void MdbFile::ReadTable(MdbCatalogEntry* entry) {
  AccessTable table;
  table.schema.name = QString::fromUtf8(entry->object_name);
  const auto damaged = [&table] {
    return UnreadableFile(QStringLiteral("the table %1 is damaged").arg(table.schema.name));
  };
  OpenTable open;
  open.definition = mdb_read_table(entry);
  if (open.definition == nullptr) throw damaged();
  if (mdb_read_columns(open.definition) == nullptr ||
      open.definition->columns->len != open.definition->num_cols) {
    throw damaged();
  }
  bool counts = false;
  for (guint i = 0; i < open.definition->columns->len; ++i) {
    auto* column = static_cast<MdbColumn*>(g_ptr_array_index(open.definition->columns, i));
    const QString name = QString::fromUtf8(column->name);
    if (name.isEmpty()) throw damaged();
    const std::optional<ColumnType> type = TypeOf(*column);
    if (!type) {
      table.columnsLeftOut += name;
      continue;
    }
    const int bytesPerLetter = IS_JET3(mdb_) ? 1 : 2;
    const int width = *type == ColumnType::Text ? column->col_size / bytesPerLetter : 0;
    table.schema.columns.push_back({name, *type, width});
    open.columns.push_back(column);
    counts = counts || *type == ColumnType::Counter;
  }
  table.declaredRows = open.definition->num_rows;
  if (counts && !IS_JET3(mdb_) && mdb_read_pg(mdb_, entry->table_pg) == mdb_->fmt->pg_size) {
    table.lastCounter = mdb_pg_get_int32(mdb_, kLastCounterOffset);
  }
  tables_.push_back(std::move(table));
  open_.push_back(std::move(open));
}

void MdbFile::BeginRows(size_t table) {
  current_ = &open_.at(table);
  rowsRead_ = 0;
  mdb_rewind_table(current_->definition);
}

std::optional<MdbFile::Row> MdbFile::NextRow() {
  if (mdb_fetch_row(current_->definition) == 0) return std::nullopt;
  if (++rowsRead_ > mostRows_) {
    throw UnreadableFile(QStringLiteral("its pages run in a circle"));
  }
  Row row;
  row.cells.reserve(current_->columns.size());
  for (const MdbColumn* column : current_->columns) {
    std::optional<Value> cell = ReadCell(*column);
    if (!cell) {
      row.fault = QStringLiteral("row %1: %2 is damaged")
                      .arg(rowsRead_)
                      .arg(QString::fromUtf8(column->name));
      return row;
    }
    row.cells.push_back(std::move(*cell));
  }
  return row;
}

std::optional<Value> MdbFile::ReadCell(const MdbColumn& column) {
  // libmdb says of a yes/no whether it is null, which is how a No is stored.
  if (column.col_type == MDB_BOOL) return Value(column.cur_value_len == 0);
  if (column.cur_value_len == 0) return Value();
  if (column.cur_value_start < 0 || column.cur_value_len < 0 ||
      column.cur_value_start + column.cur_value_len > mdb_->fmt->pg_size) {
    return std::nullopt;
  }
  const Bytes bytes{reinterpret_cast<const char*>(mdb_->pg_buf) + column.cur_value_start,
                    column.cur_value_len};
  if (column.col_type == MDB_TEXT) return ReadText(bytes);
  if (column.col_type == MDB_MEMO) return ReadMemo(bytes);
  if (bytes.size != FixedSize(column.col_type)) return std::nullopt;
  return FixedValue(column.col_type, bytes.data);
}

std::optional<Value> MdbFile::ReadText(Bytes bytes) {
  if (!IS_JET3(mdb_)) {
    const std::optional<QString> text = AccessText(QByteArrayView(bytes.data, bytes.size));
    if (!text) return std::nullopt;
    return Value(*text);
  }
  QByteArray utf8(bytes.size * 4 + 4, '\0');
  const int length = mdb_unicode2ascii(mdb_, bytes.data, static_cast<size_t>(bytes.size),
                                       utf8.data(), static_cast<size_t>(utf8.size()));
  if (length < 0) return std::nullopt;
  return Value(QString::fromUtf8(utf8.constData(), length));
}

std::optional<Value> MdbFile::ReadMemo(Bytes header) {
  if (header.size < kMemoHeader) return std::nullopt;
  const auto mark = Load<quint32>(header.data);
  if ((mark & kMemoInline) != 0) {
    return ReadText({header.data + kMemoHeader, header.size - kMemoHeader});
  }
  const std::optional<QByteArray> bytes = FollowMemo(mark & kMemoLength, (mark & kMemoOnePage) != 0,
                                                     Load<qint32>(header.data + sizeof mark));
  if (!bytes) return std::nullopt;
  return ReadText({bytes->constData(), bytes->size()});
}

std::optional<QByteArray> MdbFile::FollowMemo(qint64 length, bool onePage, int pageAndRow) {
  QByteArray gathered;
  while (gathered.size() < length) {
    void* page = nullptr;
    int start = 0;
    size_t size = 0;
    if (pageAndRow == 0 || mdb_find_pg_row(mdb_, pageAndRow, &page, &start, &size) != 0) {
      return std::nullopt;
    }
    start &= kRowOffsetMask;
    if (start + static_cast<qint64>(size) > mdb_->fmt->pg_size) return std::nullopt;
    const char* piece = static_cast<const char*>(page) + start;
    if (!onePage) {  // the first four bytes lead to the next piece
      if (size <= sizeof(qint32)) return std::nullopt;
      pageAndRow = Load<qint32>(piece);
      piece += sizeof(qint32);
      size -= sizeof(qint32);
    }
    gathered.append(piece, static_cast<qsizetype>(size));
    if (onePage) break;
  }
  if (gathered.size() < length) return std::nullopt;
  gathered.truncate(static_cast<qsizetype>(length));
  return gathered;
}

}  // namespace quillary
