// The simulated desktop's spaces: Mission Control's desktops and full-screen
// spaces per display, the current one of each, and what the user and a Dock
// swipe do with them.

#include <algorithm>

#include "platform/sim/SimDesktop.h"

namespace tolv::sim {

namespace {

// A full-screen space gets a space of its own, after the one it came from.
constexpr int64_t kFullScreenSpaceType = 4;

}  // namespace

std::string SpaceSetup::key() const {
  if (!uuid.empty()) return uuid;
  return "msid:" + std::to_string(managedSpaceID.value_or(0));
}

uint64_t SimDesktop::nextManagedSpaceID() const {
  uint64_t highest = 0;
  for (const auto& space : spaceList_)
    highest = std::max(highest, space.managedSpaceID.value_or(0));
  return highest + 1;
}

void SimDesktop::setSpaces(std::vector<SpaceSetup> spaces) {
  if (spaces.empty()) {
    SpaceSetup desktop;
    desktop.uuid = kMainSpace;
    desktop.current = true;
    spaces.push_back(desktop);
  }
  // Nothing is announced: this is how the desktop was before anything ran.
  spaceList_.clear();
  currentSpaces_.clear();
  for (auto& space : spaces) {
    if (!space.managedSpaceID) space.managedSpaceID = nextManagedSpaceID();
    if (space.current || !currentSpaces_.count(space.display))
      currentSpaces_[space.display] = space.key();
    spaceList_.push_back(std::move(space));
  }
  ++spacesGeneration_;
}

const std::string& SimDesktop::mainDisplay() const {
  static const std::string kNone;
  for (const auto& space : spaceList_) {
    if (space.display == "Main") return space.display;
  }
  return spaceList_.empty() ? kNone : spaceList_.front().display;
}

const std::string& SimDesktop::currentSpace() const {
  static const std::string kNone;
  auto found = currentSpaces_.find(mainDisplay());
  return found == currentSpaces_.end() ? kNone : found->second;
}

SpaceSetup* SimDesktop::findSpace(const std::string& key) {
  auto found = std::find_if(spaceList_.begin(), spaceList_.end(),
                            [&](const SpaceSetup& space) { return space.key() == key; });
  return found == spaceList_.end() ? nullptr : &*found;
}

const SpaceSetup* SimDesktop::findSpace(const std::string& key) const {
  return const_cast<SimDesktop*>(this)->findSpace(key);
}

bool SimDesktop::isOnCurrentSpace(const SimWindow& window) const {
  // A window on a space the desktop does not list is on no display's current
  // space: it is somewhere else, as after a move to a space that has gone.
  const SpaceSetup* space = findSpace(window.setup.space);
  if (!space) return false;
  auto current = currentSpaces_.find(space->display);
  return current != currentSpaces_.end() && current->second == space->key();
}

void SimDesktop::makeSpaceCurrent(const std::string& key) {
  const SpaceSetup* space = findSpace(key);
  if (!space) return;
  std::string& current = currentSpaces_[space->display];
  if (current == key) return;
  current = key;
  ++spacesGeneration_;
  postWorkspaceNotification(workspace_notification::ActiveSpaceDidChange, std::nullopt);
  // The frontmost window shown there takes the focus and its application
  // becomes active, as the system does when a space comes on screen.
  for (uint64_t id : stacking_) {
    const SimWindow& window = windows_.at(id);
    if (window.setup.space == key && isOnScreen(window)) {
      setFocusedWindow(apps_.at(window.pid), id);
      if (activePid_ != window.pid) activateApp(window.pid);
      break;
    }
  }
}

bool SimDesktop::switchSpace(const std::string& key) {
  if (!findSpace(key)) return false;
  makeSpaceCurrent(key);
  return true;
}

void SimDesktop::addSpace(SpaceSetup space) {
  if (!space.managedSpaceID) space.managedSpaceID = nextManagedSpaceID();
  const std::string key = space.key();
  const bool current = space.current || !currentSpaces_.count(space.display);
  space.current = false;
  spaceList_.push_back(std::move(space));
  ++spacesGeneration_;
  if (current) makeSpaceCurrent(key);
}

bool SimDesktop::removeSpace(const std::string& key) {
  auto found = std::find_if(spaceList_.begin(), spaceList_.end(),
                            [&](const SpaceSetup& space) { return space.key() == key; });
  if (found == spaceList_.end()) return false;
  const std::string display = found->display;
  spaceList_.erase(found);
  ++spacesGeneration_;

  // The windows and the current mark go to the first desktop of the display.
  std::string refuge;
  for (const auto& space : spaceList_) {
    if (space.display == display && space.type == 0) {
      refuge = space.key();
      break;
    }
  }
  for (auto& [id, window] : windows_) {
    if (window.setup.space == key) window.setup.space = refuge;
  }
  if (currentSpaces_[display] == key) {
    currentSpaces_.erase(display);
    if (!refuge.empty()) makeSpaceCurrent(refuge);
  }
  return true;
}

void SimDesktop::swipeSpaces(int steps) {
  std::vector<std::string> keys;
  for (const auto& space : spaceList_) {
    if (space.display == mainDisplay()) keys.push_back(space.key());
  }
  auto at = std::find(keys.begin(), keys.end(), currentSpace());
  if (at == keys.end()) return;
  const auto index = static_cast<int64_t>(at - keys.begin());
  const auto target = std::clamp<int64_t>(index + steps, 0, static_cast<int64_t>(keys.size()) - 1);
  makeSpaceCurrent(keys[static_cast<size_t>(target)]);
}

void SimDesktop::toggleFullScreen(uint64_t id) {
  auto found = windows_.find(id);
  if (found == windows_.end()) return;
  SimWindow& window = found->second;
  WindowSetup& setup = window.setup;
  setup.fullScreen = !setup.fullScreen;

  if (setup.fullScreen) {
    // The window leaves for a new space right after its own, which becomes current.
    const SpaceSetup* home = findSpace(setup.space);
    SpaceSetup fullScreen;
    fullScreen.display = home ? home->display : mainDisplay();
    fullScreen.type = kFullScreenSpaceType;
    fullScreen.pid = window.pid;
    fullScreen.managedSpaceID = nextManagedSpaceID();
    fullScreen.uuid = "FS-" + std::to_string(*fullScreen.managedSpaceID);
    auto after = std::find_if(spaceList_.begin(), spaceList_.end(),
                              [&](const SpaceSetup& space) { return space.key() == setup.space; });
    spaceList_.insert(after == spaceList_.end() ? after : after + 1, fullScreen);
    spaceBeforeFullScreen_[id] = setup.space;
    setup.space = fullScreen.key();
    ++spacesGeneration_;
    makeSpaceCurrent(setup.space);
    announceToApplication(window.pid, id, ax::FocusedWindowChangedNotification);
    return;
  }

  // Back to the space it came from; its full-screen space goes away.
  const std::string fullScreenKey = setup.space;
  auto home = spaceBeforeFullScreen_.find(id);
  std::string homeKey = home == spaceBeforeFullScreen_.end() ? std::string() : home->second;
  if (home != spaceBeforeFullScreen_.end()) spaceBeforeFullScreen_.erase(home);
  if (!homeKey.empty() && findSpace(homeKey)) makeSpaceCurrent(homeKey);
  removeSpace(fullScreenKey);
  if (!homeKey.empty() && findSpace(homeKey)) setup.space = homeKey;
  announceToApplication(window.pid, id, ax::FocusedWindowChangedNotification);
}

}  // namespace tolv::sim
