#include "data/access/reader/Limits.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>

namespace quillary {
namespace {

bool Limit(__rlimit_resource resource, rlim_t most) {
  const rlimit limit{most, most};
  return setrlimit(resource, &limit) == 0;
}

}  // namespace

bool BindProcess(const Limits& limits) {
  bool bound = prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 && Limit(RLIMIT_CORE, 0) &&
               Limit(RLIMIT_FSIZE, 0) && Limit(RLIMIT_CPU, limits.processorSeconds);
#ifndef __SANITIZE_ADDRESS__  // the sanitizer maps far more memory than it uses
  bound = bound && Limit(RLIMIT_AS, limits.memoryBytes);
#endif
  return bound;
}

bool ForbidFiles() {
  return Limit(RLIMIT_NOFILE, 0);
}

}  // namespace quillary
