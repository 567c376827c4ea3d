#pragma once

#include <deque>
#include <string>
#include <variant>
#include <vector>

#include "platform/Alerts.h"
#include "platform/Screens.h"

namespace tolv::sim {

// Alerts never block: each alert shown takes the oldest unused scripted answer,
// or else its last button. Every alert is recorded with the frame it was given
// on the main screen, laid out at a fixed size.
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
  const std::vector<Shown>& shown() const { return shown_; }

 private:
  Screens* screens_;
  struct Queued {
    Answer answer;
    std::optional<std::vector<bool>> checkBoxes;
  };
  std::deque<Queued> answers_;
  std::vector<Shown> shown_;
};

}  // namespace tolv::sim
