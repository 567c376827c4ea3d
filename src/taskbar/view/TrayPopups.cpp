#include "taskbar/view/TrayPopups.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include <cmath>

#include "model/AppModel.h"
#include "taskbar/view/TabPainter.h"

namespace tolv {

namespace {

constexpr int kSliderWidth = 150;
constexpr int kRowMinimumWidth = 210;
constexpr int kSliderSteps = 1000;

QPushButton* plainButton(const QString& text, QWidget* parent) {
  auto* button = new QPushButton(text, parent);
  button->setFlat(true);
  return button;
}

QString percentText(double level) {
  return QString::number(static_cast<int>(std::trunc(level * 100))) + "%";
}

}  // namespace

std::optional<TrayPopupKind> wantedTrayPopup(const AppModel& model) {
  if (model.tray.attentionListShown) return TrayPopupKind::AttentionList;
  if (model.tray.volumeSliderShown && model.volumeLevel.get()) return TrayPopupKind::VolumeSlider;
  if (model.tray.brightnessSliderShown && model.brightnessLevel.get()) {
    return TrayPopupKind::BrightnessSlider;
  }
  if (model.tray.batteryStatusPinned) return TrayPopupKind::BatteryStatus;
  return std::nullopt;
}

TrayKind trayPopupAnchor(TrayPopupKind kind) {
  switch (kind) {
    case TrayPopupKind::AttentionList:
      return TrayKind::Attention;
    case TrayPopupKind::VolumeSlider:
      return TrayKind::Volume;
    case TrayPopupKind::BrightnessSlider:
      return TrayKind::Brightness;
    case TrayPopupKind::BatteryStatus:
      return TrayKind::Battery;
  }
  return TrayKind::Attention;
}

std::unique_ptr<QWidget> makeAttentionList(AppModel& model) {
  auto popup = std::make_unique<QWidget>();
  auto* column = new QVBoxLayout(popup.get());
  column->setContentsMargins(8, 6, 8, 6);
  auto* header = new QHBoxLayout();
  auto* centre = plainButton("🔔 Notification Center", popup.get());
  QObject::connect(centre, &QPushButton::clicked, [&model] { model.openNotificationCenter(); });
  header->addWidget(centre);
  auto* collapse = plainButton("^", popup.get());
  collapse->setFont(systemFont(11));
  collapse->setFixedSize(20, 20);
  auto* close = plainButton("✕", popup.get());
  for (auto* closer : {collapse, close})
    QObject::connect(closer, &QPushButton::clicked, [&model] { model.toggleAttentionList(); });
  header->addWidget(collapse);
  header->addWidget(close);
  column->addLayout(header);

  const auto apps = model.visibleAttentionApps();
  if (apps.empty()) column->addWidget(new QLabel("No apps need attention", popup.get()));
  for (const auto& app : apps) {
    auto* row = plainButton(QString::fromStdString(app.name), popup.get());
    row->setMinimumWidth(kRowMinimumWidth);
    QObject::connect(row, &QPushButton::clicked,
                     [&model, app] { model.activateAttentionApp(app); });
    column->addWidget(row);
  }
  return popup;
}

std::unique_ptr<QWidget> makeMediaSlider(AppModel& model, MediaControl control) {
  auto popup = std::make_unique<QWidget>();
  auto* row = new QHBoxLayout(popup.get());
  row->setContentsMargins(12, 12, 12, 12);
  bool volume = control == MediaControl::Volume;
  auto* icon = new QLabel(volume ? "🔊" : "☀", popup.get());
  icon->setFixedWidth(18);
  row->addWidget(icon);
  auto* slider = new QSlider(Qt::Horizontal, popup.get());
  slider->setRange(0, kSliderSteps);
  slider->setFixedWidth(kSliderWidth);
  double level = (volume ? model.volumeLevel.get() : model.brightnessLevel.get()).value_or(0);
  slider->setValue(static_cast<int>(std::lround(level * kSliderSteps)));
  auto* percent = new QLabel(percentText(level), popup.get());
  percent->setFont(QFont("monospace"));
  QObject::connect(slider, &QSlider::valueChanged, [&model, control, percent](int value) {
    double chosen = static_cast<double>(value) / kSliderSteps;
    percent->setText(percentText(chosen));
    model.setMediaControlLevel(control, static_cast<float>(chosen));
    // Each move keeps the slider open for another while.
    model.showMediaSlider(control, true);
  });
  row->addWidget(slider);
  row->addWidget(percent);
  auto* close = plainButton("✕", popup.get());
  QObject::connect(close, &QPushButton::clicked,
                   [&model, control] { model.showMediaSlider(control, false); });
  row->addWidget(close, 0, Qt::AlignTop);
  return popup;
}

std::unique_ptr<QWidget> makeBatteryStatus(const AppModel& model) {
  auto popup = std::make_unique<QWidget>();
  auto* column = new QVBoxLayout(popup.get());
  column->setContentsMargins(12, 10, 12, 10);
  const auto& status = model.batteryStatus.get();
  if (!status) {
    column->addWidget(new QLabel("Battery status unavailable", popup.get()));
    return popup;
  }
  auto* title = new QLabel(status->isCharging ? "Charging:" : "Battery:", popup.get());
  QFont font = title->font();
  font.setWeight(QFont::Medium);
  title->setFont(font);
  column->addWidget(title);
  auto* bar = new QProgressBar(popup.get());
  bar->setRange(0, 100);
  bar->setValue(static_cast<int>(status->percentage));
  bar->setTextVisible(false);
  if (status->isCharging) bar->setStyleSheet("QProgressBar::chunk { background: #34C759; }");
  column->addWidget(bar);
  column->addWidget(new QLabel(QString::number(status->percentage) + "%", popup.get()));
  return popup;
}

}  // namespace tolv
