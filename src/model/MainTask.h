#pragma once

#include <memory>

namespace tolv {

// Work that the model runs later on the main run loop, in one step or several.
// Cancelling it keeps every step that hasn't run yet from running.
struct MainTask {
  bool cancelled = false;
};

using MainTaskHandle = std::shared_ptr<MainTask>;

inline void cancel(MainTaskHandle& task) {
  if (task) task->cancelled = true;
}

}  // namespace tolv
