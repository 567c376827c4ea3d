#pragma once

#include <optional>

#include "platform/Signal.h"

namespace tolv {

// The volume of the default output device, by element: 0 the main volume, 1
// and 2 the left and right channels. Stands for AudioObjectGetPropertyData,
// AudioObjectHasProperty and AudioObjectSetPropertyData with the default
// output device ('dOut' on the system object) and its 'volm' property in the
// output scope, a 32-bit scalar from 0 to 1.
class Audio {
 public:
  virtual ~Audio() = default;

  virtual bool hasDefaultOutputDevice() = 0;
  virtual bool hasVolume(int element) = 0;
  // Nothing when the element has no volume or the read fails.
  virtual std::optional<float> volume(int element) = 0;
  // Whether the write went through.
  virtual bool setVolume(int element, float volume) = 0;
  // Told on the main loop after the device or its volume changed.
  Signal<>& changed() { return changed_; }

 private:
  Signal<> changed_;
};

}  // namespace tolv
