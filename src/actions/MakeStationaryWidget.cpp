#include "actions/MakeStationaryWidget.h"

#include "actions/MakeStationaryAction.h"
#include "host/PICommon.h"
#include "host/PIDataEntities.h"
#include "host/PURegistry.h"
#include "plugin/ActionUtilities.h"
#include "processing/MakeStationary.h"
#include "utils/EntityTreeModel.h"
#include "utils/RegistrySettingsStorage.h"
#include "widgets/BoundBooleanSetting.h"
#include "widgets/BoundIntegerSetting.h"
#include "widgets/BoundSetting.h"
#include "widgets/EntityTreeComposite.h"
#include "widgets/FormatTooltip.h"
#include "widgets/SelectableEntityFilter.h"
#include "widgets/SettingsGroup.h"
#include "widgets/SettingsImpl.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

#include <set>

namespace QtSep
{

const char* const MakeStationaryWidget::SETTINGS_GROUP = "Private/ScenarioEditor/MakeStationary";

namespace
{

constexpr int SYNCHRONIZE_MILLISECONDS = 5000;
constexpr int DEFAULT_DISTANCE = 100; // metres
constexpr int DEFAULT_ANGLE = 10;     // degrees

QLabel* wrapped(const QString& text)
{
  auto* label = new QLabel(text);
  label->setWordWrap(true);
  return label;
}

QPushButton* button(const char* name, const QString& text, const QString& title, const QString& body)
{
  auto* made = new QPushButton(text);
  made->setObjectName(name);
  made->setToolTip(kelQt::formatTooltip(title, body));
  return made;
}

} // namespace

MakeStationaryWidget::MakeStationaryWidget(QWidget* parent)
  : TabWidget(parent),
    settings_(std::make_shared<kelQt::SettingsImpl>(std::make_unique<PluginUtils::RegistrySettingsStorage>())),
    group_(std::make_shared<kelQt::SettingsGroup>(settings_.get(), SETTINGS_GROUP)),
    model_(new PluginUtils::EntityTreeModel(this)),
    composite_(new kelQt::EntityTreeComposite),
    filter_(new kelQt::SelectableEntityFilter),
    lifeSpanCheckBox_(new QCheckBox(tr("Maintain Life Span"))),
    detectPushButton_(button("detectPushButton", tr("Detect"), tr("Detect"),
                             tr("Find stationary platforms as defined by the given criteria."))),
    acceptPushButton_(button("acceptPushButton", tr("Accept"), tr("Accept"),
                             tr("Convert the selected platforms to static platforms."))),
    cancelPushButton_(button("cancelPushButton", tr("Cancel"), tr("Cancel"), tr("Clear the list of platforms."))),
    timer_(new QTimer(this))
{
  auto* column = new QVBoxLayout(this);
  column->addWidget(wrapped(tr("Platforms meeting the following deltas over all TSPI points will be shown in the "
                               "detection list below. If no options are selected then all non-static platforms "
                               "will be shown in the detection list.")));
  auto* deltas = new QGridLayout;
  column->addLayout(deltas);
  addDelta_(deltas, "distance", tr("Delta ground distance less than:"), tr(" m"), 10000, DEFAULT_DISTANCE,
            tr("Include Distance"),
            tr("Include ground distance covered by the platform when determining if a platform is stationary."),
            tr("Distance Value"),
            tr("A platform is considered stationary if the ground distance is less than the given value."),
            distanceCheckBox_, distanceSpinBox_);
  for (const auto& [name, word, label, maximum, check, spin] :
       {std::make_tuple("yaw", "yaw", tr("Delta yaw less:"), 180, &yawCheckBox_, &yawSpinBox_),
        std::make_tuple("pitch", "pitch", tr("Delta pitch less than:"), 90, &pitchCheckBox_, &pitchSpinBox_),
        std::make_tuple("roll", "roll", tr("Delta roll less than:"), 90, &rollCheckBox_, &rollSpinBox_)})
  {
    const QString title = QString(word).left(1).toUpper() + QString(word).mid(1);
    addDelta_(deltas, name, label, tr(" deg"), maximum, DEFAULT_ANGLE, tr("Include %1").arg(title),
              tr("Include the changes in a platform's %1 value when determining if a platform is stationary.").arg(word),
              tr("%1 Value").arg(title),
              tr("A platform is considered stationary if the change in the %1 value is less than the given value.").arg(word),
              *check, *spin);
  }
  deltas->setColumnStretch(2, 1);

  lifeSpanCheckBox_->setObjectName("lifeSpanCheckBox");
  lifeSpanCheckBox_->setToolTip(kelQt::formatTooltip(
    tr("Maintain Life Span"), tr("If true then drop all but the first point and repeat the first point with the time of "
                                 "the last point. If false then drop all but the first point and set the first point's "
                                 "time to -1.")));
  lifeSpanCheckBox_->setChecked(
    PURegistry::loadReg(MakeStationaryAction::LIFE_SPAN_DEFAULT, MakeStationaryAction::LIFE_SPAN_KEY));
  column->addWidget(lifeSpanCheckBox_);
  connect(lifeSpanCheckBox_, &QCheckBox::toggled, this, &MakeStationaryWidget::updateRegistry_);

  auto* detectRow = new QHBoxLayout;
  detectRow->addWidget(new QLabel(tr("Press Detect to update the list:")));
  detectRow->addWidget(detectPushButton_);
  detectRow->addStretch(1);
  column->addLayout(detectRow);

  model_->forceRefresh();
  composite_->setObjectName("entityTreeComposite");
  composite_->setModel(model_);
  composite_->addEntityFilter(filter_);
  column->addWidget(composite_, 1);

  column->addWidget(wrapped(tr("Make Stationary will apply for all selected platforms.  Click \"Accept\" only if you "
                               "wish to continue.")));
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(acceptPushButton_);
  buttons->addWidget(cancelPushButton_);
  column->addLayout(buttons);

  connect(detectPushButton_, &QPushButton::clicked, this, &MakeStationaryWidget::detectStaticPlatforms_);
  connect(acceptPushButton_, &QPushButton::clicked, this, &MakeStationaryWidget::makeSelectedPlatformsStatic_);
  connect(cancelPushButton_, &QPushButton::clicked, this, &MakeStationaryWidget::cancel_);
  connect(composite_, &kelQt::EntityTreeComposite::itemsSelected, this, &MakeStationaryWidget::updateEnable_);
  timer_->setInterval(SYNCHRONIZE_MILLISECONDS);
  connect(timer_, &QTimer::timeout, model_, &PluginUtils::EntityTreeModel::synchronizeToScenario);
  timer_->start();
  updateEnable_();
}

MakeStationaryWidget::~MakeStationaryWidget() = default;

void MakeStationaryWidget::addDelta_(QGridLayout* grid, const char* name, const QString& label, const QString& suffix, int maximum,
                                     int initial, const QString& enableTitle, const QString& enableText,
                                     const QString& valueTitle, const QString& valueText, QCheckBox*& check,
                                     QSpinBox*& spin)
{
  const QString key = QString(name).left(1).toUpper() + QString(name).mid(1);
  check = new QCheckBox(label);
  check->setObjectName(QString(name) + "CheckBox");
  spin = new QSpinBox;
  spin->setObjectName(QString(name) + "SpinBox");
  spin->setSuffix(suffix);
  // Owned here rather than by Qt, so that they go before the settings they observe.
  auto* enabled = new kelQt::BoundBooleanSetting(nullptr, *group_, key + "Enable",
                                                 kelQt::Settings::MetaData::makeBoolean(false, kelQt::formatTooltip(enableTitle, enableText)));
  auto* value = new kelQt::BoundIntegerSetting(nullptr, *group_, key + "Value",
                                               kelQt::Settings::MetaData::makeInteger(initial, kelQt::formatTooltip(valueTitle, valueText),
                                                                                     kelQt::Settings::MetaData::DEFAULT, 1, maximum));
  bound_.emplace_back(enabled);
  bound_.emplace_back(value);
  enabled->bindTo(check);
  value->bindTo(spin);
  const int row = grid->rowCount();
  grid->addWidget(check, row, 0);
  grid->addWidget(spin, row, 1);
  connect(check, &QCheckBox::toggled, this, &MakeStationaryWidget::setCanDetect_);
  connect(spin, QOverload<int>::of(&QSpinBox::valueChanged), this, &MakeStationaryWidget::setCanDetect_);
}

void MakeStationaryWidget::setCanDetect_()
{
  if (canDetect_)
    return;
  canDetect_ = true;
  updateEnable_();
}

void MakeStationaryWidget::updateEnable_()
{
  acceptPushButton_->setEnabled(!composite_->selectedItems().isEmpty());
  cancelPushButton_->setEnabled(!filter_->empty());
  detectPushButton_->setEnabled(canDetect_);
}

void MakeStationaryWidget::detectStaticPlatforms_()
{
  PICommon::beginWaitCursor();
  canDetect_ = false;
  filter_->clear();
  std::vector<UniqueID_t> platforms;
  PIData::getPlatformList(&platforms);
  if (!platforms.empty())
  {
    MakeStationary criteria;
    criteria.setDistance(distanceCheckBox_->isChecked(), distanceSpinBox_->value());
    criteria.setYaw(yawCheckBox_->isChecked(), yawSpinBox_->value());
    criteria.setPitch(pitchCheckBox_->isChecked(), pitchSpinBox_->value());
    criteria.setRoll(rollCheckBox_->isChecked(), rollSpinBox_->value());
    std::set<unsigned long> found;
    for (UniqueID_t id : platforms)
    {
      if (criteria.isStationary(id))
        found.insert(id);
    }
    filter_->setSelectableEntities(found);
    composite_->view()->resizeColumnToContents(0);
  }
  updateEnable_();
  PICommon::endWaitCursor();
}

void MakeStationaryWidget::makeSelectedPlatformsStatic_()
{
  PICommon::beginWaitCursor();
  std::vector<unsigned long> ids;
  for (unsigned long id : composite_->selectedItems())
  {
    MakeStationary().execute(id, lifeSpanCheckBox_->isChecked());
    ids.push_back(id);
  }
  if (!ids.empty())
  {
    filter_->removeSelectableEntities(ids);
    fireChangeCallback(ids);
  }
  updateEnable_();
  PICommon::endWaitCursor();
}

void MakeStationaryWidget::cancel_()
{
  canDetect_ = true;
  filter_->clear();
  updateEnable_();
}

void MakeStationaryWidget::updateRegistry_(bool maintainLifeSpan)
{
  PURegistry::saveReg(MakeStationaryAction::LIFE_SPAN_KEY, maintainLifeSpan);
}

} // namespace QtSep
