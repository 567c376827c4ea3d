#include <algorithm>

#include "platform/Alerts.h"

namespace tolv {

std::optional<Screen> alertScreen(const std::vector<Screen>& screens,
                                  std::optional<size_t> keyWindowScreen,
                                  std::optional<size_t> mainScreen) {
  for (auto index : {keyWindowScreen, mainScreen}) {
    if (index && *index < screens.size()) return screens[*index];
  }
  if (screens.empty()) return std::nullopt;
  return screens.front();
}

Rect alertFrame(const AlertPlacement& placement, Size alertSize, const Screen& screen) {
  if (placement.centred) {
    return Rect{screen.frame.midX() - alertSize.width / 2,
                screen.frame.midY() - alertSize.height / 2, alertSize.width, alertSize.height};
  }
  const Rect& visible = screen.visibleFrame;
  double x = visible.minX() + placement.fraction * visible.width - alertSize.width / 2;
  double margin = std::max(visible.height * 0.08, 60.0);
  double y =
      placement.fromTop ? visible.maxY() - margin - alertSize.height : visible.minY() + margin;
  return Rect{x, y, alertSize.width, alertSize.height};
}

}  // namespace tolv
