#include "data/store/FileBytes.h"

#include "data/store/Statement.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace quillary {
namespace {

// SQLite's file layer moves less than 128 KiB in one go.
constexpr qint64 kPiece = 64 << 10;  // bytes
// What the disk is told to begin with, and how often there is a sign of life.
constexpr qint64 kStretch = 8 << 20;  // bytes

// Where the head of a file says whether a log belongs to it, once for writers and once for readers.
constexpr size_t kFormatOfWriters = 18;
constexpr size_t kFormatOfReaders = 19;
constexpr char kWithLog = 2;
constexpr char kSingleFile = 1;

void Demand(int code) {
  if (code != SQLITE_OK) ThrowFailure(nullptr, code);
}

void MakeSingleFile(std::vector<char>& head) {
  for (const size_t at : {kFormatOfWriters, kFormatOfReaders})
    if (head.size() > at && head[at] == kWithLog) head[at] = kSingleFile;
}

}  // namespace

HeldFile::HeldFile(sqlite3* database) : database_(database) {
  int left = -1;
  const int code =
      sqlite3_wal_checkpoint_v2(database, "main", SQLITE_CHECKPOINT_TRUNCATE, &left, nullptr);
  if (code != SQLITE_OK || left > 0) return;
  // Within a transaction nothing is folded into the file, and no command can begin its own.
  if (sqlite3_exec(database, "BEGIN; SELECT 1 FROM sqlite_master", nullptr, nullptr, nullptr) !=
      SQLITE_OK)
    return;
  sqlite3_file* file = nullptr;
  sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  if (file != nullptr && file->pMethods != nullptr) file_ = file;
  if (file_ == nullptr) sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
}

HeldFile::~HeldFile() {
  if (file_ != nullptr) sqlite3_exec(database_, "COMMIT", nullptr, nullptr, nullptr);
}

NewFileBytes::NewFileBytes(const QString& path) {
  const QByteArray name = QFile::encodeName(path);
  sqlite3_vfs* files = sqlite3_vfs_find(nullptr);
  name_.reset(const_cast<char*>(sqlite3_create_filename(name.constData(), "", "", 0, nullptr)));
  file_.reset(static_cast<sqlite3_file*>(sqlite3_malloc(files->szOsFile)));
  if (!name_ || !file_) ThrowFailure(nullptr, SQLITE_NOMEM);
  std::memset(file_.get(), 0, static_cast<size_t>(files->szOsFile));
  Demand(files->xOpen(files, name_.get(), file_.get(),
                      SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_MAIN_DB, nullptr));
  handle_ = open(name.constData(), O_WRONLY | O_CLOEXEC);
}

NewFileBytes::~NewFileBytes() {
  if (file_ && file_->pMethods != nullptr) file_->pMethods->xClose(file_.get());
  if (handle_ >= 0) close(handle_);
}

void NewFileBytes::TakeAll(sqlite3_file* from,
                           const std::function<void(qint64 done, qint64 all)>& progress) {
  sqlite3_int64 all = 0;
  Demand(from->pMethods->xFileSize(from, &all));
  std::vector<char> piece(static_cast<size_t>(std::min<qint64>(kPiece, all)));
  qint64 begun = 0;
  for (qint64 done = 0; done < all;) {
    const int bytes = static_cast<int>(std::min<qint64>(kPiece, all - done));
    Demand(from->pMethods->xRead(from, piece.data(), bytes, done));
    if (done == 0) MakeSingleFile(piece);
    Demand(file_->pMethods->xWrite(file_.get(), piece.data(), bytes, done));
    done += bytes;
    if (done - begun < kStretch && done < all) continue;
    StartWriting(begun, done - begun);
    begun = done;
    if (progress) progress(done, all);
  }
}

void NewFileBytes::StartWriting(qint64 offset, qint64 bytes) const {
  // A disk that will not begin yet is told again, and waited for, when the file takes its place.
  if (handle_ >= 0) sync_file_range(handle_, offset, bytes, SYNC_FILE_RANGE_WRITE);
}

}  // namespace quillary
