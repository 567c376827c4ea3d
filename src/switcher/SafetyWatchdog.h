#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace tolv {

// Ends the process when the main thread hangs while the full-screen overlay is
// up, since only the main thread can take the overlay and its keyboard grab
// away. While active, a thread of its own ticks once a second; each tick asks
// the main thread for a heartbeat, and one that finds no heartbeat for over
// 8 seconds ends the process at once with status 1. A gap of over 3 seconds
// between ticks means the process itself was stopped or the machine slept,
// which proves nothing about the main thread. Stands for a dispatch timer on
// a utility queue, NSLock and _exit.
class LumoSafetyWatchdog {
 public:
  struct Hooks {
    // Seconds on a monotonic clock.
    std::function<double()> now{};
    // Runs work on the main thread later; called from the watchdog's thread.
    std::function<void(std::function<void()>)> postToMainThread{};
    // Ends the process; never returns in real use.
    std::function<void()> endProcess{};
  };

  static constexpr double kTickPeriodSeconds = 1.0;
  static constexpr double kSuspendedGapSeconds = 3.0;
  static constexpr double kStallLimitSeconds = 8.0;

  explicit LumoSafetyWatchdog(Hooks hooks);
  // The real clock, the given main-thread poster and _exit(1).
  static Hooks systemHooks(std::function<void(std::function<void()>)> postToMainThread);
  ~LumoSafetyWatchdog();
  LumoSafetyWatchdog(const LumoSafetyWatchdog&) = delete;
  LumoSafetyWatchdog& operator=(const LumoSafetyWatchdog&) = delete;

  // Stops any running timer first, then ticks every second from now on.
  void start();
  void stop();
  // The main thread answers.
  void beat();
  // One tick; the timer thread runs it, tests may too.
  void tick();

  bool active() const;
  bool timerRunning() const;

 private:
  void run(unsigned generation);

  Hooks hooks_;
  // Guards every field below; held only for reads and writes of them.
  mutable std::mutex lock_;
  std::condition_variable wake_;
  bool active_ = false;
  double lastMainHeartbeat_ = 0;
  double lastWatchdogTick_ = 0;
  // Which start() the running thread belongs to; a stale thread ends itself.
  unsigned generation_ = 0;
  std::thread timer_;
  // Only the owner's thread starts and stops the timer.
  std::mutex controlLock_;
  // Keeps the posted heartbeats from reaching a destroyed watchdog.
  std::shared_ptr<LumoSafetyWatchdog*> self_;
};

}  // namespace tolv
