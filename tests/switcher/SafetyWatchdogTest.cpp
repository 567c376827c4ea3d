#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <mutex>
#include <vector>

#include "switcher/SafetyWatchdog.h"

namespace tolv {
namespace {

// A watchdog on a clock the test moves, whose heartbeats wait in a queue for
// the "main thread" (the test) and whose exit is only counted.
class Watchdog : public ::testing::Test {
 protected:
  Watchdog()
      : watchdog({.now = [this] { return clock.load(); },
                  .postToMainThread =
                      [this](std::function<void()> work) {
                        std::lock_guard guard(lock);
                        mainQueue.push_back(std::move(work));
                      },
                  .endProcess = [this] { ++exits; }}) {}

  void runMainQueue() {
    std::vector<std::function<void()>> work;
    {
      std::lock_guard guard(lock);
      work.swap(mainQueue);
    }
    for (auto& item : work)
      item();
  }
  // `seconds` of ticks, one a second; the main thread answers only if `answering`.
  void tickFor(int seconds, bool answering) {
    for (int i = 0; i < seconds; ++i) {
      clock = clock + 1.0;
      watchdog.tick();
      if (answering) runMainQueue();
    }
  }

  std::atomic<double> clock{100.0};
  std::atomic<int> exits{0};
  std::mutex lock;
  std::vector<std::function<void()>> mainQueue;
  LumoSafetyWatchdog watchdog;
};

TEST_F(Watchdog, AMainThreadThatAnswersOrStallsUpToEightSecondsKeepsTheProcess) {
  watchdog.start();
  tickFor(20, true);
  tickFor(7, false);
  EXPECT_EQ(exits, 0);
  runMainQueue();  // the main thread comes back and answers the ticks it missed
  tickFor(8, false);
  EXPECT_EQ(exits, 0) << "the stall counts from the last answer";
}

TEST_F(Watchdog, AStallOfOverEightSecondsEndsTheProcessAtTheFirstTickPastIt) {
  watchdog.start();
  tickFor(8, false);
  EXPECT_EQ(exits, 0);
  tickFor(1, false);
  EXPECT_EQ(exits, 1);
}

TEST_F(Watchdog, AGapBetweenTicksIsASuspendedProcessAndResetsTheHeartbeat) {
  watchdog.start();
  tickFor(5, false);
  clock = clock + 3600;  // the machine slept for an hour
  watchdog.tick();
  tickFor(7, false);
  EXPECT_EQ(exits, 0);
}

TEST_F(Watchdog, NothingEndsTheProcessWhileStopped) {
  watchdog.start();
  watchdog.stop();
  tickFor(30, false);
  EXPECT_EQ(exits, 0);
  EXPECT_FALSE(watchdog.active());
  {
    std::lock_guard guard(lock);
    EXPECT_TRUE(mainQueue.empty()) << "an idle watchdog asks the main thread for nothing";
  }
  watchdog.beat();
  watchdog.start();
  tickFor(9, false);
  EXPECT_EQ(exits, 1) << "a start begins the count afresh";
}

}  // namespace
}  // namespace tolv
