#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/sim/SimHotKeys.h"
#include "platform/sim/SimScreenCapture.h"
#include "support/SimModel.h"
#include "switcher/LumoSwitcherController.h"

namespace tolv::testing {

// The overlay window as the controller sees it, with what was done to it.
class FakeOverlay : public SwitcherOverlay {
 public:
  void showCovering(const Rect& frame) override {
    visible = true;
    shownOn = frame;
  }
  void hide() override { visible = false; }
  bool isVisible() const override { return visible; }
  void bringToFront() override { ++broughtToFront; }
  void stateChanged() override { ++redraws; }

  bool visible = false;
  Rect shownOn;
  int broughtToFront = 0;
  int redraws = 0;
};

// A started model on a simulated desktop with a switcher on it, and a hand on
// the keyboard.
class SwitcherTest : public ::testing::Test {
 protected:
  SimModel sim;
  sim::SimDesktop& desktop = sim.desktop;
  FakeOverlay* overlay = nullptr;
  std::unique_ptr<LumoSwitcherController> switcher;

  AppModel& model() { return sim.model(); }

  void startOn(const std::vector<sim::AppSetup>& apps) {
    desktop.populate(apps);
    model().start();
    auto owned = std::make_unique<FakeOverlay>();
    overlay = owned.get();
    switcher = std::make_unique<LumoSwitcherController>(model(), std::move(owned));
    switcher->start();
    advance(3.0);
  }
  void advance(double seconds) { desktop.runLoop().advance(seconds); }

  sim::SimHotKeys& keys() { return desktop.hotKeys(); }
  void controlDown() { keys().holdModifiers(key_modifier::Control); }
  void controlUp() {
    keys().holdModifiers(0);
    advance(0.05);
  }
  // Control-Tab (or Control-Shift-Tab) while Control is held, then a pause
  // longer than the key step.
  void controlTab(bool reverse = false) {
    keys().press(key_code::Tab, key_modifier::Control | (reverse ? key_modifier::Shift : 0));
    advance(0.25);
  }
  void press(int keyCode, uint32_t modifiers = 0) {
    keys().press(keyCode, modifiers);
    advance(0.25);
  }

  std::string selectedWindow() { return switcher->state().selection.windowID.value_or("-"); }
  std::string nameOf(const std::string& id) {
    for (const auto& item : model().runningApps.get()) {
      if (item.id == id) return item.name;
    }
    return id;
  }
  // The names of the windows the desktop raised, in order.
  std::vector<std::string> raised() {
    std::vector<std::string> names;
    for (const auto& entry : desktop.actionLog()) {
      if (entry["kind"] == "axAction" && entry["action"] == "AXRaise") {
        names.push_back(entry["window"].get<std::string>());
      }
    }
    return names;
  }
  int captures() { return int(desktop.calls()["screenCapture.captureWindow"]); }
};

}  // namespace tolv::testing
