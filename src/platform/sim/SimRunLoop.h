#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <queue>
#include <vector>

#include "platform/RunLoop.h"

namespace tolv::sim {

// The main run loop on a virtual clock. Time moves only when a test or the
// scenario runner says so; work due at equal times runs in the order in which it
// was scheduled. Tolerances are kept but timers fire at their exact dates.
class SimRunLoop : public RunLoop {
 public:
  double now() const override { return now_; }
  std::unique_ptr<Timer> scheduleTimer(double firstDelay, double interval, double tolerance,
                                       std::function<void()> action) override;
  void post(std::function<void()> work) override;
  void postAfter(double delay, std::function<void()> work) override;
  // Taken into the queue, at the time the loop has then, on its next turn.
  void postFromAnyThread(std::function<void()> work) override;
  void spinUntil(double deadline, double step, const std::function<bool()>& done) override;

  // Runs everything due up to `now() + seconds`, in time order, then sets the clock there.
  void advance(double seconds);
  void advanceTo(double time);
  // The main thread is busy for this long: time passes and nothing runs.
  void stall(double seconds) { now_ += std::max(0.0, seconds); }
  // Runs the work due now, including work that it posts for now.
  void runUntilIdle();
  // The time of the next scheduled work, if any.
  std::optional<double> nextDueTime() const;

  size_t pendingWork() const { return queue_.size(); }

  // Work at an absolute time; a time in the past means now.
  void schedule(double time, std::function<void()> work);

 private:
  struct Entry {
    double time;
    uint64_t sequence;
    std::function<void()> work;
  };
  struct Later {
    bool operator()(const Entry& a, const Entry& b) const {
      return a.time != b.time ? a.time > b.time : a.sequence > b.sequence;
    }
  };

  bool runNextDue(double limit);
  void takeWorkFromOtherThreads();

  double now_ = 0;
  uint64_t nextSequence_ = 0;
  std::priority_queue<Entry, std::vector<Entry>, Later> queue_;
  std::mutex inboxLock_;
  std::vector<std::function<void()>> inbox_;
};

}  // namespace tolv::sim
