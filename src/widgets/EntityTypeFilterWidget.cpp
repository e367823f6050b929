#include "widgets/EntityTypeFilterWidget.h"

#include "kelData/ObjectType.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QVBoxLayout>

namespace kelQt
{

EntityTypeFilterWidget::EntityTypeFilterWidget(unsigned int types, QWidget* parent) : QWidget(parent)
{
  const std::pair<unsigned int, const char*> kinds[] = {{kelData::PLATFORM, "Platforms"}, {kelData::BEAM, "Beams"},
    {kelData::GATE, "Gates"}, {kelData::LASER, "Lasers"}, {kelData::LOB_GROUP, "LOB Groups"},
    {kelData::PROJECTOR, "Projectors"}, {kelData::CUSTOM_RENDERING, "Custom Renderings"}};
  auto* group = new QGroupBox("Entity Types");
  auto* grid = new QGridLayout(group);
  int position = 0;
  for (const auto& kind : kinds)
  {
    auto* box = new QCheckBox(kind.second);
    boxes_[kind.first] = box;
    grid->addWidget(box, position / 2, position % 2);
    ++position;
    connect(box, &QCheckBox::toggled, this, [this] { emit entityTypesChanged(entityTypes()); });
  }
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(group);
  setEntityTypes(types);
}

unsigned int EntityTypeFilterWidget::entityTypes() const
{
  unsigned int types = kelData::NONE;
  for (const auto& entry : boxes_)
  {
    if (entry.second->isChecked())
      types |= entry.first;
  }
  return types;
}

void EntityTypeFilterWidget::setEntityTypes(unsigned int types)
{
  for (const auto& entry : boxes_)
  {
    const QSignalBlocker quiet(entry.second);
    entry.second->setChecked((types & entry.first) != 0);
  }
}

} // namespace kelQt
