#pragma once

#include <QObject>

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/RunLoop.h"

namespace tolv::qt {

struct TimerState;

// The main run loop over the toolkit's event loop. Time is the monotonic clock
// in seconds; timers are QTimers that restart themselves from their fire date,
// so a slow turn of the loop delays one firing and not the whole schedule. A
// timer with a tolerance fires as late as it allows unless another wakes the
// loop first, and every timer due at a wake-up runs in it: periodic timers
// share their wake-ups, as the system coalesces timers with a tolerance.
// Work posted or due at the same time runs in the order it was scheduled.
// Needs the toolkit's application object and runs on its thread.
class QtRunLoop : public RunLoop {
 public:
  QtRunLoop();
  ~QtRunLoop() override;
  QtRunLoop(const QtRunLoop&) = delete;
  QtRunLoop& operator=(const QtRunLoop&) = delete;

  double now() const override;
  std::unique_ptr<Timer> scheduleTimer(double firstDelay, double interval, double tolerance,
                                       std::function<void()> action) override;
  void post(std::function<void()> work) override;
  void postAfter(double delay, std::function<void()> work) override;
  // The toolkit's queued calls are safe from any thread.
  void postFromAnyThread(std::function<void()> work) override { post(std::move(work)); }
  void spinUntil(double deadline, double step, const std::function<bool()>& done) override;

 private:
  // Owns the posted work's connections: work still queued when the loop goes is dropped.
  QObject context_;
  std::shared_ptr<std::vector<std::weak_ptr<TimerState>>> timers_ =
      std::make_shared<std::vector<std::weak_ptr<TimerState>>>();
  uint64_t nextTimerSequence_ = 0;
};

}  // namespace tolv::qt
