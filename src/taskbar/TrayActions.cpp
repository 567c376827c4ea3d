// The tray's sources and gestures: battery, volume, brightness, the clock's
// ticks, the sliders, the attention list and the corner buttons.

#include <cmath>

#include "discovery/Badges.h"
#include "model/AppModel.h"
#include "model/SettingsCatalogue.h"
#include "taskbar/Tray.h"

namespace tolv {

namespace {

constexpr int kVolumeElements[] = {0, 1, 2};
constexpr double kSecondsPerMinute = 60;
// Fn+N opens the notification centre: key code 45 with the secondary-function flag.
constexpr uint16_t kNotificationCenterKey = 45;

Published<std::optional<float>>& levelOf(AppModel& model, MediaControl control) {
  return control == MediaControl::Volume ? model.volumeLevel : model.brightnessLevel;
}

}  // namespace

std::optional<BatteryStatus> AppModel::readBatteryStatus() {
  if (!platform_.power) return std::nullopt;
  return batteryStatusFrom(platform_.power->powerSources());
}

std::optional<float> AppModel::currentVolume() {
  Audio* audio = platform_.audio;
  if (!audio || !audio->hasDefaultOutputDevice()) return std::nullopt;
  for (int element : kVolumeElements) {
    if (!audio->hasVolume(element)) continue;
    if (auto volume = audio->volume(element)) return clampedLevel(*volume);
  }
  return std::nullopt;
}

void AppModel::setVolume(float volume) {
  Audio* audio = platform_.audio;
  if (!audio || !audio->hasDefaultOutputDevice()) return;
  float level = clampedLevel(volume);
  if (audio->hasVolume(0) && audio->setVolume(0, level)) return;
  for (int channel : {1, 2}) {
    if (audio->hasVolume(channel)) audio->setVolume(channel, level);
  }
}

std::optional<float> AppModel::currentBrightness() {
  if (!platform_.brightness) return std::nullopt;
  auto level = platform_.brightness->brightness();
  if (!level) return std::nullopt;
  return clampedLevel(*level);
}

void AppModel::setBrightness(float level) {
  if (platform_.brightness) platform_.brightness->setBrightness(clampedLevel(level));
}

void AppModel::startTray() {
  std::weak_ptr<AppModel> weak = weak_from_this();
  auto follow = [weak](void (*read)(AppModel&)) {
    return [weak, read] {
      if (auto model = weak.lock()) read(*model);
    };
  };
  auto readBattery = [](AppModel& model) { model.batteryStatus = model.readBatteryStatus(); };
  auto readVolume = [](AppModel& model) { model.volumeLevel = model.currentVolume(); };
  auto readBrightness = [](AppModel& model) { model.brightnessLevel = model.currentBrightness(); };
  tray.clockFormatter = std::make_shared<ClockFormatter>(platform_.clock->timeZoneIdentifier(),
                                                         platform_.clock->localeIdentifier());
  readBatteryColors();
  readBattery(*this);
  readVolume(*this);
  readBrightness(*this);
  if (platform_.power)
    tray.powerChanged = platform_.power->changed().subscribe(follow(readBattery));
  if (platform_.audio) tray.audioChanged = platform_.audio->changed().subscribe(follow(readVolume));
  if (platform_.brightness) {
    tray.brightnessChanged = platform_.brightness->changed().subscribe(follow(readBrightness));
  }
  tray.hiddenChanged = taskbarIsHidden.subscribe([weak](const bool&) {
    if (auto model = weak.lock()) model->updateClockTicking();
  });
  updateClockTicking();
}

void AppModel::readBatteryColors() {
  BatteryColors& colors = tray.batteryColors;
  auto text = [&](const char* key, std::string& value) {
    value = stringValue(readWhereUsed(defaults_, key)).value_or(value);
  };
  text("batteryHighColor", colors.high);
  text("batteryMidColor", colors.mid);
  text("batteryLowColor", colors.low);
  colors.highThreshold =
      intValue(readWhereUsed(defaults_, "batteryHighThreshold")).value_or(colors.highThreshold);
  colors.midThreshold =
      intValue(readWhereUsed(defaults_, "batteryMidThreshold")).value_or(colors.midThreshold);
}

void AppModel::stopTray() {
  tray.powerChanged.reset();
  tray.audioChanged.reset();
  tray.brightnessChanged.reset();
  tray.hiddenChanged.reset();
  tray.clockTimer.reset();
}

void AppModel::updateClockTicking() {
  bool ticking =
      settings.showTimeAndDate && !taskbarIsHidden.get() && !pipeline.taskbarDragInProgress;
  if (!ticking) {
    tray.clockTimer.reset();
    return;
  }
  if (tray.clockTimer && tray.clockTimer->isValid()) return;
  const double now = platform_.clock->secondsSince1970();
  const double minute = std::floor(now / kSecondsPerMinute) * kSecondsPerMinute;
  clockMinute = minute;
  std::weak_ptr<AppModel> weak = weak_from_this();
  tray.clockTimer = platform_.runLoop->scheduleTimer(
      minute + kSecondsPerMinute - now, kSecondsPerMinute, 0, [weak] {
        if (auto model = weak.lock()) {
          double at = model->platform().clock->secondsSince1970();
          model->clockMinute = std::round(at / kSecondsPerMinute) * kSecondsPerMinute;
        }
      });
}

bool AppModel::scrollMediaControl(MediaControl control, double deltaY) {
  auto& level = levelOf(*this, control);
  bool volume = control == MediaControl::Volume;
  auto present = volume ? currentVolume() : currentBrightness();
  // A control without its device can't act: it is drawn disabled and lets the
  // event pass on.
  if (!present) return false;
  WheelStep step;
  step.rate = volume ? settings.volumeScrollRate : settings.brightnessScrollRate;
  step.deltaY = deltaY;
  step.reverse = boolValue(readWhereUsed(defaults_, "reverseMediaScroll")).value_or(false);
  step.present = *present;
  auto next = levelAfterWheel(step);
  if (!next) return false;
  setMediaControlLevel(control, *next);
  level = *next;
  showMediaSlider(control, true);
  return true;
}

void AppModel::setMediaControlLevel(MediaControl control, float level) {
  float clamped = clampedLevel(level);
  if (control == MediaControl::Volume) {
    setVolume(clamped);
    volumeLevel = currentVolume();
  } else {
    setBrightness(clamped);
    brightnessLevel = currentBrightness();
  }
  modelChanged.emit();
}

void AppModel::showMediaSlider(MediaControl control, bool shown) {
  bool volume = control == MediaControl::Volume;
  bool& flag = volume ? tray.volumeSliderShown : tray.brightnessSliderShown;
  uint64_t& generation = volume ? tray.volumeSliderGeneration : tray.brightnessSliderGeneration;
  flag = shown;
  uint64_t stamp = ++generation;
  modelChanged.emit();
  if (!shown) return;
  postAfter(tray_constants::kSliderDismissSeconds, [volume, stamp](AppModel& model) {
    uint64_t current =
        volume ? model.tray.volumeSliderGeneration : model.tray.brightnessSliderGeneration;
    if (current != stamp) return;
    (volume ? model.tray.volumeSliderShown : model.tray.brightnessSliderShown) = false;
    model.modelChanged.emit();
  });
}

void AppModel::openClockApplication(ClockLine line) {
  platform_.workspace->openApplication(line == ClockLine::Time
                                           ? tray_constants::kClockApplication
                                           : tray_constants::kCalendarApplication);
}

void AppModel::toggleAttentionList() {
  tray.attentionListShown = !tray.attentionListShown;
  modelChanged.emit();
}

void AppModel::activateAttentionApp(const AttentionAppItem& app) {
  tray.attentionListShown = false;
  modelChanged.emit();
  if (app.processIdentifier != 0 &&
      platform_.workspace->runningApplication(app.processIdentifier)) {
    platform_.workspace->unhide(app.processIdentifier);
    platform_.workspace->activate(app.processIdentifier, activation_option::AllWindows);
  } else if (app.bundleIdentifier) {
    platform_.workspace->openApplication(*app.bundleIdentifier);
  }
}

void AppModel::openNotificationCenter() {
  tray.attentionListShown = false;
  modelChanged.emit();
  platform_.input->postKeyEvents(EventSourceState::HIDSystem, EventTap::HID,
                                 {{kNotificationCenterKey, event_flag::SecondaryFn, true},
                                  {kNotificationCenterKey, event_flag::SecondaryFn, false}});
}

void AppModel::refreshTasksFromTray() {
  taskbarLayoutCaptureGeneration = taskbarLayoutCaptureGeneration.get() + 1;
  refreshRunningApps({.forceBadgeScan = true, .publish = true});
}

void AppModel::toggleOverflowReturnLock(const std::vector<std::string>& primaryWindowIDs) {
  if (taskbarOverflowReturnLocked.get()) {
    taskbarOverflowReturnLocked = false;
    taskbarLockedMainWindowIDs.clear();
  } else {
    taskbarLockedMainWindowIDs = {primaryWindowIDs.begin(), primaryWindowIDs.end()};
    taskbarOverflowReturnLocked = true;
  }
  modelChanged.emit();
}

void AppModel::confirmCloseAllWindows() {
  Alert alert;
  alert.title = "Close All Windows?";
  alert.text = "All open windows will be closed. Continue?";
  alert.buttons = {"Continue", "Cancel"};
  if (presentAlert(alert, true, 0.5).response != kFirstButtonResponse) return;
  closeAllWindows();
}

std::vector<AttentionAppItem> AppModel::visibleAttentionApps() const {
  return tolv::visibleAttentionApps(settings, attentionApps.get());
}

bool AppModel::showsAttentionIndicator(const std::string& appName) const {
  return tolv::showsAttentionIndicator(settings, appName);
}

bool AppModel::hasVisibleBadge(const std::vector<RunningAppItem>& items) const {
  return tolv::hasVisibleBadge(settings, items);
}

}  // namespace tolv
