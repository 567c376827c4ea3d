#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/qt/QtRunLoop.h"
#include "support/TestApplication.h"

namespace tolv::qt {
namespace {

// Real time: every wait spins the loop until its condition holds, bounded by a
// deadline far above what the condition needs.
constexpr double kPatience = 5.0;

class QtRunLoopTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { tolv::testing::ensureTestApplication(); }

  bool spinFor(const std::function<bool()>& done) {
    loop.spinUntil(loop.now() + kPatience, 0.005, done);
    return done();
  }

  QtRunLoop loop;
};

TEST_F(QtRunLoopTest, PostedWorkRunsOnALaterTurnInTheOrderItWasPosted) {
  std::vector<int> order;
  loop.post([&] { order.push_back(1); });
  loop.postAfter(0, [&] { order.push_back(2); });
  loop.post([&] {
    order.push_back(3);
    loop.post([&] { order.push_back(5); });
  });
  loop.post([&] { order.push_back(4); });
  EXPECT_TRUE(order.empty());
  ASSERT_TRUE(spinFor([&] { return order.size() == 5; }));
  EXPECT_EQ(order, (std::vector<int>{1, 2, 3, 4, 5}));
}

TEST_F(QtRunLoopTest, DelayedWorkWaitsAtLeastItsDelayAndEarlierDeadlinesGoFirst) {
  std::vector<std::string> order;
  double start = loop.now();
  double lateRan = 0;
  loop.postAfter(0.12, [&] {
    order.push_back("late");
    lateRan = loop.now();
  });
  loop.postAfter(0.03, [&] { order.push_back("early"); });
  ASSERT_TRUE(spinFor([&] { return order.size() == 2; }));
  EXPECT_EQ(order, (std::vector<std::string>{"early", "late"}));
  EXPECT_GE(lateRan - start, 0.12 - 0.002);
}

TEST_F(QtRunLoopTest, NowIsMonotonicAndInSeconds) {
  double first = loop.now();
  bool due = false;
  loop.postAfter(0.05, [&] { due = true; });
  ASSERT_TRUE(spinFor([&] { return due; }));
  double elapsed = loop.now() - first;
  EXPECT_GE(elapsed, 0.048);
  EXPECT_LT(elapsed, kPatience);
}

TEST_F(QtRunLoopTest, SpinningStopsAtTheDeadlineWhenTheConditionNeverHolds) {
  double start = loop.now();
  int asked = 0;
  loop.spinUntil(start + 0.1, 0.02, [&] {
    ++asked;
    return false;
  });
  EXPECT_GE(loop.now() - start, 0.1 - 0.002);
  EXPECT_LT(loop.now() - start, 1.0);
  // Asked once per step, not in a busy loop.
  EXPECT_GE(asked, 3);
  EXPECT_LT(asked, 50);
}

TEST_F(QtRunLoopTest, AOneShotTimerFiresOnceAndThenIsInvalid) {
  int fired = 0;
  auto timer = loop.scheduleTimer(0.02, 0, 0, [&] { ++fired; });
  EXPECT_TRUE(timer->isValid());
  EXPECT_DOUBLE_EQ(timer->interval(), 0);
  ASSERT_TRUE(spinFor([&] { return fired == 1; }));
  EXPECT_FALSE(timer->isValid());
  bool later = false;
  loop.postAfter(0.1, [&] { later = true; });
  spinFor([&] { return later; });
  EXPECT_EQ(fired, 1);
}

TEST_F(QtRunLoopTest, ARepeatingTimerKeepsFiringUntilInvalidated) {
  int fired = 0;
  auto timer = loop.scheduleTimer(0.01, 0.02, 0.005, [&] { ++fired; });
  EXPECT_DOUBLE_EQ(timer->tolerance(), 0.005);
  ASSERT_TRUE(spinFor([&] { return fired >= 3; }));
  EXPECT_TRUE(timer->isValid());
  timer->invalidate();
  int atInvalidation = fired;
  bool later = false;
  loop.postAfter(0.1, [&] { later = true; });
  spinFor([&] { return later; });
  EXPECT_EQ(fired, atInvalidation);
  EXPECT_FALSE(timer->isValid());
}

TEST_F(QtRunLoopTest, DroppingTheHandleStopsTheTimerEvenFromInsideItsOwnAction) {
  int fired = 0;
  std::unique_ptr<Timer> timer;
  timer = loop.scheduleTimer(0.01, 0.01, 0, [&] {
    ++fired;
    timer.reset();
  });
  ASSERT_TRUE(spinFor([&] { return fired == 1; }));
  EXPECT_EQ(timer, nullptr);
  bool later = false;
  loop.postAfter(0.08, [&] { later = true; });
  spinFor([&] { return later; });
  EXPECT_EQ(fired, 1);

  int dropped = 0;
  auto quiet = loop.scheduleTimer(0.02, 0, 0, [&] { ++dropped; });
  quiet.reset();
  later = false;
  loop.postAfter(0.08, [&] { later = true; });
  spinFor([&] { return later; });
  EXPECT_EQ(dropped, 0);
}

TEST_F(QtRunLoopTest, FiringByHandRunsTheActionAndKeepsARepeatingSchedule) {
  int fired = 0;
  auto timer = loop.scheduleTimer(60, 60, 0, [&] { ++fired; });
  double date = timer->fireDate();
  timer->fire();
  EXPECT_EQ(fired, 1);
  EXPECT_TRUE(timer->isValid());
  EXPECT_DOUBLE_EQ(timer->fireDate(), date);

  auto once = loop.scheduleTimer(60, 0, 0, [&] { ++fired; });
  once->fire();
  EXPECT_EQ(fired, 2);
  EXPECT_FALSE(once->isValid());
}

TEST_F(QtRunLoopTest, ANewFireDateMovesTheNextFiring) {
  int fired = 0;
  auto timer = loop.scheduleTimer(60, 0, 0, [&] { ++fired; });
  double moved = loop.now() + 0.03;
  timer->setFireDate(moved);
  EXPECT_DOUBLE_EQ(timer->fireDate(), moved);
  ASSERT_TRUE(spinFor([&] { return fired == 1; }));
  EXPECT_GE(loop.now(), moved - 0.002);
}

// Two periodic timers a few milliseconds apart, each with a tolerance wider
// than the gap: the later one rides along on the earlier one's wake-up, so the
// pair costs one wake-up per period. A marker posted by the first tells whether
// the loop turned in between.
TEST_F(QtRunLoopTest, TimersWithAToleranceShareTheirWakeUps) {
  bool turnedSinceFirst = true;
  int shared = 0;
  int second = 0;
  auto first = loop.scheduleTimer(0.04, 0.04, 0.02, [&] {
    turnedSinceFirst = false;
    loop.post([&] { turnedSinceFirst = true; });
  });
  bool secondScheduled = false;
  loop.postAfter(0.004, [&] { secondScheduled = true; });
  ASSERT_TRUE(spinFor([&] { return secondScheduled; }));
  auto later = loop.scheduleTimer(0.04, 0.04, 0.02, [&] {
    ++second;
    if (!turnedSinceFirst) ++shared;
  });
  ASSERT_TRUE(spinFor([&] { return second >= 4; }));
  EXPECT_EQ(shared, second);
}

TEST(QtRunLoopLifetime, WorkAndTimersOfAGoneLoopNeverRun) {
  tolv::testing::ensureTestApplication();
  int ran = 0;
  std::unique_ptr<Timer> survivor;
  {
    QtRunLoop doomed;
    doomed.post([&] { ++ran; });
    doomed.postAfter(0.01, [&] { ++ran; });
    survivor = doomed.scheduleTimer(0.01, 0.01, 0, [&] { ++ran; });
  }
  QtRunLoop other;
  bool later = false;
  other.postAfter(0.08, [&] { later = true; });
  other.spinUntil(other.now() + kPatience, 0.005, [&] { return later; });
  EXPECT_EQ(ran, 0);
  // The handle outlives its loop's timers; using and dropping it stays safe.
  survivor->setFireDate(other.now());
  survivor->invalidate();
  EXPECT_FALSE(survivor->isValid());
  survivor.reset();
}

}  // namespace
}  // namespace tolv::qt
