#pragma once

#include <cstdint>

namespace tolv {

// The bar's width and its task area's width as first measured. Once captured
// they stay, so that the rows do not follow the space their own content takes;
// a new capture is asked for when the primary row's fixed parts change.
struct LayoutCapture {
  double savedTaskbarScreenWidth = 0;
  double savedTaskAreaWidth = 0;
  uint64_t generation = 0;
  bool pending = false;

  // Keeps a measurement when one is asked for or none is kept yet, and only a
  // measurement of two positive widths.
  void offer(double screenWidth, double taskAreaWidth) {
    bool wanted = pending || savedTaskbarScreenWidth <= 0 || savedTaskAreaWidth <= 0;
    if (!wanted || screenWidth <= 0 || taskAreaWidth <= 0) return;
    savedTaskbarScreenWidth = screenWidth;
    savedTaskAreaWidth = taskAreaWidth;
    pending = false;
  }
  void requestCapture() {
    pending = true;
    ++generation;
  }
};

}  // namespace tolv
