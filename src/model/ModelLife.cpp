// How the model starts watching the system and how it stops.

#include "model/AppModel.h"

namespace tolv {

void AppModel::start() {
  refreshRunningApps(true, false, false, true);
}

void AppModel::stop() {}

}  // namespace tolv
