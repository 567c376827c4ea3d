#pragma once

#include "taskbar/AutoHide.h"

namespace tolv {

// What the application delegate asks of the bar's panels and their auto-hide
// logic. The toolkit's panel controller implements it; the delegate stays free
// of the toolkit.
class TaskbarController {
 public:
  virtual ~TaskbarController() = default;
  virtual void rebuildPanels() = 0;
  virtual AutoHide& autoHide() = 0;
};

}  // namespace tolv
