#pragma once

#include "base/Value.h"
#include "data/access/wire/AccessTable.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

/// What the reader of Access files says to the program that started it: frames on a pipe, each its
/// length (32 bits, most significant byte first), a byte for its kind, and its content. First all
/// tables, then for each table in the same order its rows, and at last the end. The reader may go
/// mad on a damaged file at any moment, so whoever unpacks believes nothing.
namespace quillary::wire {

enum class FrameKind : quint8 {
  Tables,    // all tables of the file
  Rows,      // some rows of the current table
  BadRow,    // a row of the current table that cannot be taken, and why (UTF-8)
  TableEnd,  // the current table has no more rows; the next one begins
  End,       // all was said
  Failure,   // reading stops here, and why (UTF-8)
};

/// Larger ones are nonsense from a reader gone mad.
inline constexpr quint32 kMaxFrame = 64U << 20;
inline constexpr qsizetype kHeaderSize = 5;

struct Frame {
  FrameKind kind = FrameKind::End;
  QByteArray content;
};

/// The bytes of a frame, ready for the pipe.
QByteArray PackFrame(FrameKind kind, const QByteArray& content = {});

QByteArray PackTables(const std::vector<AccessTable>& tables);

/// Gathers rows into the content of one frame.
class RowPacker {
 public:
  void Add(const std::vector<Value>& cells);
  qsizetype Size() const { return content_.size(); }
  /// The content so far; empties the packer.
  QByteArray Take();

 private:
  QByteArray content_;
};

/// Nothing when the content is none of its kind.
std::optional<std::vector<AccessTable>> UnpackTables(const QByteArray& content);
/// Rows of `columns` cells each.
std::optional<std::vector<std::vector<Value>>> UnpackRows(const QByteArray& content,
                                                          size_t columns);

}  // namespace quillary::wire
