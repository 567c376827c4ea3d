#include "app/instance/WallClockRunLoop.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace tolv::testing {

struct WallClockRunLoop::Entry {
  double due = 0;
  double interval = 0;
  double tolerance = 0;
  bool valid = true;
  std::function<void()> action;
};

class WallClockRunLoop::EntryTimer : public Timer {
 public:
  EntryTimer(WallClockRunLoop& loop, std::shared_ptr<Entry> entry)
      : loop_(loop), entry_(std::move(entry)) {}
  ~EntryTimer() override { invalidate(); }

  void invalidate() override { entry_->valid = false; }
  bool isValid() const override { return entry_->valid; }
  void fire() override {
    if (!entry_->valid) return;
    auto action = entry_->action;
    if (entry_->interval <= 0) entry_->valid = false;
    action();
  }
  void setFireDate(double time) override {
    if (!entry_->valid) return;
    entry_->valid = false;
    auto moved = std::make_shared<Entry>(*entry_);
    moved->valid = true;
    moved->due = time;
    entry_ = moved;
    loop_.schedule(entry_);
  }
  double fireDate() const override { return entry_->due; }
  double interval() const override { return entry_->interval; }
  double tolerance() const override { return entry_->tolerance; }

 private:
  WallClockRunLoop& loop_;
  std::shared_ptr<Entry> entry_;
};

double WallClockRunLoop::now() const {
  using namespace std::chrono;
  return duration<double>(steady_clock::now().time_since_epoch()).count();
}

void WallClockRunLoop::schedule(const std::shared_ptr<Entry>& entry) {
  queue_.emplace(entry->due, entry);
}

std::unique_ptr<Timer> WallClockRunLoop::scheduleTimer(double firstDelay, double interval,
                                                       double tolerance,
                                                       std::function<void()> action) {
  auto entry = std::make_shared<Entry>(
      Entry{now() + firstDelay, interval, tolerance, true, std::move(action)});
  schedule(entry);
  return std::make_unique<EntryTimer>(*this, entry);
}

void WallClockRunLoop::postAfter(double delay, std::function<void()> work) {
  schedule(std::make_shared<Entry>(Entry{now() + delay, 0, 0, true, std::move(work)}));
}

void WallClockRunLoop::postFromAnyThread(std::function<void()> work) {
  std::lock_guard guard(inboxLock_);
  inbox_.push_back(std::move(work));
}

void WallClockRunLoop::runDueWork() {
  std::vector<std::function<void()>> arrived;
  {
    std::lock_guard guard(inboxLock_);
    arrived.swap(inbox_);
  }
  for (auto& work : arrived)
    postAfter(0, std::move(work));
  double time = now();
  while (!queue_.empty() && queue_.begin()->first <= time) {
    auto entry = queue_.begin()->second;
    queue_.erase(queue_.begin());
    if (!entry->valid) continue;
    if (entry->interval > 0) {
      entry->due += entry->interval;
      schedule(entry);
    } else {
      entry->valid = false;
    }
    entry->action();
  }
}

void WallClockRunLoop::spinUntil(double deadline, double step, const std::function<bool()>& done) {
  for (;;) {
    runDueWork();
    if (done && done()) return;
    double time = now();
    if (time >= deadline) return;
    double pause = std::min(std::max(step, 1e-3), deadline - time);
    std::this_thread::sleep_for(std::chrono::duration<double>(pause));
  }
}

}  // namespace tolv::testing
