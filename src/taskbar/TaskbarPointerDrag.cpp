#include "taskbar/TaskbarPointerDrag.h"

#include <cmath>

#include "model/AppModel.h"
#include "taskbar/DropTargets.h"
#include "taskbar/TabHitTesting.h"
#include "taskbar/TaskbarLocation.h"
#include "taskbar/TaskbarPanels.h"

namespace tolv {

namespace {

bool sameTarget(const DropTarget& a, const DropTarget& b) {
  return a.kind == b.kind && a.targetID == b.targetID && a.frame == b.frame;
}

}  // namespace

TaskbarPointerDrag::TaskbarPointerDrag(AppModel& model, TaskbarPanels& panels)
    : model_(model), panels_(panels) {}

std::optional<TaskbarPointerDrag::Located> TaskbarPointerDrag::locate(Point point) const {
  for (const auto& panel : panels_.panels()) {
    const PanelWindow& window = *panel->window;
    if (!window.isVisible() || window.ignoresMouseEvents() || !window.frame().contains(point)) {
      continue;
    }
    Point local = designToPanel(point, window.frame());
    return Located{panel.get(), panel->drawing.toPanel.unmap(local)};
  }
  return std::nullopt;
}

std::vector<DropTarget> TaskbarPointerDrag::targetsOf(const TaskbarPanel& panel) const {
  DropTargetsInput input;
  input.layout = &panel.layout;
  input.drawing = &panel.drawing;
  input.location = panels_.location();
  input.dragging = model_.taskDrag.draggedTaskID.has_value();
  input.autoHideOverflow = model_.settings.autoHideOverflow;
  input.returnLocked = model_.taskbarOverflowReturnLocked.get();
  return dropTargets(input);
}

void TaskbarPointerDrag::press(Point point) {
  press_ = point;
  entry_.reset();
  dragging_ = false;
  resizeID_.reset();
  auto hit = tabAt(panels_, point);
  if (!hit) return;
  entry_ = *hit->entry;
  auto located = locate(point);
  const auto& armed = model_.taskDrag.armedResizeID;
  if (located && armed && *armed == hit->entry->id) {
    // The handle stands at the tab's trailing end, in the tab's own coordinates.
    const Rect& frame = hit->tab->frame;
    bool mirrored = isRightAnchored(panels_.location());
    Point inTab{mirrored ? frame.maxX() - located->content.x : located->content.x - frame.x,
                located->content.y - frame.y};
    if (resizeGestureArea(frame.width, model_.taskDrag.resize).contains(inTab)) {
      resizeID_ = *armed;
      resizeWidth_ = frame.width;
      resizeDirection_ = mirrored ? -1 : 1;
      resizePress_ = located->content;
    }
  }
}

void TaskbarPointerDrag::moveResize(Point point) {
  auto located = locate(point);
  if (!located) return;
  double translation = (located->content.x - resizePress_.x) * resizeDirection_;
  if (resizeChanged(model_.taskDrag.resize, resizeWidth_, translation))
    model_.suspendRefreshForResize();
  model_.noteTaskDragChanged();
}

void TaskbarPointerDrag::move(Point point) {
  if (!press_) return;
  if (resizeID_) {
    moveResize(point);
    return;
  }
  if (!dragging_) {
    if (!entry_) return;
    if (classifyPressSlip(point.x - press_->x, point.y - press_->y) != PressSlip::Drag) return;
    auto start = dragStartForEntry(*entry_);
    if (!start) return;
    dragging_ = true;
    model_.startTaskDrag(*start);
  }
  hover(point);
}

void TaskbarPointerDrag::leaveTarget(bool buttonDown) {
  if (!over_) return;
  dragExited(model_.taskDrag, *over_, buttonDown);
  over_.reset();
}

void TaskbarPointerDrag::hover(Point point) {
  auto located = locate(point);
  std::optional<DropTarget> target;
  if (located) {
    auto targets = targetsOf(*located->panel);
    if (const DropTarget* found = dropTargetAt(targets, located->content)) target = *found;
  }
  bool same =
      target && over_ && overPanel_ == located->panel->serial && sameTarget(*target, *over_);
  if (!same) leaveTarget(true);
  if (target) {
    dragEntered(model_.taskDrag, *target, located->content);
    over_ = target;
    overPanel_ = located->panel->serial;
  }
  model_.noteTaskDragChanged();
}

PointerGesture TaskbarPointerDrag::release(Point point) {
  if (!press_) return PointerGesture::None;
  Point pressed = *press_;
  press_.reset();
  if (resizeID_) {
    // The width is the one where the button came up, even without a move there.
    moveResize(point);
    std::string id = *resizeID_;
    resizeID_.reset();
    if (auto width = resizeEnded(model_.taskDrag.resize)) {
      model_.commitTaskWidth(id, *width);
      model_.resumeRefreshAfterResize();
      model_.disarmTaskResize(id);
    }
    model_.noteTaskDragChanged();
    return PointerGesture::Resize;
  }
  if (!dragging_) {
    if (!entry_) return PointerGesture::None;
    return classifyPressSlip(point.x - pressed.x, point.y - pressed.y) == PressSlip::Click
               ? PointerGesture::Click
               : PointerGesture::SlipClick;
  }
  dragging_ = false;
  hover(point);
  over_.reset();
  if (auto located = locate(point)) {
    auto targets = targetsOf(*located->panel);
    if (const DropTarget* target = dropTargetAt(targets, located->content)) {
      model_.performTaskDrop(*target, located->content,
                             primaryRowWindowIDs(located->panel->layout));
    }
  }
  // The drag never outlives the button: let go anywhere else, nothing moves.
  if (model_.taskDrag.draggedTaskID) model_.endTaskDrag();
  return PointerGesture::Drag;
}

}  // namespace tolv
