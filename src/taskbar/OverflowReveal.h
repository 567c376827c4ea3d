#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>

#include "platform/Signal.h"

namespace tolv {

class AppModel;

// Whether a bar's overflow cards are out or tucked away, and the gestures that
// decide it: hovering a card, the overflow arrow, the latch, an open group list
// and a drag. One per bar; it dies with the bar's view.
class OverflowReveal {
 public:
  // `changed` is told whenever what the bar shows may have changed.
  OverflowReveal(AppModel& model, std::function<void()> changed);
  ~OverflowReveal();
  OverflowReveal(const OverflowReveal&) = delete;
  OverflowReveal& operator=(const OverflowReveal&) = delete;

  bool revealed() const;
  // The cards show only their outer edge: while they hide themselves and aren't
  // revealed, or while they don't and aren't expanded.
  bool rowsTucked() const;
  bool latchedOpen() const { return latchedOpen_; }
  const std::set<int>& hoveredRows() const { return hoveredRows_; }

  // Hovering a card reveals the cards after 0.12 s and lets them go 0.4 s after
  // the pointer left; only while the cards hide themselves, and not within 400
  // points of the bar's start on a horizontal bar, where the start menu opens.
  void pointerEnteredRow(int rowID);
  void pointerExitedRow(int rowID);

  // The overflow arrow: a click latches the cards open (or expands them when
  // they don't hide themselves); resting on it for 0.6 s reveals them.
  void arrowClicked();
  void pointerEnteredArrow();
  void pointerExitedArrow();
  // The state the arrow shows and its symbol, pointing toward the closed position.
  bool chevronOn() const;
  std::string chevronSymbol() const;

  void setHeldByGroupPopup(bool held);
  void setDragReveal(bool reveal);
  // The top right corner asks for the cards.
  void openFromCorner();
  // The cards switched between hiding themselves and not: every reveal ends.
  void autoHideOverflowChanged();

 private:
  void update();

  AppModel& model_;
  std::function<void()> changed_;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
  Subscription forcedOpen_;

  std::set<int> hoveredRows_;
  std::set<int> pendingHoverLeaves_;
  std::set<int> pendingHoverEnters_;
  bool dragReveal_ = false;
  bool latchedOpen_ = false;
  bool heldByGroupPopup_ = false;
  bool arrowHovered_ = false;
  uint64_t arrowHoverToken_ = 0;
  bool lastRevealed_ = false;
};

}  // namespace tolv
