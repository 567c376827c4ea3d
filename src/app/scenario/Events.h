#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "app/scenario/JsonReader.h"
#include "app/scenario/RunContext.h"

namespace tolv::scenario {

// Desktop events ("event" entries of the timeline). Each kind reads its own
// fields from the entry (the generic code rejects the keys left unread) and
// returns what it does when its time comes. A topic adds kinds from its own file:
//
//   const EventRegistration kClick{"click", [](JsonReader& entry, CompileContext& context) {
//     ... read the fields ...
//     return StepAction([=](RunContext& run) { ... });
//   }};
//
// The library is linked whole, so such a file needs no other change.
using EventReader = std::function<StepAction(JsonReader& entry, CompileContext& context)>;

struct EventRegistration {
  EventRegistration(std::string name, EventReader reader);
};

const EventReader* findEvent(std::string_view name);

// An application the timeline knows at this point, else an error at `key`.
Pid readKnownPid(JsonReader& entry, const CompileContext& context, std::string_view key = "pid");
// The window a selector names now, else an error naming the entry.
void requireWindow(bool found, const std::string& place, Pid pid);

}  // namespace tolv::scenario
