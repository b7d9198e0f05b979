#include "data/access/ReaderProcess.h"

#include "base/OwnPrograms.h"

#include <QFileInfo>
#include <QtEndian>

#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <utility>

namespace quillary {
namespace {

constexpr int kPipeOfReader = 3;
constexpr size_t kGulp = 64 * 1024;

QString ReaderProgram() {
  return OwnProgram(QStringLiteral("quillary-accessreader"), "QUILLARY_ACCESS_READER");
}

AccessFailure CannotStart(const QString& program, int error) {
  return AccessFailure(QStringLiteral("The program %1, which reads Access files, cannot be "
                                      "started: %2.")
                           .arg(program, QString::fromLocal8Bit(std::strerror(error))));
}

/// What the reader finds in its hands: the pipe, and nothing to read from or to chatter to.
class FileActions {
 public:
  explicit FileActions(int pipe) {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&actions_, pipe, kPipeOfReader);
  }
  ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;
  const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

/// Starts the reader with an environment of its own, so that no setting of the user's machine
/// changes what it reads.
pid_t Start(const QString& program, const QString& path, const AccessLimits& limits,
            const QString& codePage, int pipe) {
  QByteArray arguments[] = {program.toLocal8Bit(), path.toLocal8Bit(),
                            QByteArray::number(limits.memoryBytes),
                            QByteArray::number(limits.processorSeconds)};
  QByteArray language = "LC_ALL=C.UTF-8";
  QByteArray libraries = "LD_LIBRARY_PATH=" + qgetenv("LD_LIBRARY_PATH");
  std::array<char*, 5> argv{arguments[0].data(), arguments[1].data(), arguments[2].data(),
                            arguments[3].data(), nullptr};
  QByteArray letters =
      "MDB_JET3_CHARSET=" + (codePage.isEmpty() ? kUsualCodePage : codePage).toLatin1();
  std::array<char*, 4> environment{language.data(), libraries.data(), letters.data(), nullptr};
  const FileActions actions(pipe);
  pid_t process = -1;
  const int error =
      posix_spawn(&process, argv[0], actions.Get(), nullptr, argv.data(), environment.data());
  if (error != 0) throw CannotStart(program, error);
  return process;
}

}  // namespace

ReaderProcess::ReaderProcess(const QString& path, const AccessLimits& limits,
                             const QString& codePage)
    : silentSeconds_(limits.silentSeconds) {
  const QString program = ReaderProgram();
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw CannotStart(program, errno);
  // A pipe that got the reader's own number would lose its way when it is laid onto itself.
  const int writeEnd = fcntl(ends[1], F_DUPFD_CLOEXEC, kPipeOfReader + 1);
  close(ends[1]);
  pipe_ = ends[0];
  try {
    process_ = Start(program, path, limits, codePage, writeEnd);
  } catch (const AccessFailure&) {
    close(writeEnd);
    close(pipe_);
    throw;
  }
  close(writeEnd);
}

ReaderProcess::~ReaderProcess() {
  close(pipe_);
  if (process_ < 0) return;
  kill(process_, SIGKILL);
  while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
  }
}

wire::Frame ReaderProcess::NextFrame() {
  const QByteArray header = Take(wire::kHeaderSize);
  const auto size = qFromBigEndian<quint32>(header.constData());
  const auto kind = static_cast<quint8>(header.back());
  if (size > wire::kMaxFrame || kind > static_cast<quint8>(wire::FrameKind::Failure)) {
    throw BrokenOff{QStringLiteral("went astray")};
  }
  return {static_cast<wire::FrameKind>(kind), Take(static_cast<qsizetype>(size))};
}

QByteArray ReaderProcess::Take(qsizetype size) {
  while (unread_.size() < size) Fill();
  QByteArray taken = unread_.left(size);
  unread_.remove(0, size);
  return taken;
}

void ReaderProcess::Fill() {
  pollfd waiting{pipe_, POLLIN, 0};
  const int ready = poll(&waiting, 1, silentSeconds_ * 1000);
  if (ready < 0 && errno == EINTR) return;
  if (ready == 0) throw BrokenOff{QStringLiteral("took too long")};
  std::array<char, kGulp> gulp;
  const ssize_t got = read(pipe_, gulp.data(), gulp.size());
  if (got < 0 && errno == EINTR) return;
  if (got <= 0) throw BrokenOff{HowItEnded()};
  unread_.append(gulp.data(), got);
}

QString ReaderProcess::HowItEnded() {
  int status = 0;
  while (waitpid(std::exchange(process_, -1), &status, 0) < 0 && errno == EINTR) {
  }
  // Past its processor time a process is ended by one of these two.
  const bool outOfTime =
      WIFSIGNALED(status) && (WTERMSIG(status) == SIGXCPU || WTERMSIG(status) == SIGKILL);
  return outOfTime ? QStringLiteral("took too long") : QStringLiteral("broke off");
}

}  // namespace quillary
