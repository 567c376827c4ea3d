#pragma once

#include "platform/Alerts.h"

namespace tolv::qt {

// Alerts as modal toolkit dialogs: the title in bold over the text, an optional
// one-line field, the buttons in the given order with the first as default.
// Placed on the primary screen as the placement asks.
class QtAlerts : public Alerts {
 public:
  AlertResult runModal(const Alert& alert, const AlertPlacement& placement) override;
};

}  // namespace tolv::qt
