#include "support/EntityTreeFixture.h"
#include "kelData/ObjectType.h"
#include "utils/TypeFilter.h"
#include "widgets/EntityProxyModel.h"
#include "widgets/EntityTypeFilterWidget.h"
#include "widgets/FilterDialog.h"
#include "widgets/SelectableEntityFilter.h"

#include <QCheckBox>
#include <QScrollArea>
#include <QSignalSpy>

using PluginUtils::TypeFilter;

namespace
{

class TypeFiltering : public EntityTreeFixture
{
protected:
  void SetUp() override
  {
    EntityTreeFixture::SetUp();
    model.setToListView();
    proxy.setSourceModel(&model);
  }
  bool shown(unsigned long id) { return proxy.mapFromSource(model.indexOf(id)).isValid(); }

  kelQt::EntityProxyModel proxy;
};

} // namespace

TEST_F(TypeFiltering, ShowsOnlyTheChosenKindsAndFollowsItsWidget)
{
  auto* filter = new TypeFilter(PI_PLATFORM_TYPE | PI_GATE_TYPE);
  proxy.addEntityFilter(filter);
  EXPECT_TRUE(shown(sample.platform));
  EXPECT_TRUE(shown(sample.gate));
  EXPECT_FALSE(shown(sample.beam));

  filter->enableEntityType(PI_BEAM_TYPE);
  EXPECT_TRUE(shown(sample.beam));
  filter->disableEntityType(PI_PLATFORM_TYPE);
  EXPECT_FALSE(shown(sample.platform));

  QWidget parent;
  auto* editor = qobject_cast<kelQt::EntityTypeFilterWidget*>(filter->widget(&parent));
  ASSERT_NE(nullptr, editor);
  EXPECT_EQ(kelData::BEAM | kelData::GATE, editor->entityTypes());
  for (QCheckBox* box : editor->findChildren<QCheckBox*>())
  {
    if (box->text() == "Platforms")
      box->setChecked(true);
  }
  EXPECT_TRUE(shown(sample.platform)) << "the widget's change reaches the filter";
  EXPECT_EQ(unsigned(PI_PLATFORM_TYPE | PI_BEAM_TYPE | PI_GATE_TYPE), filter->entityTypes());

  model.setIncludeScenario(true);
  EXPECT_TRUE(shown(0)) << "the scenario row is no kind";
  EXPECT_EQ(nullptr, TypeFilter(PI_PLATFORM_TYPE, false).widget(&parent));
}

TEST_F(TypeFiltering, SettingsKeepTheKindsInTheKitsBits)
{
  TypeFilter first(PI_LASER_TYPE | PI_CUSTOM_RENDERING_TYPE);
  QMap<QString, QVariant> settings;
  first.getFilterSettings(settings);
  EXPECT_EQ(kelData::LASER | kelData::CUSTOM_RENDERING, settings.value(TypeFilter::TYPES_KEY).toUInt());

  TypeFilter second(PI_PLATFORM_TYPE);
  QSignalSpy updated(&second, &kelQt::EntityFilter::filterUpdated);
  second.setFilterSettings(settings);
  EXPECT_EQ(first.entityTypes(), second.entityTypes());
  EXPECT_EQ(1, updated.count());
  second.setFilterSettings({});
  EXPECT_EQ(first.entityTypes(), second.entityTypes()) << "settings without the key change nothing";
}

TEST_F(TypeFiltering, TheFilterDialogListsTheFiltersThatHaveEditors)
{
  kelQt::FilterDialog dialog;
  EXPECT_EQ("Entity Filters", dialog.windowTitle());
  EXPECT_FALSE(dialog.isModal());
  TypeFilter withEditor(PI_PLATFORM_TYPE);
  TypeFilter withoutEditor(PI_PLATFORM_TYPE, false);
  dialog.addFilter(withEditor);
  dialog.addFilter(withoutEditor);
  EXPECT_EQ(1, dialog.editorCount());
  EXPECT_EQ(1, dialog.findChildren<kelQt::EntityTypeFilterWidget*>().size());
  dialog.show();
  auto* scroll = dialog.findChild<QScrollArea*>();
  ASSERT_NE(nullptr, scroll);
  EXPECT_GE(scroll->viewport()->height(), scroll->widget()->sizeHint().height())
    << "the window opens tall enough for its editors without scrolling";

  QSignalSpy closed(&dialog, &kelQt::FilterDialog::closedGui);
  dialog.close();
  EXPECT_EQ(1, closed.count());
}

TEST(SelectableEntities, OnlyTheChosenPassAndEachChangeRefilters)
{
  kelQt::SelectableEntityFilter filter;
  QSignalSpy updated(&filter, &kelQt::EntityFilter::filterUpdated);
  EXPECT_TRUE(filter.empty());
  EXPECT_FALSE(filter.acceptEntity(5));
  filter.setSelectableEntities({5, 6, 7});
  EXPECT_TRUE(filter.acceptEntity(6));
  filter.removeSelectableEntities({6, 99});
  EXPECT_FALSE(filter.acceptEntity(6));
  EXPECT_TRUE(filter.acceptEntity(7));
  EXPECT_EQ(nullptr, filter.widget(nullptr)) << "nothing to edit";
  filter.clear();
  EXPECT_TRUE(filter.empty());
  EXPECT_EQ(3, updated.count());
}
