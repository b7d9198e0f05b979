#include "data/access/reader/Limits.h"
#include "data/access/reader/MdbFile.h"
#include "data/access/wire/Frames.h"

#include <QByteArray>
#include <QString>

#include <errno.h>
#include <unistd.h>

#include <cstdlib>
#include <new>

/// quillary-accessreader FILE MEMORY_BYTES PROCESSOR_SECONDS
///
/// Reads an Access file and sends what it holds as frames (data/access/wire/Frames.h) to file
/// descriptor 3. Started by the program, never by hand.
namespace quillary {
namespace {

constexpr int kPipe = 3;
constexpr qsizetype kRowsFrame = 64 * 1024;

void Send(wire::FrameKind kind, const QByteArray& content = {}) {
  const QByteArray bytes = wire::PackFrame(kind, content);
  qsizetype sent = 0;
  while (sent < bytes.size()) {
    const ssize_t wrote =
        write(kPipe, bytes.constData() + sent, static_cast<size_t>(bytes.size() - sent));
    if (wrote < 0 && errno == EINTR) continue;
    if (wrote <= 0) _exit(EXIT_FAILURE);
    sent += wrote;
  }
}

void SendRows(MdbFile& file) {
  wire::RowPacker rows;
  const auto flush = [&rows] {
    if (rows.Size() > 0) Send(wire::FrameKind::Rows, rows.Take());
  };
  while (const auto row = file.NextRow()) {
    if (row->fault.isEmpty()) {
      rows.Add(row->cells);
    } else {
      Send(wire::FrameKind::BadRow, row->fault.toUtf8());
    }
    if (rows.Size() >= kRowsFrame) flush();
  }
  flush();
  Send(wire::FrameKind::TableEnd);
}

void SendFile(const QString& path) {
  MdbFile file(path);
  if (!ForbidAllButReading(kPipe))
    throw UnreadableFile(QStringLiteral("the reader cannot be limited"));
  const std::vector<AccessTable> tables = file.ReadTables();
  Send(wire::FrameKind::Tables, wire::PackTables(tables));
  for (size_t i = 0; i < tables.size(); ++i) {
    file.BeginRows(i);
    SendRows(file);
  }
  Send(wire::FrameKind::End);
}

int Main(int count, char** arguments) {
  if (count != 4) return EXIT_FAILURE;
  const Limits limits{std::strtoull(arguments[2], nullptr, 10),
                      std::strtoull(arguments[3], nullptr, 10)};
  try {
    if (!BindProcess(limits)) throw UnreadableFile(QStringLiteral("the reader cannot be limited"));
    SendFile(QString::fromLocal8Bit(arguments[1]));
  } catch (const UnreadableFile& reason) {
    Send(wire::FrameKind::Failure, reason.what());
  } catch (const std::bad_alloc&) {
    Send(wire::FrameKind::Failure, "reading it takes too much memory");
  }
  _exit(EXIT_SUCCESS);
}

}  // namespace
}  // namespace quillary

int main(int count, char** arguments) {
  return quillary::Main(count, arguments);
}
