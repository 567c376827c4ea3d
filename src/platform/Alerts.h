#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tolv {

enum class AlertStyle { Warning, Informational, Critical };

// A one-line text field below an alert's text.
struct AlertTextField {
  double width = 0;
  double height = 0;
  std::string value;
  std::string placeholder;
};

struct Alert {
  AlertStyle style = AlertStyle::Warning;
  std::string title;
  std::string text;
  std::vector<std::string> buttons;  // the first is the default
  std::optional<AlertTextField> textField;
};

// Where an alert stands: centred on its screen, or at a fraction of the screen's
// width and a margin from the edge the taskbar doesn't use.
struct AlertPlacement {
  bool centred = true;
  double fraction = 0.5;
  bool fromTop = true;  // the margin is measured down from the top edge
};

// The first button answers 1000, the second 1001, and so on.
inline constexpr int kFirstButtonResponse = 1000;

struct AlertResult {
  int response = kFirstButtonResponse;
  std::string fieldValue;  // the text field's content when the alert has one
};

// Modal alerts. Stands for NSAlert run modally above every space.
class Alerts {
 public:
  virtual ~Alerts() = default;
  virtual AlertResult runModal(const Alert& alert, const AlertPlacement& placement) = 0;
};

}  // namespace tolv
