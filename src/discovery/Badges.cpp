// The Dock's badges.

#include "model/AppModel.h"

namespace tolv {

bool AppModel::scanBadgesIfDue(bool /*forceBadgeScan*/) {
  return false;
}

}  // namespace tolv
