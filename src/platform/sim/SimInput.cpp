#include "platform/sim/SimInput.h"

#include "platform/sim/SimDesktop.h"

namespace tolv::sim {

namespace {

nlohmann::json jsonOf(const KeyEvent& event) {
  return {{"keyCode", event.keyCode}, {"flags", event.flags}, {"down", event.keyDown}};
}

}  // namespace

bool SimInput::postKeyEvents(EventSourceState source, EventTap tap,
                             const std::vector<KeyEvent>& events) {
  calls_.count("input.postKeyEvents");
  return post(source, tap, events);
}

bool SimInput::post(EventSourceState source, EventTap tap, const std::vector<KeyEvent>& events) {
  if (eventCreationFails_) return false;
  nlohmann::json posted = nlohmann::json::array();
  for (const KeyEvent& event : events)
    posted.push_back(jsonOf(event));
  desktop_.logAction("keys", {{"source", static_cast<int>(source)},
                              {"tap", static_cast<int>(tap)},
                              {"events", std::move(posted)}});
  for (const KeyEvent& event : events)
    deliver(event);
  return true;
}

void SimInput::deliver(const KeyEvent& event) {
  if (!event.keyDown) {
    keysDown_.erase(event.keyCode);
    return;
  }
  keysDown_.insert(event.keyCode);
  const auto target = desktop_.keyWindow();
  if (!target) return;
  const bool fnHeld = keysDown_.count(posted_key::Function) > 0;
  if (event.keyCode == posted_key::F && fnHeld && (event.flags & event_flag::SecondaryFn)) {
    desktop_.toggleFullScreen(*target);
  } else if (event.keyCode == posted_key::W && (event.flags & event_flag::Command)) {
    const SimWindow* window = desktop_.window(*target);
    if (window && window->closeButton) desktop_.removeWindow(*target);
  }
}

}  // namespace tolv::sim
