#pragma once

#include <memory>
#include <vector>

#include "taskbar/PanelWindow.h"

namespace tolv::testing {

// A panel window that only keeps its state and counts the writes made to it.
class FakePanelWindow : public PanelWindow {
 public:
  explicit FakePanelWindow(const PanelSetup& setup) : setup(setup), frame_(setup.frame) {}

  Rect frame() const override { return frame_; }
  void setFrame(const Rect& frame, bool animated) override {
    frame_ = frame;
    lastFrameAnimated = animated;
    ++frameWrites;
  }
  double alpha() const override { return alpha_; }
  void setAlpha(double alpha) override {
    alpha_ = alpha;
    ++alphaWrites;
  }
  bool ignoresMouseEvents() const override { return ignoresMouse_; }
  void setIgnoresMouseEvents(bool ignores) override {
    ignoresMouse_ = ignores;
    ++mouseWrites;
  }
  HideTransform transform() const override { return transform_; }
  void setTransform(const HideTransform& transform) override { transform_ = transform; }
  void orderFront() override {
    visible_ = true;
    orderedBack = false;
  }
  void orderBack() override {
    visible_ = true;
    orderedBack = true;
  }
  void orderOut() override { visible_ = false; }
  bool isVisible() const override { return visible_; }
  void close() override {
    visible_ = false;
    closed = true;
  }

  PanelSetup setup;
  int frameWrites = 0;
  int alphaWrites = 0;
  int mouseWrites = 0;
  bool lastFrameAnimated = false;
  bool orderedBack = false;
  bool closed = false;

 private:
  Rect frame_;
  double alpha_ = 1;
  bool ignoresMouse_ = false;
  HideTransform transform_;
  bool visible_ = false;
};

class FakePanelFactory : public PanelWindowFactory {
 public:
  std::unique_ptr<PanelWindow> makePanel(const PanelSetup& setup) override {
    auto window = std::make_unique<FakePanelWindow>(setup);
    made.push_back(window.get());
    return window;
  }
  std::vector<FakePanelWindow*> made;
};

}  // namespace tolv::testing
