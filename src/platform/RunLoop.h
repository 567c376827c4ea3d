#pragma once

#include <functional>
#include <memory>

namespace tolv {

// A timer scheduled on the main run loop. Destroying the handle invalidates the
// timer, so an owner that drops its handle never sees the timer fire again.
// Stands for NSTimer in the common run-loop modes.
class Timer {
 public:
  virtual ~Timer() = default;

  virtual void invalidate() = 0;
  virtual bool isValid() const = 0;
  // Runs the action once on the spot; a repeating timer keeps its schedule.
  virtual void fire() = 0;
  // Moves the next firing to an absolute time on the run loop's clock.
  virtual void setFireDate(double time) = 0;
  virtual double fireDate() const = 0;
  virtual double interval() const = 0;
  virtual double tolerance() const = 0;
};

// The main run loop: the only place where work happens. Everything runs on the
// main thread; work scheduled for the same time runs in the order it was scheduled.
// Stands for CFRunLoopGetMain, NSTimer, DispatchQueue.main.async(After:) and
// RunLoop.run(until:).
class RunLoop {
 public:
  virtual ~RunLoop() = default;

  // Monotonic seconds.
  virtual double now() const = 0;

  // A timer that first fires after `firstDelay` seconds and then every `interval`
  // seconds; `interval` 0 makes a one-shot timer.
  virtual std::unique_ptr<Timer> scheduleTimer(double firstDelay, double interval, double tolerance,
                                               std::function<void()> action) = 0;

  // Work for a later turn of the main queue.
  virtual void post(std::function<void()> work) = 0;
  virtual void postAfter(double delay, std::function<void()> work) = 0;
  // Work for a later turn of the main queue, posted from any thread. Stands
  // for DispatchQueue.main.async called off the main thread.
  virtual void postFromAnyThread(std::function<void()> work) = 0;

  // Runs the loop in steps of `step` seconds until `deadline` or until `done`
  // answers true, whichever comes first. Used for short blocking waits.
  virtual void spinUntil(double deadline, double step, const std::function<bool()>& done) = 0;
};

}  // namespace tolv
