#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/Audio.h"

struct pa_context;
struct pa_glib_mainloop;

namespace tolv::x11 {

// The volume of the default sink of the PulseAudio server (PipeWire's too),
// through libpulse on the toolkit's GLib main loop: nothing blocks, and every
// answer arrives later on the main thread. The default sink's volume is kept
// from the server's change events; element 0 is that volume, the highest of
// its channels. A server that goes away or restarts is waited for again.
class PulseVolume : public Audio {
 public:
  PulseVolume();
  ~PulseVolume() override;
  PulseVolume(const PulseVolume&) = delete;
  PulseVolume& operator=(const PulseVolume&) = delete;

  bool hasDefaultOutputDevice() override;
  bool hasVolume(int element) override;
  std::optional<float> volume(int element) override;
  // Asks the server to scale the sink's channels so that the highest is
  // `volume`; the reading follows at once and the server's event confirms it.
  bool setVolume(int element, float volume) override;

 private:
  struct Sink;
  static void stateChanged(pa_context* context, void* self);
  static void eventArrived(pa_context* context, int type, uint32_t index, void* self);
  static void serverInfoArrived(pa_context* context, const void* info, void* self);
  static void sinkInfoArrived(pa_context* context, const void* info, int last, void* self);

  void connect();
  void dropContext();
  void askForDefaultSink();
  void forgetSink();

  pa_glib_mainloop* mainloop_ = nullptr;
  pa_context* context_ = nullptr;
  std::unique_ptr<Sink> sink_;
  bool reconnectPosted_ = false;
  // Delayed steps hold this weakly and do nothing once the service is gone.
  std::shared_ptr<int> alive_ = std::make_shared<int>(0);
};

}  // namespace tolv::x11
