#include "platform/qt/QtRunLoop.h"

#include <QEventLoop>
#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace tolv::qt {

namespace {

double monotonicSeconds() {
  using namespace std::chrono;
  return duration<double>(steady_clock::now().time_since_epoch()).count();
}

int millisecondsUntil(double time) {
  double delay = std::max(0.0, time - monotonicSeconds());
  return static_cast<int>(std::min(std::ceil(delay * 1000.0), double(INT32_MAX)));
}

}  // namespace

struct TimerState;
// Every timer of one run loop, so that a wake-up runs all that are due.
using TimerRegistry = std::vector<std::weak_ptr<TimerState>>;

// What a timer handle and its QTimer share. The QTimer's callback holds it too,
// so a handle dropped by its own action leaves the running action intact.
struct TimerState {
  std::function<void()> action;
  double interval = 0;
  double tolerance = 0;
  double fireDate = 0;
  uint64_t sequence = 0;
  bool valid = true;
  // Gone with the run loop, which may end before the handle does.
  QPointer<QTimer> timer;

  // The QTimer wakes the loop as late as the tolerance allows; whichever timer
  // wakes it first takes along every other that is due by then, so timers with
  // tolerance share their wake-ups.
  void arm() {
    if (valid && timer) timer->start(millisecondsUntil(fireDate + tolerance));
  }
};

namespace {

class QtTimerHandle : public Timer {
 public:
  explicit QtTimerHandle(std::shared_ptr<TimerState> state) : state_(std::move(state)) {}
  ~QtTimerHandle() override {
    invalidate();
    // Deleted later: the handle may be dropped inside the QTimer's own timeout.
    if (state_->timer) state_->timer->deleteLater();
  }

  void invalidate() override {
    state_->valid = false;
    if (state_->timer) state_->timer->stop();
  }
  bool isValid() const override { return state_->valid; }
  void fire() override {
    if (!state_->valid) return;
    auto state = state_;
    if (state->interval <= 0) invalidate();
    state->action();
  }
  void setFireDate(double time) override {
    state_->fireDate = time;
    state_->arm();
  }
  double fireDate() const override { return state_->fireDate; }
  double interval() const override { return state_->interval; }
  double tolerance() const override { return state_->tolerance; }

 private:
  std::shared_ptr<TimerState> state_;
};

void fireDue(const std::shared_ptr<TimerState>& state) {
  if (!state->valid) return;
  if (state->interval > 0) {
    double now = monotonicSeconds();
    state->fireDate += state->interval;
    // After a long stall the timer fires once and picks up its rhythm from now.
    if (state->fireDate < now) state->fireDate = now + state->interval;
    state->arm();
  } else {
    state->valid = false;
    if (state->timer) state->timer->stop();
  }
  state->action();
}

// Runs the timer whose QTimer woke the loop and every other timer due now,
// earliest fire date first, those due together in the order they were scheduled.
void fireAllDue(const std::shared_ptr<TimerRegistry>& registry,
                const std::shared_ptr<TimerState>& waking) {
  // A millisecond of slack: QTimers count in whole milliseconds.
  const double now = monotonicSeconds() + 0.001;
  std::vector<std::shared_ptr<TimerState>> due;
  std::erase_if(*registry, [&](const std::weak_ptr<TimerState>& weak) {
    auto state = weak.lock();
    if (!state || !state->valid) return true;
    if (state == waking || state->fireDate <= now) due.push_back(std::move(state));
    return false;
  });
  std::sort(due.begin(), due.end(), [](const auto& a, const auto& b) {
    return a->fireDate != b->fireDate ? a->fireDate < b->fireDate : a->sequence < b->sequence;
  });
  for (const auto& state : due)
    fireDue(state);
}

}  // namespace

QtRunLoop::QtRunLoop() = default;
QtRunLoop::~QtRunLoop() = default;

double QtRunLoop::now() const {
  return monotonicSeconds();
}

std::unique_ptr<Timer> QtRunLoop::scheduleTimer(double firstDelay, double interval,
                                                double tolerance, std::function<void()> action) {
  auto state = std::make_shared<TimerState>();
  state->action = std::move(action);
  state->interval = std::max(0.0, interval);
  state->tolerance = std::max(0.0, tolerance);
  state->fireDate = now() + std::max(0.0, firstDelay);
  state->sequence = nextTimerSequence_++;
  state->timer = new QTimer(&context_);
  state->timer->setSingleShot(true);
  state->timer->setTimerType(Qt::PreciseTimer);
  QObject::connect(
      state->timer, &QTimer::timeout, state->timer,
      [weak = std::weak_ptr<TimerRegistry>(timers_), waking = std::weak_ptr<TimerState>(state)] {
        auto registry = weak.lock();
        auto state = waking.lock();
        if (registry && state) fireAllDue(registry, state);
      });
  timers_->push_back(state);
  state->arm();
  return std::make_unique<QtTimerHandle>(state);
}

void QtRunLoop::post(std::function<void()> work) {
  QMetaObject::invokeMethod(&context_, std::move(work), Qt::QueuedConnection);
}

void QtRunLoop::postAfter(double delay, std::function<void()> work) {
  if (delay <= 0) {
    post(std::move(work));
    return;
  }
  QTimer::singleShot(millisecondsUntil(now() + delay), Qt::PreciseTimer, &context_,
                     std::move(work));
}

void QtRunLoop::spinUntil(double deadline, double step, const std::function<bool()>& done) {
  while (!done() && now() < deadline) {
    double slice = std::min(std::max(step, 0.001), deadline - now());
    QEventLoop loop;
    QTimer::singleShot(millisecondsUntil(now() + slice), Qt::PreciseTimer, &loop,
                       &QEventLoop::quit);
    loop.exec();
  }
}

}  // namespace tolv::qt
