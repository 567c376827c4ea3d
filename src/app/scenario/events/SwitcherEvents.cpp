// The switcher's scenario events: a main thread that hangs (for the watchdog),
// and the screen-capture service's answers and permission.

#include <chrono>
#include <thread>

#include "app/scenario/Events.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimScreenCapture.h"

namespace tolv::scenario {
namespace {

// The main thread is busy for this many real seconds: nothing runs, and the
// virtual clock stands still.
const EventRegistration kHangMainThread{
    "hangMainThread", [](JsonReader& entry, CompileContext&) {
      auto seconds = entry.number("seconds");
      if (!seconds || *seconds < 0) entry.fail("seconds", "expected a number of seconds from 0");
      return StepAction([seconds = *seconds](RunContext&) {
        std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
      });
    }};

// How captures of one window (by `title`), or of all without one, answer:
// after `delay` virtual seconds (null: never), with no image (`fail`), or with
// an image of another `size`.
const EventRegistration kSetCapture{
    "setCapture", [](JsonReader& entry, CompileContext&) {
      auto title = entry.string("title");
      std::optional<std::optional<double>> delay;
      if (const Json* value = entry.take("delay")) {
        if (value->is_null()) {
          delay = std::optional<double>();
        } else if (value->is_number() && value->get<double>() >= 0) {
          delay = value->get<double>();
        } else {
          entry.fail("delay", "expected seconds from 0, or null for never");
        }
      }
      auto fail = entry.flag("fail");
      auto size = entry.size("size");
      if ((fail || size) && !title)
        entry.fail("title", "missing: \"fail\" and \"size\" name a window");
      return StepAction([title, delay, fail, size](RunContext& run) {
        sim::SimScreenCapture& capture = run.desktop->screenCapture();
        if (delay && title) capture.setDelay(*title, *delay);
        if (delay && !title) capture.setDefaultDelay(*delay);
        if (fail) capture.setFailing(*title, *fail);
        if (size) capture.setAnswerSize(*title, int(size->width), int(size->height));
      });
    }};

// The screen-capture permission now, and the user's answer to its prompt.
const EventRegistration kSetCaptureAccess{
    "setCaptureAccess", [](JsonReader& entry, CompileContext&) {
      bool granted = entry.requireFlag("granted");
      auto grantOnRequest = entry.flag("grantOnRequest");
      return StepAction([granted, grantOnRequest](RunContext& run) {
        run.desktop->screenCapture().setAccessGranted(granted);
        if (grantOnRequest) run.desktop->screenCapture().setGrantOnRequest(*grantOnRequest);
      });
    }};

}  // namespace
}  // namespace tolv::scenario
