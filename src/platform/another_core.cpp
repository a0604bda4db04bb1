#include "platform/another_core.h"

#ifdef __linux__
#include <pthread.h>
#include <sched.h>
#endif

namespace orvane::platform {

#ifdef __linux__
void MoveToAnotherCore(std::thread& thread) {
  cpu_set_t allowed;
  if (::pthread_getaffinity_np(::pthread_self(), sizeof allowed, &allowed) != 0) return;
  const int mine = ::sched_getcpu();
  if (mine < 0 || mine >= CPU_SETSIZE) return;
  cpu_set_t others = allowed;
  CPU_CLR(static_cast<unsigned>(mine), &others);
  if (CPU_COUNT(&others) == 0) return;
  const pthread_t handle = thread.native_handle();
  if (::pthread_setaffinity_np(handle, sizeof others, &others) != 0) return;
  ::pthread_setaffinity_np(handle, sizeof allowed, &allowed);
}
#else
void MoveToAnotherCore(std::thread& /*thread*/) {}
#endif

}  // namespace orvane::platform
