#pragma once

#include <QPointer>

#include "platform/Alerts.h"

class QColorDialog;

namespace tolv::qt {

// Alerts as modal toolkit dialogs: the title in bold over the text, an optional
// one-line field, the buttons in the given order with the first as default.
// Placed on the primary screen as the placement asks.
class QtAlerts : public Alerts {
 public:
  ~QtAlerts() override;
  AlertResult runModal(const Alert& alert, const AlertPlacement& placement) override;
  // One toolkit colour dialog without buttons, kept on top: every colour the
  // user moves to is handed over at once, as the system colour panel does.
  void showColorPanel(ColorPanelRequest request) override;

 private:
  QPointer<QColorDialog> colorDialog_;
  std::function<void(std::optional<PanelColor>)> colorChanged_;
};

}  // namespace tolv::qt
