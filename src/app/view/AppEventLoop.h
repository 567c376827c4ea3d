#pragma once

#include <fstream>
#include <functional>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

namespace tolv {

class Processes;

// Runs the toolkit's event loop of a shown run: `step`, when given, runs every
// few milliseconds (a timeline on the real clock) and ends the loop by
// returning an exit status; an interrupt or termination signal, or Tolv's own
// termination, ends it with status 0. Without a step nothing wakes the loop but
// its own events: signals arrive through a pipe, and Tolv's own termination is
// looked at each time the loop is about to sleep. The caller then takes Tolv
// down in order.
int runEventLoopUntilEnd(Processes& processes,
                         const std::function<std::optional<int>()>& step = {});

// Catches interrupt and termination signals from here on, for the loop above to
// end on, so that a signal that comes while Tolv is launching ends it in order too.
void catchEndRequests();

// The file that receives one JSON line per checkpoint, flushed line by line.
class CheckpointDump {
 public:
  // False, after saying so on stderr, when the file can't be written.
  bool open(const std::string& path);
  bool isOpen() const { return file_.is_open(); }
  void write(const nlohmann::ordered_json& line);

 private:
  std::ofstream file_;
};

}  // namespace tolv
