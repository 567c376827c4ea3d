#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/Records.h"
#include "platform/Geometry.h"
#include "taskbar/TaskDrag.h"

namespace tolv {

class AppModel;
class TaskbarPanels;
struct TaskbarPanel;

// What a press and release of the left button on the bar came to.
enum class PointerGesture {
  None,       // nothing of the bar took it
  Click,      // the press barely moved: the tab's own click
  SlipClick,  // a small slip: the tab's action, without popups
  Drag,       // a tab was dragged and dropped (or let go)
  Resize,     // the armed resize handle was dragged
};

// Turns the left button's press, moves and release on the bars into drags,
// drops and resizes, through the panels' own drawing and the drop rules. The
// toolkit's view and scenario runs both drive it, so they meet the same
// targets. Points are in the design's coordinates.
class TaskbarPointerDrag {
 public:
  TaskbarPointerDrag(AppModel& model, TaskbarPanels& panels);

  void press(Point point);
  void move(Point point);
  PointerGesture release(Point point);
  bool pressed() const { return press_.has_value(); }
  // The entry the press was on, for the clicks a release turns into.
  const std::optional<TaskbarEntry>& pressedEntry() const { return entry_; }

 private:
  struct Located {
    TaskbarPanel* panel = nullptr;
    Point content;  // in the panel's content coordinates
  };
  std::optional<Located> locate(Point point) const;
  std::vector<DropTarget> targetsOf(const TaskbarPanel& panel) const;
  void hover(Point point);
  void leaveTarget(bool buttonDown);
  void moveResize(Point point);

  AppModel& model_;
  TaskbarPanels& panels_;
  std::optional<Point> press_;
  std::optional<TaskbarEntry> entry_;
  bool dragging_ = false;
  // The resize under way: the entry, its tab's width and the press in content.
  std::optional<std::string> resizeID_;
  double resizeWidth_ = 0;
  double resizeDirection_ = 1;
  Point resizePress_;
  // The target the drag is over, and its bar.
  std::optional<DropTarget> over_;
  uint64_t overPanel_ = 0;
};

}  // namespace tolv
