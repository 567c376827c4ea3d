#include "arrangement/KeySequences.h"

namespace tolv {

std::vector<KeyEvent> fullScreenToggleKeys() {
  return {
      {posted_key::Function, event_flag::SecondaryFn, true},
      {posted_key::F, event_flag::SecondaryFn, true},
      {posted_key::F, event_flag::SecondaryFn, false},
      {posted_key::Function, 0, false},
  };
}

}  // namespace tolv
