#pragma once

#include <functional>
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

// A colour as the colour panel hands it over: sRGB, components from 0 to 1.
struct PanelColor {
  double red = 0, green = 0, blue = 0;
  bool operator==(const PanelColor&) const = default;
};

// The colour panel's start colour, and what it tells of every colour the user
// moves to: nothing for a colour that has no sRGB form.
struct ColorPanelRequest {
  std::optional<PanelColor> initial;
  std::function<void(std::optional<PanelColor>)> colorChanged;
};

// Modal alerts, and the colour panel. Alerts stand for NSAlert run modally
// above every space; the colour panel for the shared NSColorPanel in its
// colour-wheel mode without alpha, ordered front with the application
// activated, whose target receives colorChanged: while the user drags.
class Alerts {
 public:
  virtual ~Alerts() = default;
  virtual AlertResult runModal(const Alert& alert, const AlertPlacement& placement) = 0;
  // Shows the one colour panel, or brings it forward with a new start colour;
  // the last request's handler receives the changes. Never waits.
  virtual void showColorPanel(ColorPanelRequest request) = 0;
};

}  // namespace tolv
