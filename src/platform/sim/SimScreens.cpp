#include "platform/sim/SimScreens.h"

#include "platform/sim/CallCounter.h"

namespace tolv::sim {

SimScreens::SimScreens(CallCounter& calls) : calls_(calls), screens_{standardScreen()} {}

Screen SimScreens::standardScreen() {
  return Screen{"Main", Rect{0, 0, 1440, 900}, Rect{0, 0, 1440, 875}, 2};
}

std::vector<Screen> SimScreens::screens() {
  calls_.count("screens.screens");
  return screens_;
}

void SimScreens::setScreens(std::vector<Screen> screens) {
  screens_ = std::move(screens);
  changed().emit();
}

}  // namespace tolv::sim
