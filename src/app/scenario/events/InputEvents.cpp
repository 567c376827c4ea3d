// The user's pointer buttons and keys. Both are read and checked; they run once
// the bar answers clicks and keys.

#include "app/scenario/Events.h"

namespace tolv::scenario {
namespace {

const EventRegistration kClick{"click", [](JsonReader& entry, CompileContext&) {
                                 if (!entry.has("point")) entry.fail("point", "missing");
                                 entry.point("point");
                                 auto button = entry.string("button").value_or("left");
                                 if (button != "left" && button != "right") {
                                   entry.fail("button", "expected \"left\" or \"right\"");
                                 }
                                 refuseUnsupported(entry, "click");
                                 return StepAction();
                               }};

const EventRegistration kKey{"key", [](JsonReader& entry, CompileContext&) {
                               entry.requireString("key");
                               if (const Json* modifiers = entry.take("modifiers")) {
                                 bool strings = modifiers->is_array();
                                 for (const auto& modifier : *modifiers)
                                   strings = strings && modifier.is_string();
                                 if (!strings)
                                   entry.fail("modifiers", "expected a list of modifier names");
                               }
                               auto phase = entry.string("phase").value_or("press");
                               if (phase != "press" && phase != "down" && phase != "up") {
                                 entry.fail("phase", "expected \"press\", \"down\" or \"up\"");
                               }
                               refuseUnsupported(entry, "key");
                               return StepAction();
                             }};

}  // namespace
}  // namespace tolv::scenario
