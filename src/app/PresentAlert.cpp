// Every alert of the system is shown here.

#include "model/AppModel.h"

namespace tolv {

AlertResult AppModel::presentAlert(const Alert& alert, bool centred, double fraction) {
  AlertPlacement placement;
  placement.centred = centred;
  placement.fraction = fraction;
  placement.fromTop = settings.taskbarLocation == "topL" || settings.taskbarLocation == "topR";
  return platform_.alerts->runModal(alert, placement);
}

}  // namespace tolv
