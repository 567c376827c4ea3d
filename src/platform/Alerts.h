#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Geometry.h"
#include "platform/Screens.h"

namespace tolv {

enum class AlertStyle { Warning, Informational, Critical };

// A one-line text field below an alert's text.
struct AlertTextField {
  double width = 0;
  double height = 0;
  std::string value;
  std::string placeholder;
};

// A check box of an alert's accessory view, at its place in the view (y up).
struct AlertCheckBox {
  std::string title;
  bool checked = false;
  Rect frame;
};

struct Alert {
  AlertStyle style = AlertStyle::Warning;
  std::string title;
  std::string text;
  std::vector<std::string> buttons;  // the first is the default
  std::optional<AlertTextField> textField;
  std::vector<AlertCheckBox> checkBoxes;
};

// Where an alert stands: centred on its screen, or at a fraction of the screen's
// width and a margin from the edge the taskbar doesn't use.
struct AlertPlacement {
  bool centred = true;
  double fraction = 0.5;
  bool fromTop = true;  // the margin is measured down from the top edge
};

// The screen an alert stands on: the key window's, else the main screen, else
// the first; nothing without screens.
std::optional<Screen> alertScreen(const std::vector<Screen>& screens,
                                  std::optional<size_t> keyWindowScreen,
                                  std::optional<size_t> mainScreen);
// The frame of an alert of the given size on its screen. Centred, its centre is
// the screen's. Otherwise its centre stands at `fraction` of the visible width,
// and it keeps a margin of 8% of the visible height, at least 60 points, from
// the top of the visible frame or from its bottom. Backends lay the alert out,
// then ask this where it goes.
Rect alertFrame(const AlertPlacement& placement, Size alertSize, const Screen& screen);

// The first button answers 1000, the second 1001, and so on.
inline constexpr int kFirstButtonResponse = 1000;

struct AlertResult {
  int response = kFirstButtonResponse;
  std::string fieldValue;            // the text field's content when the alert has one
  std::vector<bool> checkBoxStates;  // as the user left the check boxes, in order
};

// Modal alerts. Stands for NSAlert run modally above every space.
class Alerts {
 public:
  virtual ~Alerts() = default;
  virtual AlertResult runModal(const Alert& alert, const AlertPlacement& placement) = 0;
};

}  // namespace tolv
