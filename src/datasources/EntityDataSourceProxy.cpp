#include "datasources/EntityDataSourceProxy.h"

#include "datasources/BeamDataSource.h"
#include "datasources/CustomRenderingDataSource.h"
#include "datasources/GateDataSource.h"
#include "datasources/LaserDataSource.h"
#include "datasources/LobDataSource.h"
#include "datasources/NullDataSource.h"
#include "datasources/PlatformDataSource.h"
#include "datasources/ProjectorDataSource.h"
#include "host/PIDataEntities.h"

#include <QFrame>
#include <QHBoxLayout>

namespace QtSep
{

EntityDataSourceProxy::EntityDataSourceProxy(const kelCore::UnitContextFormatter& formatter,
                                             const kelCore::UnitContext& context, QObject* parent)
  : QObject(parent),
    formatter_(formatter),
    context_(context),
    source_(std::make_unique<NullDataSource>()),
    frame_(new QFrame),
    layout_(new QHBoxLayout(frame_))
{
  layout_->setContentsMargins(0, 0, 0, 0);
}

EntityDataSourceProxy::~EntityDataSourceProxy()
{
  // The frame is the proxy's; the controls in it are their source's.
  clearLayout_();
  delete frame_;
}

QWidget* EntityDataSourceProxy::widget() { return frame_; }

void EntityDataSourceProxy::setUniqueId(unsigned long id, bool load)
{
  const unsigned long current = source_->uniqueId();
  if (id == current || PIData::getObjectType(id) == PIData::getObjectType(current))
  {
    source_->setUniqueId(id, load);
    return;
  }
  clearLayout_();
  std::unique_ptr<DataSource> made = makeSource_(id);
  source_ = std::move(made);
  if (QWidget* controls = source_->widget())
    layout_->addWidget(controls);
  source_->setUniqueId(id, load);
}

std::unique_ptr<DataSource> EntityDataSourceProxy::makeSource_(unsigned long id)
{
  switch (id == 0 ? PI_NONE_TYPE : PIData::getObjectType(id))
  {
  case PI_PLATFORM_TYPE: {
    auto platform = std::make_unique<PlatformDataSource>(formatter_, context_);
    connect(platform.get(), &PlatformDataSource::selectedTimes, this, &EntityDataSourceProxy::selectedTimes);
    return platform;
  }
  case PI_BEAM_TYPE: return std::make_unique<BeamDataSource>(formatter_, context_);
  case PI_GATE_TYPE: return std::make_unique<GateDataSource>(formatter_, context_);
  case PI_LASER_TYPE: return std::make_unique<LaserDataSource>(formatter_, context_);
  case PI_LOB_GROUP_TYPE: return std::make_unique<LobDataSource>(formatter_, context_);
  case PI_PROJECTOR_TYPE: return std::make_unique<ProjectorDataSource>(formatter_, context_);
  case PI_CUSTOM_RENDERING_TYPE: return std::make_unique<CustomRenderingDataSource>(formatter_);
  default: return std::make_unique<NullDataSource>();
  }
}

void EntityDataSourceProxy::clearLayout_()
{
  while (QLayoutItem* item = layout_->takeAt(0))
  {
    if (QWidget* controls = item->widget())
      controls->setParent(nullptr);
    delete item;
  }
}

} // namespace QtSep
