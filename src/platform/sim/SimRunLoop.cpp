#include "platform/sim/SimRunLoop.h"

#include <algorithm>
#include <cmath>

namespace tolv::sim {

namespace {

struct TimerState {
  bool valid = true;
  double fireDate = 0;
  double interval = 0;
  double tolerance = 0;
  uint64_t generation = 0;
  std::function<void()> action;
};

class SimTimer : public Timer {
 public:
  SimTimer(SimRunLoop& loop, std::shared_ptr<TimerState> state)
      : loop_(loop), state_(std::move(state)) {}
  ~SimTimer() override { invalidate(); }

  void invalidate() override {
    state_->valid = false;
    state_->action = nullptr;
  }
  bool isValid() const override { return state_->valid; }
  void fire() override {
    if (!state_->valid) return;
    auto action = state_->action;
    if (state_->interval <= 0) invalidate();
    action();
  }
  void setFireDate(double time) override {
    if (!state_->valid) return;
    state_->fireDate = time;
    arm(loop_, state_);
  }
  double fireDate() const override { return state_->fireDate; }
  double interval() const override { return state_->interval; }
  double tolerance() const override { return state_->tolerance; }

  // Puts the timer's next firing on the loop; earlier firings become stale.
  static void arm(SimRunLoop& loop, const std::shared_ptr<TimerState>& state) {
    uint64_t generation = ++state->generation;
    std::weak_ptr<TimerState> weak = state;
    loop.schedule(state->fireDate, [&loop, weak, generation] {
      auto state = weak.lock();
      if (!state || !state->valid || state->generation != generation) return;
      auto action = state->action;
      if (state->interval > 0) {
        // A repeating timer keeps its phase; firings missed while the loop was
        // busy are skipped, not made up.
        double next = state->fireDate + state->interval;
        if (next <= loop.now()) {
          next += std::ceil((loop.now() - next) / state->interval + 1e-9) * state->interval;
          if (next <= loop.now()) next += state->interval;
        }
        state->fireDate = next;
        arm(loop, state);
      } else {
        state->valid = false;
        state->action = nullptr;
      }
      action();
    });
  }

 private:
  SimRunLoop& loop_;
  std::shared_ptr<TimerState> state_;
};

}  // namespace

std::unique_ptr<Timer> SimRunLoop::scheduleTimer(double firstDelay, double interval,
                                                 double tolerance, std::function<void()> action) {
  auto state = std::make_shared<TimerState>();
  state->fireDate = now_ + std::max(0.0, firstDelay);
  state->interval = interval;
  state->tolerance = tolerance;
  state->action = std::move(action);
  SimTimer::arm(*this, state);
  return std::make_unique<SimTimer>(*this, state);
}

void SimRunLoop::post(std::function<void()> work) {
  schedule(now_, std::move(work));
}

void SimRunLoop::postAfter(double delay, std::function<void()> work) {
  schedule(now_ + std::max(0.0, delay), std::move(work));
}

void SimRunLoop::postFromAnyThread(std::function<void()> work) {
  std::lock_guard guard(inboxLock_);
  inbox_.push_back(std::move(work));
}

void SimRunLoop::takeWorkFromOtherThreads() {
  std::vector<std::function<void()>> arrived;
  {
    std::lock_guard guard(inboxLock_);
    arrived.swap(inbox_);
  }
  for (auto& work : arrived)
    schedule(now_, std::move(work));
}

void SimRunLoop::schedule(double time, std::function<void()> work) {
  queue_.push(Entry{std::max(time, now_), nextSequence_++, std::move(work)});
}

bool SimRunLoop::runNextDue(double limit) {
  takeWorkFromOtherThreads();
  if (queue_.empty() || queue_.top().time > limit) return false;
  Entry entry = queue_.top();
  queue_.pop();
  now_ = std::max(now_, entry.time);
  entry.work();
  return true;
}

void SimRunLoop::advance(double seconds) {
  advanceTo(now_ + std::max(0.0, seconds));
}

void SimRunLoop::advanceTo(double time) {
  while (runNextDue(time)) {
  }
  now_ = std::max(now_, time);
}

void SimRunLoop::runUntilIdle() {
  while (runNextDue(now_)) {
  }
}

std::optional<double> SimRunLoop::nextDueTime() const {
  if (queue_.empty()) return std::nullopt;
  return queue_.top().time;
}

void SimRunLoop::spinUntil(double deadline, double step, const std::function<bool()>& done) {
  step = std::max(step, 1e-3);
  while (now_ < deadline) {
    if (done && done()) return;
    advanceTo(std::min(deadline, now_ + step));
  }
}

}  // namespace tolv::sim
