#include "data/store/RowLog.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace quillary {
namespace {

constexpr size_t kInMemory = 4 << 20;

// Each change is followed by the length of its record, since a log is read from its end.
using Length = quint32;

/// Puts a record's numbers together in room that is there already: this runs for each column of
/// each deleted row.
class Encoder {
 public:
  static constexpr size_t kLongestNumber = 10;

  explicit Encoder(char* at) : at_(at) {}
  char* At() const { return at_; }

  void Byte(quint8 byte) { *at_++ = static_cast<char>(byte); }
  void Number(quint64 number) {
    for (; number >= 0x80; number >>= 7) Byte(static_cast<quint8>(number | 0x80));
    Byte(static_cast<quint8>(number));
  }
  /// Small negative numbers take few bytes too.
  void Signed(qint64 number) {
    Number((static_cast<quint64>(number) << 1) ^ static_cast<quint64>(number >> 63));
  }
  void Bytes(const void* bytes, size_t count) {
    if (count > 0) std::memcpy(at_, bytes, count);
    at_ += count;
  }

 private:
  char* at_;
};

/// Reads what the Put routines wrote.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  bool AtEnd() const { return bytes_.empty(); }

  quint64 Number() {
    quint64 number = 0;
    for (int shift = 0;; shift += 7) {
      const auto byte = static_cast<quint8>(Take(1).front());
      number |= static_cast<quint64>(byte & 0x7f) << shift;
      if (byte < 0x80) return number;
    }
  }
  qint64 Signed() {
    const quint64 number = Number();
    return static_cast<qint64>(number >> 1) ^ -static_cast<qint64>(number & 1);
  }
  template <typename Plain>
  Plain As() {
    Plain plain;
    std::memcpy(&plain, Take(sizeof plain).data(), sizeof plain);
    return plain;
  }
  RowCell Cell() {
    RowCell cell;
    cell.kind = As<RowCell::Kind>();
    switch (cell.kind) {
      case RowCell::Kind::Null:
        break;
      case RowCell::Kind::Whole:
        cell.whole = Signed();
        break;
      case RowCell::Kind::Fraction:
        cell.fraction = As<double>();
        break;
      case RowCell::Kind::Text:
      case RowCell::Kind::Blob:
        cell.bytes = Take(Number());
    }
    return cell;
  }

 private:
  std::string_view Take(size_t count) {
    const std::string_view taken = bytes_.substr(0, count);
    if (taken.size() < count) throw std::runtime_error("The log of changes ends too early");
    bytes_.remove_prefix(count);
    return taken;
  }

  std::string_view bytes_;
};

void Decode(std::string_view bytes, RowChange& change) {
  Reader reader(bytes);
  change.kind = reader.As<RowChange::Kind>();
  change.table = reader.Number();
  change.row = reader.Signed();
  change.columns.clear();
  while (!reader.AtEnd()) {
    const size_t column = reader.Number();
    change.columns.push_back({column, reader.Cell()});
  }
}

/// The whole of a file in memory, for as long as this lives.
class MappedFile {
 public:
  MappedFile(int handle, size_t size)
      : size_(size), bytes_(mmap(nullptr, size, PROT_READ, MAP_PRIVATE, handle, 0)) {
    if (bytes_ == MAP_FAILED) throw std::runtime_error("The log of changes cannot be read");
  }
  ~MappedFile() { munmap(bytes_, size_); }
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;
  std::string_view Bytes() const { return {static_cast<const char*>(bytes_), size_}; }

 private:
  size_t size_;
  void* bytes_;
};

void VisitBytes(std::string_view bytes, const std::function<bool(const RowChange&)>& visit) {
  RowChange change;
  while (bytes.size() > sizeof(Length)) {
    const size_t end = bytes.size() - sizeof(Length);
    const size_t length = Reader(bytes.substr(end)).As<Length>();
    if (length > end) break;
    Decode(bytes.substr(end - length, length), change);
    if (!visit(change)) return;
    bytes.remove_suffix(length + sizeof(Length));
  }
  if (!bytes.empty()) throw std::runtime_error("The log of changes is broken");
}

}  // namespace

size_t RowLog::IndexOfTable(std::string_view name) {
  const auto at = std::find(tables_.begin(), tables_.end(), name);
  if (at != tables_.end()) return static_cast<size_t>(at - tables_.begin());
  tables_.emplace_back(name);
  return tables_.size() - 1;
}

char* RowLog::RoomFor(size_t bytes) {
  if (room_.size() < used_ + bytes) room_.resize(std::max(2 * room_.size(), used_ + bytes + 4096));
  return room_.data() + used_;
}

void RowLog::Begin(RowChange::Kind kind, size_t table, qint64 row) {
  begun_ = used_;
  Encoder encoder(RoomFor(1 + 2 * Encoder::kLongestNumber));
  encoder.Byte(static_cast<quint8>(kind));
  encoder.Number(table);
  encoder.Signed(row);
  used_ = static_cast<size_t>(encoder.At() - room_.data());
}

void RowLog::Put(size_t column, const RowCell& before) {
  Encoder encoder(RoomFor(1 + 2 * Encoder::kLongestNumber + before.bytes.size()));
  encoder.Number(column);
  encoder.Byte(static_cast<quint8>(before.kind));
  switch (before.kind) {
    case RowCell::Kind::Null:
      break;
    case RowCell::Kind::Whole:
      encoder.Signed(before.whole);
      break;
    case RowCell::Kind::Fraction:
      encoder.Bytes(&before.fraction, sizeof before.fraction);
      break;
    case RowCell::Kind::Text:
    case RowCell::Kind::Blob:
      encoder.Number(before.bytes.size());
      encoder.Bytes(before.bytes.data(), before.bytes.size());
  }
  used_ = static_cast<size_t>(encoder.At() - room_.data());
}

void RowLog::End() {
  const auto length = static_cast<Length>(used_ - begun_);
  std::memcpy(RoomFor(sizeof length), &length, sizeof length);
  used_ += sizeof length;
  if (used_ > kInMemory && !Spill()) lost_ = true;
}

void RowLog::ReleaseMemory() {
  if (used_ > 0 && !Spill()) lost_ = true;
  std::vector<char>().swap(room_);
  used_ = 0;
}

bool RowLog::Spill() {
  if (!file_) file_.reset(std::tmpfile());
  if (!file_) return false;
  size_t written = 0;
  while (written < used_) {
    const ssize_t count = pwrite(fileno(file_.get()), room_.data() + written, used_ - written,
                                 static_cast<off_t>(spilled_ + written));
    if (count <= 0) return false;
    written += static_cast<size_t>(count);
  }
  spilled_ += written;
  used_ = 0;
  return true;
}

void RowLog::BackTo(size_t size) {
  if (size >= spilled_) {
    used_ = std::min(used_, size - spilled_);
    return;
  }
  spilled_ = size;
  used_ = 0;
}

void RowLog::Visit(const std::function<bool(const RowChange&)>& visit) {
  if (spilled_ == 0) return VisitBytes({room_.data(), used_}, visit);
  if (!Spill()) throw std::runtime_error("The log of changes cannot be kept");
  const MappedFile file(fileno(file_.get()), spilled_);
  VisitBytes(file.Bytes(), visit);
}

}  // namespace quillary
