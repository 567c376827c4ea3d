#pragma once

#include <cstddef>
#include <memory>

#include "platform/Geometry.h"

namespace tolv {

enum class PanelKind { Taskbar, EdgeTrigger, CornerTrigger };

// What a panel is made from.
struct PanelSetup {
  PanelKind kind = PanelKind::Taskbar;
  size_t screenIndex = 0;
  Rect frame;
  int level = 0;
  bool isLeftCorner = false;
};

// The transform that slides or shrinks a panel's content while the bar hides:
// a scale about the content's centre, then a move in design directions (y up).
struct HideTransform {
  double scale = 1;
  double dx = 0;
  double dy = 0;
  bool isIdentity() const { return scale == 1 && dx == 0 && dy == 0; }
  bool operator==(const HideTransform&) const = default;
};

// A borderless, non-activating window of the bar that joins every space: a
// taskbar panel or a trigger. Stands for NSPanel with its frame, alpha, mouse
// event and ordering operations, and the layer transform of its content view.
class PanelWindow {
 public:
  virtual ~PanelWindow() = default;

  virtual Rect frame() const = 0;
  // An animated change may be shown gradually; frame() gives the new frame at once.
  virtual void setFrame(const Rect& frame, bool animated) = 0;
  virtual double alpha() const = 0;
  virtual void setAlpha(double alpha) = 0;
  virtual bool ignoresMouseEvents() const = 0;
  virtual void setIgnoresMouseEvents(bool ignores) = 0;
  virtual HideTransform transform() const = 0;
  virtual void setTransform(const HideTransform& transform) = 0;

  virtual void orderFront() = 0;
  virtual void orderBack() = 0;
  virtual void orderOut() = 0;
  virtual bool isVisible() const = 0;
  virtual void close() = 0;
};

class PanelWindowFactory {
 public:
  virtual ~PanelWindowFactory() = default;
  virtual std::unique_ptr<PanelWindow> makePanel(const PanelSetup& setup) = 0;
};

}  // namespace tolv
