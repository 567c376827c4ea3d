#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Audio.h"
#include "platform/Badges.h"
#include "platform/Brightness.h"
#include "platform/Power.h"

namespace tolv::sim {

class CallCounter;
class SimDesktop;

// One item of the simulated Dock's tree, with the attribute values it answers.
struct SimDockItem {
  AXValue title;
  AXValue subrole = std::string(badge_attribute::ApplicationItem);
  AXValue statusLabel;
  AXValue url;
  std::vector<SimDockItem> children;
};

// The Dock: while it runs, its tree holds one application item per regular
// application (titled with its name, its URL the bundle's) and one per badge
// whose title no running application has; the items added by hand follow.
class SimDock : public Badges {
 public:
  SimDock(const SimDesktop& desktop, CallCounter& calls) : desktop_(desktop), calls_(calls) {}

  std::optional<AXElement> badgeTreeRoot() override;
  AXValue copyAttribute(const AXElement& item, std::string_view attribute) override;

  void setRunning(bool running) { running_ = running; }
  bool running() const { return running_; }
  // The status label of the items of that title; "" removes it.
  void setBadge(const std::string& title, const std::string& label);
  const std::map<std::string, std::string>& badges() const { return badges_; }
  // Folders, stacks and odd items, after the generated ones.
  void setExtraItems(std::vector<SimDockItem> items) { extraItems_ = std::move(items); }

 private:
  const SimDesktop& desktop_;
  CallCounter& calls_;
  bool running_ = false;
  std::map<std::string, std::string> badges_;
  std::vector<SimDockItem> extraItems_;
};

// Power sources that a scenario sets: none at all, or a list of descriptions.
class SimPower : public Power {
 public:
  explicit SimPower(CallCounter& calls) : calls_(calls) {}
  std::optional<std::vector<PropertyValue::Dictionary>> powerSources() override;
  // Replaces the sources and announces the change.
  void setSources(std::optional<std::vector<PropertyValue::Dictionary>> sources);

 private:
  CallCounter& calls_;
  std::optional<std::vector<PropertyValue::Dictionary>> sources_;
};

// The default output device: absent, or with a main volume and, when it has
// them, per-channel volumes.
struct SimOutputDevice {
  std::optional<float> main;
  std::optional<float> left;
  std::optional<float> right;
};

// A device with a main volume only.
inline SimOutputDevice outputDevice(float volume) {
  SimOutputDevice device;
  device.main = volume;
  return device;
}

class SimAudio : public Audio {
 public:
  explicit SimAudio(CallCounter& calls) : calls_(calls) {}
  bool hasDefaultOutputDevice() override;
  bool hasVolume(int element) override;
  std::optional<float> volume(int element) override;
  bool setVolume(int element, float volume) override;

  // Replaces the device and announces the change.
  void setDevice(std::optional<SimOutputDevice> device);
  const std::optional<SimOutputDevice>& device() const { return device_; }

 private:
  std::optional<float>* element(int element);
  CallCounter& calls_;
  std::optional<SimOutputDevice> device_;
};

class SimBrightness : public Brightness {
 public:
  explicit SimBrightness(CallCounter& calls) : calls_(calls) {}
  std::optional<float> brightness() override;
  bool setBrightness(float level) override;

  // Nothing: the display's brightness functions are missing.
  void setLevel(std::optional<float> level);
  const std::optional<float>& level() const { return level_; }

 private:
  CallCounter& calls_;
  std::optional<float> level_;
};

}  // namespace tolv::sim
