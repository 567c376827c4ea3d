#include "platform/Processes.h"

namespace tolv {

bool isProcessAlive(Processes& processes, Pid pid) {
  if (pid <= 0) return false;
  int error = processes.sendSignal(pid, process_signal::Probe);
  return error == 0 || error == process_error::NotPermitted;
}

}  // namespace tolv
