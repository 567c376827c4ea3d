#include "discovery/TaskPredicate.h"

namespace tolv {

bool becomesTask(const TaskCandidate& window) {
  if (window.blacklisted) return false;
  if (window.titledWindowsOnly) return window.title.has_value();
  return window.title.has_value() || window.plainWindow.value_or(false);
}

}  // namespace tolv
