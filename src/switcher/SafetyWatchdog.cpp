#include "switcher/SafetyWatchdog.h"

#include <unistd.h>

#include <chrono>
#include <memory>

namespace tolv {

LumoSafetyWatchdog::LumoSafetyWatchdog(Hooks hooks)
    : hooks_(std::move(hooks)), self_(std::make_shared<LumoSafetyWatchdog*>(this)) {}

LumoSafetyWatchdog::Hooks LumoSafetyWatchdog::systemHooks(
    std::function<void(std::function<void()>)> postToMainThread) {
  return Hooks{.now =
                   [] {
                     using namespace std::chrono;
                     return duration<double>(steady_clock::now().time_since_epoch()).count();
                   },
               .postToMainThread = std::move(postToMainThread),
               .endProcess = [] { _exit(1); }};
}

LumoSafetyWatchdog::~LumoSafetyWatchdog() {
  stop();
}

void LumoSafetyWatchdog::start() {
  stop();
  std::lock_guard control(controlLock_);
  unsigned generation = 0;
  {
    std::lock_guard guard(lock_);
    const double now = hooks_.now();
    active_ = true;
    lastMainHeartbeat_ = now;
    lastWatchdogTick_ = now;
    generation = ++generation_;
  }
  timer_ = std::thread([this, generation] { run(generation); });
}

void LumoSafetyWatchdog::stop() {
  std::lock_guard control(controlLock_);
  {
    std::lock_guard guard(lock_);
    active_ = false;
    ++generation_;
  }
  wake_.notify_all();
  if (timer_.joinable()) timer_.join();
}

void LumoSafetyWatchdog::beat() {
  std::lock_guard guard(lock_);
  if (active_) lastMainHeartbeat_ = hooks_.now();
}

bool LumoSafetyWatchdog::active() const {
  std::lock_guard guard(lock_);
  return active_;
}

bool LumoSafetyWatchdog::timerRunning() const {
  return timer_.joinable();
}

void LumoSafetyWatchdog::run(unsigned generation) {
  using namespace std::chrono;
  auto deadline = steady_clock::now();
  for (;;) {
    deadline += duration_cast<steady_clock::duration>(duration<double>(kTickPeriodSeconds));
    {
      std::unique_lock guard(lock_);
      if (wake_.wait_until(guard, deadline, [&] { return generation_ != generation; })) return;
    }
    tick();
  }
}

void LumoSafetyWatchdog::tick() {
  const double now = hooks_.now();
  double stalled = 0;
  {
    std::lock_guard guard(lock_);
    if (!active_) return;
    const double previousTick = lastWatchdogTick_;
    lastWatchdogTick_ = now;
    if (now - previousTick > kSuspendedGapSeconds) {
      lastMainHeartbeat_ = now;
    } else {
      stalled = now - lastMainHeartbeat_;
    }
  }
  if (stalled > kStallLimitSeconds) {
    hooks_.endProcess();
    return;
  }
  std::weak_ptr<LumoSafetyWatchdog*> self = self_;
  hooks_.postToMainThread([self] {
    if (auto alive = self.lock()) (*alive)->beat();
  });
}

}  // namespace tolv
