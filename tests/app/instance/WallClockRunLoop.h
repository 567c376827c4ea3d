#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/RunLoop.h"

namespace tolv::testing {

// A run loop on the real monotonic clock, for test programs that run as real
// processes: work and timers run only while the loop is spun.
class WallClockRunLoop : public RunLoop {
 public:
  double now() const override;
  std::unique_ptr<Timer> scheduleTimer(double firstDelay, double interval, double tolerance,
                                       std::function<void()> action) override;
  void post(std::function<void()> work) override { postAfter(0, std::move(work)); }
  void postAfter(double delay, std::function<void()> work) override;
  void postFromAnyThread(std::function<void()> work) override;
  void spinUntil(double deadline, double step, const std::function<bool()>& done) override;

 private:
  struct Entry;
  class EntryTimer;
  void schedule(const std::shared_ptr<Entry>& entry);
  void runDueWork();

  std::multimap<double, std::shared_ptr<Entry>> queue_;
  std::mutex inboxLock_;
  std::vector<std::function<void()>> inbox_;
};

}  // namespace tolv::testing
