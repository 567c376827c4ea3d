#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/sim/SimRunLoop.h"

namespace tolv::sim {
namespace {

using ::testing::ElementsAre;

struct Trace {
  SimRunLoop& loop;
  std::vector<std::string> events{};
  std::function<void()> note(std::string name) {
    return [this, name] { events.push_back(name + "@" + std::to_string(loop.now()).substr(0, 4)); };
  }
};

TEST(SimRunLoop, RunsWorkInTimeOrderAndEqualTimesInSchedulingOrder) {
  SimRunLoop loop;
  Trace trace{loop};
  loop.postAfter(1.0, trace.note("b"));
  loop.post(trace.note("a"));
  loop.postAfter(1.0, trace.note("c"));
  loop.postAfter(0.5, trace.note("m"));
  loop.advance(2);
  EXPECT_THAT(trace.events, ElementsAre("a@0.00", "m@0.50", "b@1.00", "c@1.00"));
  EXPECT_DOUBLE_EQ(loop.now(), 2.0);
}

TEST(SimRunLoop, WorkPostedWhileRunningRunsInTheSameAdvance) {
  SimRunLoop loop;
  Trace trace{loop};
  loop.postAfter(1.0, [&] {
    trace.events.push_back("outer");
    loop.post(trace.note("posted"));
    loop.postAfter(0.5, trace.note("later"));
    loop.postAfter(5, trace.note("beyond"));
  });
  loop.advance(2);
  EXPECT_THAT(trace.events, ElementsAre("outer", "posted@1.00", "later@1.50"));
}

TEST(SimRunLoop, RunUntilIdleRunsOnlyWhatIsDueNow) {
  SimRunLoop loop;
  Trace trace{loop};
  loop.post([&] { loop.post(trace.note("chained")); });
  loop.postAfter(0.1, trace.note("future"));
  loop.runUntilIdle();
  EXPECT_THAT(trace.events, ElementsAre("chained@0.00"));
  EXPECT_EQ(loop.nextDueTime(), 0.1);
}

TEST(SimRunLoop, RepeatingTimersKeepTheirPhase) {
  SimRunLoop loop;
  Trace trace{loop};
  auto timer = loop.scheduleTimer(0.25, 0.5, 0.05, trace.note("tick"));
  EXPECT_DOUBLE_EQ(timer->tolerance(), 0.05);
  loop.advance(1.3);
  EXPECT_THAT(trace.events, ElementsAre("tick@0.25", "tick@0.75", "tick@1.25"));
  EXPECT_DOUBLE_EQ(timer->fireDate(), 1.75);
}

TEST(SimRunLoop, DroppingOrInvalidatingATimerStopsIt) {
  SimRunLoop loop;
  int fired = 0;
  auto timer = loop.scheduleTimer(1, 1, 0, [&] { ++fired; });
  loop.advance(1.5);
  timer->invalidate();
  EXPECT_FALSE(timer->isValid());
  loop.advance(3);
  EXPECT_EQ(fired, 1);

  auto dropped = loop.scheduleTimer(1, 1, 0, [&] { ++fired; });
  dropped.reset();
  loop.advance(3);
  EXPECT_EQ(fired, 1);
}

TEST(SimRunLoop, AOneShotTimerIsInvalidAfterFiring) {
  SimRunLoop loop;
  int fired = 0;
  auto timer = loop.scheduleTimer(1, 0, 0, [&] { ++fired; });
  EXPECT_TRUE(timer->isValid());
  loop.advance(2);
  EXPECT_EQ(fired, 1);
  EXPECT_FALSE(timer->isValid());
}

TEST(SimRunLoop, FiringNowKeepsTheScheduleAndMovingTheFireDateReplacesIt) {
  SimRunLoop loop;
  Trace trace{loop};
  auto timer = loop.scheduleTimer(1, 1, 0, trace.note("t"));
  timer->fire();
  timer->setFireDate(0.4);
  loop.advance(1.5);
  EXPECT_THAT(trace.events, ElementsAre("t@0.00", "t@0.40", "t@1.40"));
}

TEST(SimRunLoop, ATimerThatFellBehindSkipsMissedFirings) {
  SimRunLoop loop;
  Trace trace{loop};
  auto timer = loop.scheduleTimer(1, 1, 0, trace.note("t"));
  // Work that keeps the main thread busy past several firings.
  loop.postAfter(0.5, [&] { loop.stall(3.1); });
  loop.advance(4.5);
  EXPECT_THAT(trace.events, ElementsAre("t@3.60", "t@4.00"));
}

TEST(SimRunLoop, SpinUntilStopsAtTheDeadlineOrWhenDone) {
  SimRunLoop loop;
  bool done = false;
  loop.postAfter(0.3, [&] { done = true; });
  loop.spinUntil(5, 0.025, [&] { return done; });
  EXPECT_TRUE(done);
  EXPECT_LT(loop.now(), 0.35);
  loop.spinUntil(1, 0.025, [] { return false; });
  EXPECT_DOUBLE_EQ(loop.now(), 1.0);
}

}  // namespace
}  // namespace tolv::sim
