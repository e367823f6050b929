#include "utils/TypeFilter.h"

#include "host/PIData.h"
#include "kelData/ObjectType.h"
#include "widgets/EntityTypeFilterWidget.h"

#include <utility>

namespace PluginUtils
{

const QString TypeFilter::TYPES_KEY = "TypeFilterTypes";

namespace
{

// Each host kind and its bit in the widget kit.
const std::pair<unsigned int, unsigned int> KIND_BITS[] = {{PI_PLATFORM_TYPE, kelData::PLATFORM},
  {PI_BEAM_TYPE, kelData::BEAM}, {PI_GATE_TYPE, kelData::GATE}, {PI_LASER_TYPE, kelData::LASER},
  {PI_LOB_GROUP_TYPE, kelData::LOB_GROUP}, {PI_PROJECTOR_TYPE, kelData::PROJECTOR},
  {PI_CUSTOM_RENDERING_TYPE, kelData::CUSTOM_RENDERING}};

// The bits of types in the other counting: the kit's when toKelData, else the host's.
unsigned int translateBits(unsigned int types, bool toKelData)
{
  unsigned int bits = 0;
  for (const auto& kind : KIND_BITS)
  {
    const unsigned int from = toKelData ? kind.first : kind.second;
    if (types & from)
      bits |= toKelData ? kind.second : kind.first;
  }
  return bits;
}

} // namespace

TypeFilter::TypeFilter(unsigned int types, bool offerWidget) : types_(types), offerWidget_(offerWidget) {}

bool TypeFilter::acceptEntity(unsigned long id) const
{
  return id == 0 || (static_cast<unsigned int>(PIData::getObjectType(id)) & types_) != 0;
}

QWidget* TypeFilter::widget(QWidget* parent) const
{
  if (!offerWidget_)
    return nullptr;
  auto* editor = new kelQt::EntityTypeFilterWidget(piDataObjectTypeToKelDataObjectType_(types_), parent);
  auto* self = const_cast<TypeFilter*>(this);
  connect(editor, &kelQt::EntityTypeFilterWidget::entityTypesChanged, self,
    [self](unsigned int types) { self->setTypes_(kelDataObjectTypeToPIDataObjectType_(types)); });
  return editor;
}

void TypeFilter::getFilterSettings(QMap<QString, QVariant>& settings) const
{
  settings[TYPES_KEY] = piDataObjectTypeToKelDataObjectType_(types_);
}

void TypeFilter::setFilterSettings(const QMap<QString, QVariant>& settings)
{
  if (settings.contains(TYPES_KEY))
    setTypes_(kelDataObjectTypeToPIDataObjectType_(settings.value(TYPES_KEY).toUInt()));
}

void TypeFilter::enableEntityType(unsigned int type)
{
  setTypes_(types_ | type);
}

void TypeFilter::disableEntityType(unsigned int type)
{
  setTypes_(types_ & ~type);
}

void TypeFilter::setTypes_(unsigned int types)
{
  if (types == types_)
    return;
  types_ = types;
  emit filterUpdated();
}

unsigned int TypeFilter::piDataObjectTypeToKelDataObjectType_(unsigned int types)
{
  return translateBits(types, true);
}

unsigned int TypeFilter::kelDataObjectTypeToPIDataObjectType_(unsigned int types)
{
  return translateBits(types, false);
}

} // namespace PluginUtils
