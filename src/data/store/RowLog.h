#pragma once

#include <QtGlobal>

#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillary {

/// One value as it lies in a row of the file. The bytes of texts and blobs belong to whoever gave
/// it.
struct RowCell {
  enum class Kind : quint8 { Null, Whole, Fraction, Text, Blob };
  Kind kind = Kind::Null;
  qint64 whole = 0;
  double fraction = 0;
  std::string_view bytes;

  bool operator==(const RowCell&) const = default;
};

/// What is needed to take one change of one row back: of an inserted row its number, of a deleted
/// one all that it held, of an updated one what the changed columns held.
struct RowChange {
  enum class Kind : quint8 { Insert, Update, Delete };
  struct Column {
    size_t column = 0;  // its place in the table
    RowCell before;
  };
  Kind kind = Kind::Insert;
  size_t table = 0;  // of RowLog::Tables()
  qint64 row = 0;
  std::vector<Column> columns;
};

/// The changes of rows in the order in which they were made, in a few bytes each. What goes beyond
/// some mebibytes lies in a file without a name, which is gone with the log or the process.
class RowLog {
 public:
  RowLog() = default;
  RowLog(const RowLog&) = delete;
  RowLog& operator=(const RowLog&) = delete;

  /// Where the log ends, for BackTo().
  size_t Size() const { return spilled_ + used_; }
  bool IsEmpty() const { return Size() == 0; }
  /// True when something could not be kept: what is left tells only a part.
  bool IsLost() const { return lost_; }
  void SetLost() { lost_ = true; }

  /// The index of the table, added when the log does not know it yet.
  size_t IndexOfTable(std::string_view name);
  const std::vector<std::string>& Tables() const { return tables_; }

  /// A change is begun, given its columns in ascending order and ended. Columns that a deleted row
  /// had nothing in may be left out.
  void Begin(RowChange::Kind kind, size_t table, qint64 row);
  void Put(size_t column, const RowCell& before);
  void End();
  void BackTo(size_t size);

  size_t BytesInMemory() const { return used_; }
  void ReleaseMemory();

  /// Visits the changes, the last one first, until `visit` says false. Throws std::runtime_error
  /// when the log cannot be read.
  void Visit(const std::function<bool(const RowChange&)>& visit);

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  char* RoomFor(size_t bytes);
  bool Spill();

  std::vector<std::string> tables_;
  std::vector<char> room_;
  size_t used_ = 0;   // of the room
  size_t begun_ = 0;  // where in it the change under way begins
  size_t spilled_ = 0;
  std::unique_ptr<std::FILE, CloseFile> file_;
  bool lost_ = false;
};

}  // namespace quillary
