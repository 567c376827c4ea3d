#include "platform/sim/SimTray.h"

#include <set>

#include "platform/sim/CallCounter.h"
#include "platform/sim/SimDesktop.h"

namespace tolv::sim {

namespace {

AXElement itemElement(SimDockItem item) {
  return AXElement(std::make_shared<const SimDockItem>(std::move(item)));
}

}  // namespace

std::optional<AXElement> SimDock::badgeTreeRoot() {
  calls_.count("badges.badgeTreeRoot");
  if (!running_) return std::nullopt;
  SimDockItem root;
  root.title = std::string("Dock");
  root.subrole = std::monostate{};
  std::set<std::string> running;
  for (const SimApp* app : desktop_.apps()) {
    if (app->setup.policy != ActivationPolicy::Regular) continue;
    SimDockItem item;
    std::string name = app->setup.name.value_or("Application");
    running.insert(name);
    item.title = name;
    if (app->setup.bundleURL) item.url = *app->setup.bundleURL;
    auto badge = badges_.find(name);
    if (badge != badges_.end()) item.statusLabel = badge->second;
    root.children.push_back(std::move(item));
  }
  for (const auto& [title, label] : badges_) {
    if (running.count(title)) continue;
    SimDockItem item;
    item.title = title;
    item.statusLabel = label;
    root.children.push_back(std::move(item));
  }
  root.children.insert(root.children.end(), extraItems_.begin(), extraItems_.end());
  return itemElement(std::move(root));
}

AXValue SimDock::copyAttribute(const AXElement& element, std::string_view attribute) {
  calls_.count("badges.copyAttribute");
  const auto* item = element.as<SimDockItem>();
  if (!item || !running_) return AXError::InvalidUIElement;
  auto answer = [](const AXValue& value) -> AXValue {
    if (std::holds_alternative<std::monostate>(value)) return AXError::NoValue;
    return value;
  };
  if (attribute == badge_attribute::Title) return answer(item->title);
  if (attribute == badge_attribute::Subrole) return answer(item->subrole);
  if (attribute == badge_attribute::StatusLabel) return answer(item->statusLabel);
  if (attribute == badge_attribute::URL) return answer(item->url);
  if (attribute == badge_attribute::Children) {
    AXElementList children;
    for (const auto& child : item->children)
      children.push_back(itemElement(child));
    return children;
  }
  return AXError::AttributeUnsupported;
}

void SimDock::setBadge(const std::string& title, const std::string& label) {
  if (label.empty()) {
    badges_.erase(title);
  } else {
    badges_[title] = label;
  }
}

std::optional<std::vector<PropertyValue::Dictionary>> SimPower::powerSources() {
  calls_.count("power.powerSources");
  return sources_;
}

void SimPower::setSources(std::optional<std::vector<PropertyValue::Dictionary>> sources) {
  sources_ = std::move(sources);
  changed().emit();
}

bool SimAudio::hasDefaultOutputDevice() {
  calls_.count("audio.hasDefaultOutputDevice");
  return device_.has_value();
}

std::optional<float>* SimAudio::element(int element) {
  if (!device_) return nullptr;
  switch (element) {
    case 0:
      return &device_->main;
    case 1:
      return &device_->left;
    case 2:
      return &device_->right;
    default:
      return nullptr;
  }
}

bool SimAudio::hasVolume(int which) {
  calls_.count("audio.hasVolume");
  auto* value = element(which);
  return value && value->has_value();
}

std::optional<float> SimAudio::volume(int which) {
  calls_.count("audio.volume");
  auto* value = element(which);
  return value ? *value : std::nullopt;
}

bool SimAudio::setVolume(int which, float volume) {
  calls_.count("audio.setVolume");
  auto* value = element(which);
  if (!value || !value->has_value()) return false;
  *value = volume;
  return true;
}

void SimAudio::setDevice(std::optional<SimOutputDevice> device) {
  device_ = device;
  changed().emit();
}

std::optional<float> SimBrightness::brightness() {
  calls_.count("brightness.brightness");
  return level_;
}

bool SimBrightness::setBrightness(float level) {
  calls_.count("brightness.setBrightness");
  if (!level_) return false;
  level_ = level;
  return true;
}

void SimBrightness::setLevel(std::optional<float> level) {
  level_ = level;
  changed().emit();
}

}  // namespace tolv::sim
