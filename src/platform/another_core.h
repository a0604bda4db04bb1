#pragma once

#include <functional>
#include <future>
#include <thread>
#include <utility>

namespace orvane::platform {

/// Moves a thread off the core of the caller, who goes on working there, and leaves it free to be
/// moved again. Some kernels, those of small virtual machines above all, let a new thread wait on
/// the core of its maker for milliseconds, an idle one beside it. Does nothing where there is no
/// other core, and where the system cannot be asked.
void MoveToAnotherCore(std::thread& thread);

/// What another core works out while the caller goes on.
template <typename Result>
class Meanwhile {
 public:
  explicit Meanwhile(std::function<Result()> work)
      : task_(std::move(work)), result_(task_.get_future()), thread_(std::ref(task_)) {
    MoveToAnotherCore(thread_);
  }
  Meanwhile(const Meanwhile&) = delete;
  Meanwhile& operator=(const Meanwhile&) = delete;
  /// Waits for the end of the work.
  ~Meanwhile() { thread_.join(); }

  /// Waits for the result, which can be taken once.
  Result Take() { return result_.get(); }

 private:
  std::packaged_task<Result()> task_;
  std::future<Result> result_;
  std::thread thread_;
};

}  // namespace orvane::platform
