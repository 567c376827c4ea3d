#pragma once

namespace tolv {

// A group's popup as the bar tells the model of it: whether it is shown, and
// whether it belongs to an overflow card and so holds the cards open.
struct GroupPopupState {
  bool shown = false;
  bool holdsOverflow = false;
};

}  // namespace tolv
