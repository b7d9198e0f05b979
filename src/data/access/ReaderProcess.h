#pragma once

#include "data/access/AccessFile.h"
#include "data/access/wire/Frames.h"

#include <QByteArray>
#include <QString>

#include <sys/types.h>

namespace quillary {

/// The process that reads one Access file. It dies with this object.
class ReaderProcess {
 public:
  /// Throws AccessFailure when it cannot be started.
  ReaderProcess(const QString& path, const AccessLimits& limits, const QString& codePage);
  ~ReaderProcess();
  ReaderProcess(const ReaderProcess&) = delete;
  ReaderProcess& operator=(const ReaderProcess&) = delete;

  /// The next frame. Throws BrokenOff when none will come.
  wire::Frame NextFrame();

  /// Why there are no more frames, in words that go on from "reading it ".
  struct BrokenOff {
    QString how;
  };

 private:
  QByteArray Take(qsizetype size);
  void Fill();
  QString HowItEnded();

  pid_t process_ = -1;
  int pipe_ = -1;
  int silentSeconds_;
  QByteArray unread_;
};

}  // namespace quillary
