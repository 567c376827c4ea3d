#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/Alerts.h"
#include "platform/Screens.h"

namespace tolv::sim {

// Alerts never block: each alert shown takes the oldest unused scripted answer,
// or else its last button. The colour panel stays open once shown, and the
// script moves it to colours as a user's hand would. Every alert is recorded with the frame it was
// given on the main screen, laid out at a fixed size.
class SimAlerts : public Alerts {
 public:
  static constexpr Size kAlertSize{420, 180};

  explicit SimAlerts(Screens* screens = nullptr) : screens_(screens) {}

  struct Answer {
    std::variant<int, std::string> button;  // index from 0, or the button's title
    std::string fieldValue;
  };
  struct Shown {
    Alert alert;
    AlertPlacement placement;
    int response = 0;
    std::optional<Rect> frame;  // nothing without screens
  };

  AlertResult runModal(const Alert& alert, const AlertPlacement& placement) override;

  // `checkBoxes` are the states the alert's check boxes are left in; nothing
  // leaves them as the alert gives them.
  void queueAnswer(Answer answer, std::optional<std::vector<bool>> checkBoxes = std::nullopt) {
    answers_.push_back({std::move(answer), std::move(checkBoxes)});
  }

  void showColorPanel(ColorPanelRequest request) override;

  // The user moves the open colour panel to a colour; false when no panel is open.
  bool chooseColor(std::optional<PanelColor> color);
  // The start colour of each time the panel was shown, in order.
  const std::vector<std::optional<PanelColor>>& colorPanelsShown() const { return panelsShown_; }
  const std::vector<Shown>& shown() const { return shown_; }

 private:
  Screens* screens_;
  struct Queued {
    Answer answer;
    std::optional<std::vector<bool>> checkBoxes;
  };
  std::deque<Queued> answers_;
  std::vector<Shown> shown_;
  std::vector<std::optional<PanelColor>> panelsShown_;
  std::function<void(std::optional<PanelColor>)> colorChanged_;
};

}  // namespace tolv::sim
