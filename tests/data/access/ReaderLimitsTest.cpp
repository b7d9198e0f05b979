#include "data/access/reader/Limits.h"

#include <errno.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace quillary {
namespace {

constexpr int kPipe = 3;

/// What a reader that a damaged file has taken over might try.
struct Attempt {
  const char* name;
  long (*tries)();
};

long OpenAFile() {
  return open("/etc/hostname", O_RDONLY);
}
long MakeAFile() {
  return open("taken", O_CREAT | O_WRONLY, 0600);
}
long OpenASocket() {
  return socket(AF_INET, SOCK_STREAM, 0);
}
long OpenALocalSocket() {
  return socket(AF_UNIX, SOCK_STREAM, 0);
}
long StartAProcess() {
  const pid_t child = fork();
  if (child == 0) _exit(0);
  return child;
}
long BecomeAProgram() {
  char name[] = "/bin/true";
  char* words[] = {name, nullptr};
  return execve(name, words, nullptr);
}
long KillItsParent() {
  return kill(getppid(), 0);
}
long RemoveAFile() {
  return unlink("/tmp/nothing-of-that-name");
}
long OpenMoreLater() {
  return syscall(SYS_prlimit64, 0, 7, nullptr, nullptr);
}
long WriteElsewhere() {
  return write(STDOUT_FILENO, "x", 1);
}

/// Ends the process: 0 when what was tried was refused for that it was tried.
[[noreturn]] void Try(long (*tries)()) {
  if (!BindProcess({1ULL << 40, 60}) || !ForbidAllButReading(kPipe)) _exit(2);
  errno = 0;
  _exit(tries() < 0 && errno == EPERM ? 0 : 1);
}

class ReaderLimitsTest : public ::testing::TestWithParam<Attempt> {};

TEST_P(ReaderLimitsTest, IsRefused) {
  EXPECT_EXIT(Try(GetParam().tries), ::testing::ExitedWithCode(0), "");
}

INSTANTIATE_TEST_SUITE_P(Attempts, ReaderLimitsTest,
                         ::testing::Values(Attempt{"OpenAFile", OpenAFile},
                                           Attempt{"MakeAFile", MakeAFile},
                                           Attempt{"OpenASocket", OpenASocket},
                                           Attempt{"OpenALocalSocket", OpenALocalSocket},
                                           Attempt{"StartAProcess", StartAProcess},
                                           Attempt{"BecomeAProgram", BecomeAProgram},
                                           Attempt{"KillItsParent", KillItsParent},
                                           Attempt{"RemoveAFile", RemoveAFile},
                                           Attempt{"OpenMoreLater", OpenMoreLater},
                                           Attempt{"WriteElsewhere", WriteElsewhere}),
                         [](const auto& entry) { return std::string(entry.param.name); });

/// Otherwise a limit that refuses everything would pass for a good one.
[[noreturn]] void ReadWhatIsOpen() {
  const int file = open("/proc/self/exe", O_RDONLY);
  if (!BindProcess({1ULL << 40, 60}) || !ForbidAllButReading(kPipe)) _exit(2);
  char bytes[4] = {};
  const bool reads = lseek(file, 1, SEEK_SET) == 1 && read(file, bytes, 3) == 3;
  void* const memory = std::malloc(size_t{8} << 20);
  _exit(reads && bytes[0] == 'E' && memory != nullptr ? 0 : 1);
}

TEST(ReaderLimits, WhatIsOpenIsRead) {
  EXPECT_EXIT(ReadWhatIsOpen(), ::testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace quillary
