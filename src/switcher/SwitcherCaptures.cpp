// The still images of the switcher: few captures at a time, asked for late,
// and every answer that comes after the list or the selection moved on dropped
// by its generation stamp without touching anything.

#include "model/AppModel.h"
#include "switcher/CaptureRules.h"
#include "switcher/LumoSwitcherController.h"
#include "switcher/SwitcherLists.h"

namespace tolv {

bool LumoSwitcherController::captureAllowed() const {
  return model_.platform().screenCapture && state_.screenCaptureTrusted && panelIsVisible();
}

void LumoSwitcherController::resetCaptures(bool clearImageCache) {
  ++captureGeneration_;
  cancelPreview();
  shareableContent_.reset();
  contentFetchInFlight_ = false;
  captureInFlightCount_ = 0;
  activeCaptureIDs_.clear();
  failedCaptureIDs_.clear();
  visibleTileItems_.clear();
  visibleTileCounts_.clear();
  if (clearImageCache) imageCache_.clear();
}

void LumoSwitcherController::cancelPreview() {
  ++selectedPreviewGeneration_;
  selectedPreviewWorkItem_.reset();
}

void LumoSwitcherController::updatePreview() {
  cancelPreview();
  switch (state_.previewMode) {
    case LumoPreviewMode::Tiles:
    case LumoPreviewMode::NoPreview:
      state_.thumbnailImage.reset();
      break;
    case LumoPreviewMode::FocusWindow:
      // The selected window is raised for real; the overlay stays.
      if (state_.selection.windowID == lumo_id::ShowDesktop) break;
      if (state_.selection.windowID && state_.selection.applicationID != lumo_id::Workspaces) {
        if (auto item = resolveSwitcherWindow(state_, *state_.selection.windowID)) {
          bringForward(*item);
          if (state_.lockOpen && overlay_) overlay_->bringToFront();
        }
      }
      break;
    case LumoPreviewMode::Thumbnails:
      state_.thumbnailImage.reset();
      schedulePreview();
      break;
  }
}

void LumoSwitcherController::schedulePreview() {
  if (state_.previewMode != LumoPreviewMode::Thumbnails || !panelIsVisible()) return;
  cancelPreview();
  const Selection selection = state_.selection;
  const int64_t generation = selectedPreviewGeneration_;
  std::weak_ptr<bool> alive = alive_;
  selectedPreviewWorkItem_ = model_.platform().runLoop->scheduleTimer(
      kPreviewDelaySeconds, 0, 0, [this, alive, selection, generation] {
        if (!alive.expired()) runPreview(selection, generation);
      });
}

void LumoSwitcherController::runPreview(const Selection& selection, int64_t generation) {
  if (!panelIsVisible() || state_.previewMode != LumoPreviewMode::Thumbnails) return;
  if (generation != selectedPreviewGeneration_) return;
  if (state_.selection.windowID != selection.windowID) return;
  if (!selection.windowID) return;
  const std::string& id = *selection.windowID;
  if (auto cached = imageCache_.find(id); cached != imageCache_.end()) {
    state_.thumbnailImage = cached->second;
    notify();
    return;
  }
  if (id == lumo_id::ShowDesktop) {
    captureDesktop(generation, false);
    return;
  }
  if (auto item = resolveSwitcherWindow(state_, id)) requestCapture(*item, generation, false);
}

void LumoSwitcherController::requestCapture(const RunningAppItem& item, int64_t previewGeneration,
                                            bool isTile) {
  if (!captureAllowed()) return;
  if (shareableContent_) {
    captureWindow(item, previewGeneration, isTile, captureGeneration_);
  } else {
    fetchShareableContent();
  }
}

void LumoSwitcherController::fetchShareableContent() {
  if (contentFetchInFlight_ || !captureAllowed()) return;
  contentFetchInFlight_ = true;
  const int64_t generation = captureGeneration_;
  std::weak_ptr<bool> alive = alive_;
  model_.platform().screenCapture->fetchShareableContent(
      [this, alive, generation](std::optional<ShareableContent> content) {
        if (alive.expired()) return;
        contentFetchInFlight_ = false;
        if (generation != captureGeneration_ || !panelIsVisible() || !content) return;
        shareableContent_ = std::move(content);
        if (state_.previewMode == LumoPreviewMode::Tiles) {
          pumpTileCaptures();
          if (!state_.thumbnailImages.count(lumo_id::ShowDesktop)) captureDesktop(0, true);
        } else if (state_.previewMode == LumoPreviewMode::Thumbnails) {
          schedulePreview();
        }
      });
}

void LumoSwitcherController::pumpTileCaptures() {
  if (state_.previewMode != LumoPreviewMode::Tiles || !captureAllowed()) return;
  if (!shareableContent_) {
    fetchShareableContent();
    return;
  }
  const int slots = kMaxConcurrentTileCaptures - captureInFlightCount_;
  if (slots <= 0) return;
  int started = 0;
  bool published = false;
  // A copy: a capture's start may change the table.
  const auto items = visibleTileItems_;
  for (const auto& [id, item] : items) {
    if (started >= slots) break;
    if (auto cached = imageCache_.find(id); cached != imageCache_.end()) {
      published = state_.thumbnailImages.emplace(id, cached->second).second || published;
      continue;
    }
    if (activeCaptureIDs_.count(id) || failedCaptureIDs_.count(id)) continue;
    if (captureWindow(item, 0, true, captureGeneration_)) ++started;
  }
  if (published) notify();
}

bool LumoSwitcherController::captureWindow(const RunningAppItem& item, int64_t previewGeneration,
                                           bool isTile, int64_t generation) {
  if (generation != captureGeneration_ || !captureAllowed() || !shareableContent_) return false;
  if (activeCaptureIDs_.count(item.id)) return false;
  auto window = resolveShareableWindow(item, *shareableContent_);
  if (!window) return false;
  if (isTile) {
    if (captureInFlightCount_ >= kMaxConcurrentTileCaptures) return false;
    if (!visibleTileItems_.count(item.id)) return false;
  } else if (captureInFlightCount_ != 0) {
    return false;
  }
  auto [width, height] = captureSize(window->frame, state_.thumbnailSize, isTile);
  ++captureInFlightCount_;
  activeCaptureIDs_.insert(item.id);
  std::weak_ptr<bool> alive = alive_;
  model_.platform().screenCapture->captureWindow(
      *window, width, height,
      [this, alive, id = item.id, generation, previewGeneration,
       isTile](std::optional<Image> image) {
        if (!alive.expired()) captureAnswered(id, generation, previewGeneration, isTile, image);
      });
  notify();
  return true;
}

void LumoSwitcherController::captureDesktop(int64_t previewGeneration, bool isTile) {
  if (!captureAllowed() || !shareableContent_) return;
  if (activeCaptureIDs_.count(lumo_id::ShowDesktop) ||
      failedCaptureIDs_.count(lumo_id::ShowDesktop)) {
    return;
  }
  if (isTile ? captureInFlightCount_ >= kMaxConcurrentTileCaptures : captureInFlightCount_ != 0) {
    return;
  }
  const auto& displays = shareableContent_->displays;
  if (displays.empty()) return;
  const ShareableDisplay* display = &displays.front();
  const Platform& platform = model_.platform();
  if (auto frame = overlayScreenFrame()) {
    for (const auto& screen : platform.screens->screens()) {
      if (!(screen.frame == *frame)) continue;
      for (const auto& candidate : displays) {
        if (candidate.identifier == screen.identifier) display = &candidate;
      }
    }
  }
  auto [width, height] =
      captureSize(Rect{0, 0, display->width, display->height}, state_.thumbnailSize, isTile);
  ++captureInFlightCount_;
  activeCaptureIDs_.insert(lumo_id::ShowDesktop);
  const int64_t generation = captureGeneration_;
  std::weak_ptr<bool> alive = alive_;
  platform.screenCapture->captureDesktop(
      *display, width, height,
      [this, alive, generation, previewGeneration, isTile](std::optional<Image> image) {
        if (!alive.expired()) {
          captureAnswered(lumo_id::ShowDesktop, generation, previewGeneration, isTile, image);
        }
      });
}

void LumoSwitcherController::captureAnswered(const std::string& id, int64_t generation,
                                             int64_t previewGeneration, bool isTile,
                                             std::optional<Image> image) {
  // A reset since the request zeroed the counters; the answer belongs to nobody.
  if (generation != captureGeneration_) return;
  captureInFlightCount_ = std::max(captureInFlightCount_ - 1, 0);
  activeCaptureIDs_.erase(id);
  if (!usableCapture(image)) failedCaptureIDs_.insert(id);
  if (panelIsVisible() && usableCapture(image)) {
    imageCache_[id] = *image;
    const bool desktop = id == lumo_id::ShowDesktop;
    if (isTile) {
      if (state_.previewMode == LumoPreviewMode::Tiles &&
          (desktop || visibleTileItems_.count(id))) {
        state_.thumbnailImages[id] = *image;
      }
    } else if (state_.previewMode == LumoPreviewMode::Thumbnails &&
               previewGeneration == selectedPreviewGeneration_ && state_.selection.windowID == id) {
      state_.thumbnailImage = *image;
    }
  }
  notify();
  if (isTile) pumpTileCaptures();
}

void LumoSwitcherController::setTileVisible(const RunningAppItem& item, bool visible) {
  if (visible) {
    ++visibleTileCounts_[item.id];
    visibleTileItems_[item.id] = item;
    if (state_.previewMode == LumoPreviewMode::Tiles) pumpTileCaptures();
    return;
  }
  auto count = visibleTileCounts_.find(item.id);
  if (count == visibleTileCounts_.end()) return;
  if (--count->second < 1) {
    visibleTileCounts_.erase(count);
    visibleTileItems_.erase(item.id);
  }
}

void LumoSwitcherController::requestThumbnail(const RunningAppItem& item) {
  if (state_.previewMode != LumoPreviewMode::Tiles || !visibleTileItems_.count(item.id)) return;
  if (auto cached = imageCache_.find(item.id); cached != imageCache_.end()) {
    state_.thumbnailImages[item.id] = cached->second;
    notify();
    return;
  }
  pumpTileCaptures();
}

void LumoSwitcherController::requestDesktopPreview(bool forTile) {
  if (!panelIsVisible()) return;
  if (auto cached = imageCache_.find(lumo_id::ShowDesktop); cached != imageCache_.end()) {
    if (forTile) {
      state_.thumbnailImages[lumo_id::ShowDesktop] = cached->second;
    } else {
      state_.thumbnailImage = cached->second;
    }
    notify();
    return;
  }
  if (!shareableContent_) {
    fetchShareableContent();
    return;
  }
  captureDesktop(forTile ? 0 : selectedPreviewGeneration_, forTile);
}

}  // namespace tolv
