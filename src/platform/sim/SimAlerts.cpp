#include "platform/sim/SimAlerts.h"

#include <algorithm>

namespace tolv::sim {

AlertResult SimAlerts::runModal(const Alert& alert, const AlertPlacement& placement) {
  int buttonCount = static_cast<int>(alert.buttons.size());
  AlertResult result;
  int index = std::max(0, buttonCount - 1);
  for (const auto& box : alert.checkBoxes)
    result.checkBoxStates.push_back(box.checked);
  if (!answers_.empty()) {
    auto [answer, checkBoxes] = std::move(answers_.front());
    answers_.pop_front();
    if (auto* given = std::get_if<int>(&answer.button)) {
      index = std::clamp(*given, 0, std::max(0, buttonCount - 1));
    } else {
      auto title = std::get<std::string>(answer.button);
      auto found = std::find(alert.buttons.begin(), alert.buttons.end(), title);
      if (found != alert.buttons.end()) index = static_cast<int>(found - alert.buttons.begin());
    }
    result.fieldValue = std::move(answer.fieldValue);
    if (checkBoxes) {
      for (size_t i = 0; i < result.checkBoxStates.size() && i < checkBoxes->size(); ++i)
        result.checkBoxStates[i] = (*checkBoxes)[i];
    }
  } else if (alert.textField) {
    result.fieldValue = alert.textField->value;
  }
  result.response = kFirstButtonResponse + index;
  std::optional<Rect> frame;
  if (screens_) {
    if (auto screen = alertScreen(screens_->screens(), std::nullopt, screens_->mainScreenIndex())) {
      frame = alertFrame(placement, kAlertSize, *screen);
    }
  }
  shown_.push_back(Shown{alert, placement, result.response, frame});
  return result;
}

void SimAlerts::showColorPanel(ColorPanelRequest request) {
  panelsShown_.push_back(request.initial);
  colorChanged_ = std::move(request.colorChanged);
}

bool SimAlerts::chooseColor(std::optional<PanelColor> color) {
  if (!colorChanged_) return false;
  // The handler may show the panel again; it runs on a copy.
  auto handler = colorChanged_;
  handler(color);
  return true;
}

}  // namespace tolv::sim
