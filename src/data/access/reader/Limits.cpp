#include "data/access/reader/Limits.h"

#include <errno.h>
#include <seccomp.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>

#include <memory>

namespace quillary {
namespace {

bool Limit(__rlimit_resource resource, rlim_t most) {
  const rlimit limit{most, most};
  return setrlimit(resource, &limit) == 0;
}

using Filter = std::unique_ptr<void, decltype(&seccomp_release)>;

/// What reading an open file, taking memory and ending need of the system. None of it names a file
/// to open; a failed check may end the process, but it cannot send a signal to another.
constexpr int kHarmless[] = {
    SCMP_SYS(read),         SCMP_SYS(pread64),        SCMP_SYS(lseek),
    SCMP_SYS(close),        SCMP_SYS(fstat),          SCMP_SYS(newfstatat),
    SCMP_SYS(brk),          SCMP_SYS(mmap),           SCMP_SYS(munmap),
    SCMP_SYS(mremap),       SCMP_SYS(mprotect),       SCMP_SYS(madvise),
    SCMP_SYS(futex),        SCMP_SYS(sched_yield),    SCMP_SYS(getpid),
    SCMP_SYS(gettid),       SCMP_SYS(clock_gettime),  SCMP_SYS(getrandom),
    SCMP_SYS(rt_sigaction), SCMP_SYS(rt_sigprocmask), SCMP_SYS(rt_sigreturn),
    SCMP_SYS(sigaltstack),  SCMP_SYS(exit),           SCMP_SYS(exit_group)};

}  // namespace

bool BindProcess(const Limits& limits) {
  bool bound = prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 && Limit(RLIMIT_CORE, 0) &&
               Limit(RLIMIT_FSIZE, 0) && Limit(RLIMIT_CPU, limits.processorSeconds);
#ifndef __SANITIZE_ADDRESS__  // the sanitizer maps far more memory than it uses
  bound = bound && Limit(RLIMIT_AS, limits.memoryBytes);
#endif
  return bound;
}

bool ForbidAllButReading(int pipe) {
  const Filter filter(seccomp_init(SCMP_ACT_ERRNO(EPERM)), &seccomp_release);
  if (!filter) return false;
  for (const int call : kHarmless) {
    if (seccomp_rule_add(filter.get(), SCMP_ACT_ALLOW, call, 0) != 0) return false;
  }
  const auto there = static_cast<scmp_datum_t>(pipe);
  return seccomp_rule_add(filter.get(), SCMP_ACT_ALLOW, SCMP_SYS(write), 1,
                          SCMP_A0(SCMP_CMP_EQ, there)) == 0 &&
         Limit(RLIMIT_NOFILE, 0) && seccomp_load(filter.get()) == 0;
}

}  // namespace quillary
