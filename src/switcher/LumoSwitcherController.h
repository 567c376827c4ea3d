#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/Records.h"
#include "platform/HotKeys.h"
#include "platform/NotificationCenter.h"
#include "platform/RunLoop.h"
#include "platform/ScreenCapture.h"
#include "platform/Signal.h"
#include "switcher/SafetyWatchdog.h"
#include "switcher/SwitcherController.h"
#include "switcher/SwitcherOverlay.h"
#include "switcher/SwitcherState.h"

namespace tolv {

class AppModel;

// Names the switcher's two hot keys to their handler.
inline constexpr const char* kLumoHotKeySignature = "LUMS";
namespace lumo_hot_key {
inline constexpr uint32_t Forward = 1;  // Control-Tab
inline constexpr uint32_t Reverse = 2;  // Control-Shift-Tab
}  // namespace lumo_hot_key
// Posted by whoever changes controlTabLumoSwitcherEnabled.
inline constexpr const char* kControlTabLumoSettingChanged = "TolvControlTabLumoSettingChanged";

// The Control-Tab switcher: its state, its list and the keyboard, the life of
// the overlay, the still images of the windows and the watchdog that guards the
// process while the overlay holds the screen and the keyboard.
class LumoSwitcherController : public SwitcherController {
 public:
  static constexpr double kKeyStepSeconds = 0.2;
  static constexpr double kPreviewDelaySeconds = 0.3;
  static constexpr int kMaxConcurrentTileCaptures = 4;

  LumoSwitcherController(AppModel& model, std::unique_ptr<SwitcherOverlay> overlay);
  ~LumoSwitcherController() override;
  LumoSwitcherController(const LumoSwitcherController&) = delete;
  LumoSwitcherController& operator=(const LumoSwitcherController&) = delete;

  // Follows the setting and registers the hot keys.
  void start() override;
  // Gives back the hot keys and the monitors, stops the watchdog and closes.
  void stop() override;
  bool panelIsVisible() const override;
  void close() override;

  // ---- the list and the keyboard ----
  // Opens on the lock row; `lockOpen` keeps it open when Control comes up.
  void open(bool lockOpen);
  void moveSelection(bool reverse);
  void moveSelectionAmongWindows(int step);
  void commit();
  void toggleLock();
  // Control-Tab (or with Shift, reverse) from anywhere: opens, or steps.
  void handleHotKey(bool reverse);
  // Registers both hot keys while controlTabLumoSwitcherEnabled holds; else
  // gives them back and closes.
  void applyHotKeySetting();

  // ---- what the overlay's rows and menus do ----
  void selectWindow(const std::string& windowID);
  void selectApplication(const std::string& groupID);
  void selectWorkspace(const std::string& workspaceID);
  void selectSpecialWindow(const std::string& applicationID, const std::string& windowID);
  void selectShowDesktop();
  void openWindow(const std::string& windowID);
  void openApplication(const std::string& groupID);
  void openWorkspace(const std::string& workspaceID);
  void openShowDesktop();
  void hideAllWindows();
  void closeAllWindows();
  void refreshList();
  void closeWindow(const RunningAppItem& item);
  void quitWindow(const RunningAppItem& item);
  void setPreviewMode(LumoPreviewMode mode);
  void setExpanded(const std::string& sectionID, bool expanded);

  // ---- still images ----
  void setTileVisible(const RunningAppItem& item, bool visible);
  void requestThumbnail(const RunningAppItem& item);
  void requestDesktopPreview(bool forTile);

  const LumoSwitcherState& state() const { return state_; }
  const std::vector<NavTarget>& navigation() const { return navigation_; }
  size_t navigationIndex() const { return navigationIndex_; }
  LumoSafetyWatchdog& safetyWatchdog() { return *watchdog_; }
  bool forwardHotKeyRegistered() const { return forwardHotKeyRef_.has_value(); }
  bool reverseHotKeyRegistered() const { return reverseHotKeyRef_.has_value(); }
  int captureInFlightCount() const { return captureInFlightCount_; }
  const std::set<std::string>& activeCaptureIDs() const { return activeCaptureIDs_; }
  // Told whenever the state changes; the view redraws.
  Signal<> changed;

 private:
  void resetState(bool lockOpen);
  void fillSections(const LumoGroups& groups);
  void freezeStrips();
  void rebuildNavigation();
  void select(const NavTarget& target, bool scroll);
  void selectBy(Selection selection);
  bool stepAllowed();
  void installMonitors();
  void removeMonitors();
  bool handleKeyDown(int keyCode, uint32_t modifiers);
  void handleFlagsChanged(uint32_t modifiers);
  void releaseControl();
  bool controlHeld();
  void bringForward(const RunningAppItem& item);
  void runShowDesktop();
  void reload(const std::set<std::string>& droppedIDs, std::optional<Pid> droppedProcess);
  void notify();
  // Runs `work` on a later turn of the main queue while the controller lives.
  void post(std::function<void(LumoSwitcherController&)> work);

  // Captures.
  bool captureAllowed() const;
  void resetCaptures(bool clearImageCache);
  void cancelPreview();
  void updatePreview();
  void schedulePreview();
  void runPreview(const Selection& selection, int64_t generation);
  void requestCapture(const RunningAppItem& item, int64_t previewGeneration, bool isTile);
  void fetchShareableContent();
  void pumpTileCaptures();
  bool captureWindow(const RunningAppItem& item, int64_t previewGeneration, bool isTile,
                     int64_t generation);
  void captureDesktop(int64_t previewGeneration, bool isTile);
  void captureAnswered(const std::string& id, int64_t generation, int64_t previewGeneration,
                       bool isTile, std::optional<Image> image);
  std::optional<Rect> overlayScreenFrame() const;

  AppModel& model_;
  std::unique_ptr<SwitcherOverlay> overlay_;
  std::unique_ptr<LumoSafetyWatchdog> watchdog_;
  LumoSwitcherState state_;
  std::vector<NavTarget> navigation_;
  size_t navigationIndex_ = 0;
  double lastKeyboardNavigationTime_ = -1e9;
  bool accessRequestedBefore_ = false;

  std::optional<HotKeys::Handle> forwardHotKeyRef_;
  std::optional<HotKeys::Handle> reverseHotKeyRef_;
  std::optional<HotKeys::Handle> hotKeyHandler_;
  std::optional<NotificationCenter::Token> settingObserver_;
  std::optional<HotKeys::Handle> localKeyMonitor_;
  std::optional<HotKeys::Handle> localFlagsMonitor_;
  std::optional<HotKeys::Handle> globalFlagsMonitor_;
  bool keyboardTaken_ = false;

  std::map<std::string, Image> imageCache_;
  std::optional<ShareableContent> shareableContent_;
  bool contentFetchInFlight_ = false;
  int captureInFlightCount_ = 0;
  std::set<std::string> activeCaptureIDs_;
  // Captures that came back without an image; not tried again until a reset.
  std::set<std::string> failedCaptureIDs_;
  int64_t captureGeneration_ = 0;
  std::unique_ptr<Timer> selectedPreviewWorkItem_;
  int64_t selectedPreviewGeneration_ = 0;
  std::map<std::string, RunningAppItem> visibleTileItems_;
  std::map<std::string, int> visibleTileCounts_;

  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tolv
