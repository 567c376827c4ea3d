#include "taskbar/OverflowReveal.h"

#include <cmath>

#include "model/AppModel.h"
#include "taskbar/PanelGeometry.h"
#include "taskbar/TaskbarLocation.h"

namespace tolv {

namespace {

constexpr double kHoverEnterDelay = 0.12;
constexpr double kHoverLeaveDelay = 0.4;
constexpr double kArrowHoverDelay = 0.6;
constexpr double kStartMenuZone = 400;

}  // namespace

OverflowReveal::OverflowReveal(AppModel& model, std::function<void()> changed)
    : model_(model), changed_(std::move(changed)) {
  forcedOpen_ = model_.initialSetupForceOverflowOpen.subscribe([this](bool) { update(); });
  lastRevealed_ = revealed();
}

OverflowReveal::~OverflowReveal() = default;

bool OverflowReveal::revealed() const {
  return model_.initialSetupForceOverflowOpen || latchedOpen_ || heldByGroupPopup_ || dragReveal_ ||
         arrowHovered_ || !hoveredRows_.empty();
}

bool OverflowReveal::rowsTucked() const {
  if (model_.settings.autoHideOverflow) return !revealed();
  return !model_.taskRowsExpanded;
}

void OverflowReveal::pointerExitedRow(int rowID) {
  pendingHoverEnters_.erase(rowID);
  pendingHoverLeaves_.insert(rowID);
  std::weak_ptr<bool> alive = alive_;
  model_.platform().runLoop->postAfter(kHoverLeaveDelay, [this, alive, rowID] {
    if (alive.expired() || !pendingHoverLeaves_.erase(rowID)) return;
    hoveredRows_.erase(rowID);
    update();
  });
}

void OverflowReveal::pointerEnteredRow(int rowID) {
  const std::string& location = model_.settings.taskbarLocation;
  if (!isSideEdge(location)) {
    Point pointer = model_.platform().pointer->location();
    for (const auto& screen : model_.platform().screens->screens()) {
      if (!touches(screen.frame, pointer)) continue;
      double anchor = isRightAnchored(location) ? screen.frame.maxX() : screen.frame.minX();
      if (std::abs(pointer.x - anchor) < kStartMenuZone) {
        pendingHoverEnters_.erase(rowID);
        return;
      }
      break;
    }
  }
  pendingHoverLeaves_.erase(rowID);
  pendingHoverEnters_.insert(rowID);
  std::weak_ptr<bool> alive = alive_;
  model_.platform().runLoop->postAfter(kHoverEnterDelay, [this, alive, rowID] {
    if (alive.expired() || !model_.settings.autoHideOverflow) return;
    if (!pendingHoverEnters_.erase(rowID)) return;
    hoveredRows_.insert(rowID);
    update();
  });
}

void OverflowReveal::arrowClicked() {
  if (model_.settings.autoHideOverflow) {
    latchedOpen_ = !latchedOpen_;
    update();
  } else {
    model_.taskRowsExpanded = !model_.taskRowsExpanded;
    if (changed_) changed_();
  }
}

void OverflowReveal::pointerEnteredArrow() {
  uint64_t token = ++arrowHoverToken_;
  std::weak_ptr<bool> alive = alive_;
  model_.platform().runLoop->postAfter(kArrowHoverDelay, [this, alive, token] {
    if (alive.expired() || token != arrowHoverToken_) return;
    arrowHovered_ = true;
    update();
  });
}

void OverflowReveal::pointerExitedArrow() {
  ++arrowHoverToken_;
  arrowHovered_ = false;
  update();
}

bool OverflowReveal::chevronOn() const {
  return model_.settings.autoHideOverflow ? latchedOpen_ : model_.taskRowsExpanded.get();
}

std::string OverflowReveal::chevronSymbol() const {
  bool pointsUp = isTopEdge(model_.settings.taskbarLocation) == chevronOn();
  return pointsUp ? "chevron.up" : "chevron.down";
}

void OverflowReveal::setHeldByGroupPopup(bool held) {
  heldByGroupPopup_ = held;
  update();
}

void OverflowReveal::setDragReveal(bool reveal) {
  dragReveal_ = reveal;
  update();
}

void OverflowReveal::openFromCorner() {
  latchedOpen_ = true;
  update();
}

void OverflowReveal::autoHideOverflowChanged() {
  latchedOpen_ = false;
  hoveredRows_.clear();
  pendingHoverLeaves_.clear();
  pendingHoverEnters_.clear();
  lastRevealed_ = revealed();
  if (changed_) changed_();
}

void OverflowReveal::update() {
  bool now = revealed();
  if (now != lastRevealed_) {
    lastRevealed_ = now;
    model_.taskOverflowRowsVisible = model_.settings.autoHideOverflow && now;
  }
  if (changed_) changed_();
}

}  // namespace tolv
