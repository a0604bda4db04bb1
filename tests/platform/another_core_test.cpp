#include "platform/another_core.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>

#ifdef __linux__
#include <sched.h>
#endif

namespace orvane::platform {
namespace {

TEST(AnotherCore, ResultAndFailureReachTheCaller) {
  Meanwhile<std::string> word([] { return std::string("told"); });
  EXPECT_EQ(word.Take(), "told");
  Meanwhile<int> broken([]() -> int { throw std::runtime_error("no such picture"); });
  EXPECT_THROW(broken.Take(), std::runtime_error);
}

TEST(AnotherCore, WorkIsDoneBeforeItsOwnerGoes) {
  std::atomic<int> done = 0;
  for (int i = 0; i < 100; ++i) {
    const Meanwhile<int> work([&done] { return ++done; });
  }
  EXPECT_EQ(done, 100);
}

#ifdef __linux__
TEST(AnotherCore, ThreadIsFreeToGoWhereItsMakerMay) {
  const auto allowed = [] {
    cpu_set_t cores;
    CPU_ZERO(&cores);
    EXPECT_EQ(::sched_getaffinity(0, sizeof cores, &cores), 0);
    return cores;
  };
  std::promise<void> moved;
  std::promise<cpu_set_t> its;
  std::thread thread([&] {
    moved.get_future().wait();
    its.set_value(allowed());
  });
  MoveToAnotherCore(thread);
  moved.set_value();
  const cpu_set_t found = its.get_future().get();
  thread.join();
  const cpu_set_t mine = allowed();
  EXPECT_TRUE(CPU_EQUAL(&found, &mine));
}

TEST(AnotherCore, WorkOfAThreadBoundToOneCoreIsDoneThere) {
  cpu_set_t before;
  ASSERT_EQ(::sched_getaffinity(0, sizeof before, &before), 0);
  cpu_set_t one;
  CPU_ZERO(&one);
  CPU_SET(static_cast<unsigned>(::sched_getcpu()), &one);
  ASSERT_EQ(::sched_setaffinity(0, sizeof one, &one), 0);
  Meanwhile<int> core([] { return ::sched_getcpu(); });
  EXPECT_TRUE(CPU_ISSET(static_cast<unsigned>(core.Take()), &one));
  EXPECT_EQ(::sched_setaffinity(0, sizeof before, &before), 0);
}
#endif

}  // namespace
}  // namespace orvane::platform
