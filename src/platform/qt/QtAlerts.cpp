#include "platform/qt/QtAlerts.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace tolv::qt {

AlertResult QtAlerts::runModal(const Alert& alert, const AlertPlacement& placement) {
  QDialog dialog;
  dialog.setWindowTitle(QString::fromStdString(alert.title));
  dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
  auto* layout = new QVBoxLayout(&dialog);
  auto* title = new QLabel(QString::fromStdString(alert.title));
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  title->setWordWrap(true);
  layout->addWidget(title);
  if (!alert.text.empty()) {
    auto* text = new QLabel(QString::fromStdString(alert.text));
    text->setWordWrap(true);
    layout->addWidget(text);
  }
  QLineEdit* field = nullptr;
  if (alert.textField) {
    field = new QLineEdit(QString::fromStdString(alert.textField->value));
    field->setPlaceholderText(QString::fromStdString(alert.textField->placeholder));
    field->setMinimumWidth(static_cast<int>(alert.textField->width));
    layout->addWidget(field);
  }
  std::vector<QCheckBox*> boxes;
  for (const auto& box : alert.checkBoxes) {
    auto* check = new QCheckBox(QString::fromStdString(box.title));
    check->setChecked(box.checked);
    layout->addWidget(check);
    boxes.push_back(check);
  }
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  std::vector<std::string> names = alert.buttons;
  if (names.empty()) names.push_back("OK");
  for (size_t i = 0; i < names.size(); ++i) {
    auto* button = new QPushButton(QString::fromStdString(names[i]));
    if (i == 0) button->setDefault(true);
    const int response = kFirstButtonResponse + static_cast<int>(i);
    QObject::connect(button, &QPushButton::clicked, &dialog,
                     [&dialog, response] { dialog.done(response); });
    buttons->addWidget(button);
  }
  layout->addLayout(buttons);
  dialog.adjustSize();

  if (QScreen* primary = QGuiApplication::primaryScreen()) {
    // The toolkit's screens are y down; the placement is y up, so flip around the screen.
    const QRect full = primary->geometry();
    const QRect available = primary->availableGeometry();
    Screen screen;
    screen.frame = Rect{0, 0, double(full.width()), double(full.height())};
    screen.visibleFrame =
        Rect{double(available.x() - full.x()), double(full.bottom() + 1 - (available.bottom() + 1)),
             double(available.width()), double(available.height())};
    Rect frame =
        alertFrame(placement, Size{double(dialog.width()), double(dialog.height())}, screen);
    dialog.move(full.x() + int(frame.x), full.y() + int(full.height() - frame.y - frame.height));
  }
  const int code = dialog.exec();
  AlertResult result;
  result.response =
      code >= kFirstButtonResponse ? code : kFirstButtonResponse + int(names.size()) - 1;
  if (field) result.fieldValue = field->text().toStdString();
  for (QCheckBox* check : boxes)
    result.checkBoxStates.push_back(check->isChecked());
  return result;
}

QtAlerts::~QtAlerts() {
  delete colorDialog_.data();
}

void QtAlerts::showColorPanel(ColorPanelRequest request) {
  colorChanged_ = std::move(request.colorChanged);
  if (!colorDialog_) {
    colorDialog_ = new QColorDialog;
    colorDialog_->setWindowTitle("Colors");
    colorDialog_->setOption(QColorDialog::ShowAlphaChannel, false);
    colorDialog_->setOption(QColorDialog::NoButtons, true);
    colorDialog_->setWindowFlag(Qt::WindowStaysOnTopHint);
    QObject::connect(colorDialog_, &QColorDialog::currentColorChanged, [this](const QColor& color) {
      if (!colorChanged_) return;
      if (!color.isValid()) {
        colorChanged_(std::nullopt);
        return;
      }
      QColor rgb = color.toRgb();
      colorChanged_(PanelColor{rgb.redF(), rgb.greenF(), rgb.blueF()});
    });
  }
  if (request.initial) {
    // Setting the start colour is no choice of the user's: it isn't handed over.
    auto handler = std::move(colorChanged_);
    colorChanged_ = nullptr;
    colorDialog_->setCurrentColor(QColor::fromRgbF(
        float(request.initial->red), float(request.initial->green), float(request.initial->blue)));
    colorChanged_ = std::move(handler);
  }
  colorDialog_->show();
  colorDialog_->raise();
  colorDialog_->activateWindow();
}

}  // namespace tolv::qt
