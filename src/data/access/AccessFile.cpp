#include "data/access/AccessFile.h"

#include "data/access/ReaderProcess.h"
#include "data/access/wire/Frames.h"

#include <QFile>
#include <QFileInfo>

#include <iconv.h>

namespace quillary {
namespace {

using wire::FrameKind;

constexpr qint64 kHeaderSize = 0x15;
constexpr qsizetype kMarkAt = 4;
constexpr qsizetype kVersionAt = 0x14;

/// How much of a file is needed to tell what it is.
QByteArray Header(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.read(kHeaderSize) : QByteArray();
}

bool IsAccessHeader(const QByteArray& header) {
  const QByteArray mark = header.mid(kMarkAt);
  return header.size() == kHeaderSize &&
         (mark.startsWith("Standard Jet DB") || mark.startsWith("Standard ACE DB"));
}

AccessFailure Damaged(const QString& path, const QString& how) {
  return AccessFailure(QStringLiteral("%1 is damaged: %2. It was left as it is.").arg(path, how));
}

/// What can be told without looking into the pages.
void CheckFile(const QString& path) {
  const QFileInfo info(path);
  if (!info.exists()) throw AccessFailure(QStringLiteral("%1 was not found.").arg(path));
  if (!info.isFile()) throw AccessFailure(QStringLiteral("%1 is no file.").arg(path));
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    throw AccessFailure(QStringLiteral("%1 cannot be read: %2.").arg(path, file.errorString()));
  }
  const QByteArray header = file.read(kHeaderSize);
  if (!IsAccessHeader(header)) {
    throw AccessFailure(QStringLiteral("%1 is no Access file.").arg(path));
  }
  const qint64 pageSize = header.at(kVersionAt) == 0 ? 2048 : 4096;
  if (info.size() % pageSize != 0) {
    throw Damaged(path, QStringLiteral("it is cut short, for its last page is not whole"));
  }
}

/// Hands what the reading process says on to the visitor, and minds that it makes sense.
class Conversation {
 public:
  Conversation(const QString& path, AccessVisitor& visitor, const AccessLimits& limits,
               const QString& codePage)
      : path_(path), visitor_(visitor), process_(path, limits, codePage) {}

  void Run() {
    for (;;) {
      const wire::Frame frame = Next();
      if (frame.kind == FrameKind::End) break;
      Take(frame);
    }
    if (!haveTables_ || current_ != tables_.size()) throw Astray();
  }

 private:
  wire::Frame Next() {
    try {
      return process_.NextFrame();
    } catch (const ReaderProcess::BrokenOff& brokenOff) {
      throw Damaged(path_, QStringLiteral("reading it %1 %2").arg(brokenOff.how, Where()));
    }
  }

  QString Where() const {
    if (!haveTables_) return QStringLiteral("in its list of tables");
    if (current_ == tables_.size()) return QStringLiteral("at its end");
    return QStringLiteral("in the table %1, after %2 of %3 rows")
        .arg(tables_[current_].schema.name)
        .arg(rowsTaken_)
        .arg(tables_[current_].declaredRows);
  }

  AccessFailure Astray() const {
    return Damaged(path_, QStringLiteral("reading it went astray ") + Where());
  }

  void Take(const wire::Frame& frame) {
    if (frame.kind == FrameKind::Failure) {
      throw Damaged(path_, QString::fromUtf8(frame.content));
    }
    if (frame.kind == FrameKind::Tables) {
      TakeTables(frame.content);
      return;
    }
    if (current_ >= tables_.size()) throw Astray();
    const AccessTable& table = tables_[current_];
    if (frame.kind == FrameKind::Rows) {
      TakeRows(table, frame.content);
    } else if (frame.kind == FrameKind::BadRow) {
      ++rowsTaken_;
      visitor_.OnBadRow(table, QString::fromUtf8(frame.content));
    } else {
      visitor_.OnTableEnd(table);
      ++current_;
      rowsTaken_ = 0;
    }
  }

  void TakeTables(const QByteArray& content) {
    auto tables = wire::UnpackTables(content);
    if (haveTables_ || !tables) throw Astray();
    tables_ = std::move(*tables);
    haveTables_ = true;
    visitor_.OnTables(tables_);
  }

  void TakeRows(const AccessTable& table, const QByteArray& content) {
    const auto rows = wire::UnpackRows(content, table.schema.columns.size());
    if (!rows) throw Astray();
    for (const std::vector<Value>& cells : *rows) visitor_.OnRow(table, cells);
    rowsTaken_ += static_cast<qint64>(rows->size());
  }

  const QString& path_;
  AccessVisitor& visitor_;
  ReaderProcess process_;
  std::vector<AccessTable> tables_;
  bool haveTables_ = false;
  size_t current_ = 0;
  qint64 rowsTaken_ = 0;
};

}  // namespace

bool IsAccessFile(const QString& path) {
  return IsAccessHeader(Header(path));
}

bool NeedsCodePage(const QString& path) {
  const QByteArray header = Header(path);
  return IsAccessHeader(header) && header.at(kVersionAt) == 0;
}

bool IsCodePage(const QString& name) {
  // Anything behind a slash would be a wish for another way of converting.
  if (name.isEmpty() || name.contains(u'/')) return false;
  const iconv_t converter = iconv_open("UTF-8", name.toLatin1().constData());
  if (converter == reinterpret_cast<iconv_t>(-1)) return false;
  iconv_close(converter);
  return true;
}

void ReadAccessFile(const QString& path, AccessVisitor& visitor, const AccessLimits& limits,
                    const QString& codePage) {
  CheckFile(path);
  if (!codePage.isEmpty() && !IsCodePage(codePage)) {
    throw AccessFailure(QStringLiteral("%1 is no code page.").arg(codePage));
  }
  Conversation(path, visitor, limits, codePage).Run();
}

}  // namespace quillary
