#pragma once

#include "platform/Screens.h"

namespace tolv::sim {

class CallCounter;

// Configured screens; by default one 1440 by 900 screen whose visible frame
// leaves 25 points for the menu bar.
class SimScreens : public Screens {
 public:
  explicit SimScreens(CallCounter& calls);

  std::vector<Screen> screens() override;
  // Replaces the screens and announces the change.
  void setScreens(std::vector<Screen> screens);
  // The screens as they stand, for pictures of the desktop: not a call of the program.
  const std::vector<Screen>& configured() const { return screens_; }

  static Screen standardScreen();

 private:
  CallCounter& calls_;
  std::vector<Screen> screens_;
};

}  // namespace tolv::sim
