#include "host/PIData.h"
#include "support/EntityTreeFixture.h"
#include "widgets/EntityFilter.h"
#include "widgets/EntityFilterLineEdit.h"
#include "widgets/EntityNameFilter.h"
#include "widgets/EntityProxyModel.h"

#include <set>

namespace
{

// Accepts the entities whose names it is given, and counts the entities asked about.
class NamesFilter : public kelQt::EntityFilter
{
public:
  explicit NamesFilter(std::set<std::string> names) : names_(std::move(names)) {}
  bool acceptEntity(unsigned long id) const override
  {
    ++asked;
    PIData::PIPlatformHeader platform;
    PIData::PIBeamHeader beam;
    PIData::PIGateHeader gate;
    std::string name;
    if (PIData::getHeader(id, &platform) == 0)
      name = platform.name;
    else if (PIData::getHeader(id, &beam) == 0)
      name = beam.name;
    else if (PIData::getHeader(id, &gate) == 0)
      name = gate.name;
    return names_.count(name) > 0;
  }
  QWidget* widget(QWidget*) const override { return nullptr; }
  void getFilterSettings(QMap<QString, QVariant>&) const override {}
  void setFilterSettings(const QMap<QString, QVariant>&) override {}
  void setNames(std::set<std::string> names)
  {
    names_ = std::move(names);
    emit filterUpdated();
  }
  mutable int asked = 0;

private:
  std::set<std::string> names_;
};

class EntityProxy : public EntityTreeFixture
{
protected:
  void SetUp() override
  {
    EntityTreeFixture::SetUp();
    proxy.setSourceModel(&model);
    proxyChecked = std::make_unique<ModelChecker>(&proxy);
  }
  void TearDown() override
  {
    proxyChecked.reset();
    EntityTreeFixture::TearDown();
  }
  bool shown(unsigned long id) { return proxy.mapFromSource(model.indexOf(id)).isValid(); }

  kelQt::EntityProxyModel proxy;
  std::unique_ptr<ModelChecker> proxyChecked;
};

} // namespace

TEST_F(EntityProxy, AMatchingChildKeepsItsHostsInViewAndChangesRefilter)
{
  auto* filter = new NamesFilter({"Gate"});
  proxy.addEntityFilter(filter);
  EXPECT_TRUE(shown(sample.gate));
  EXPECT_TRUE(shown(sample.beam)) << "host of a match";
  EXPECT_TRUE(shown(sample.platform)) << "host of a host of a match";
  EXPECT_FALSE(shown(other));

  filter->setNames({"Heron"});
  EXPECT_TRUE(shown(other));
  EXPECT_FALSE(shown(sample.platform));
}

TEST_F(EntityProxy, TheAlwaysShownEntityPassesAndTheFirstRefusalEndsTheVote)
{
  auto* refuseAll = new NamesFilter({});
  auto* second = new NamesFilter({"Eagle", "Heron", "Radar", "Gate"});
  proxy.addEntityFilter(refuseAll);
  proxy.addEntityFilter(second);
  second->asked = 0;
  proxy.refilter();
  EXPECT_EQ(0, proxy.rowCount());
  EXPECT_EQ(0, second->asked) << "the first filter already refused every entity";

  proxy.setAlwaysShow(other);
  EXPECT_TRUE(shown(other));
  EXPECT_FALSE(shown(sample.platform));
}

TEST_F(EntityProxy, NumbersSortAsNumbers)
{
  PIData::PIPlatformPoint point;
  point.position = {0.6, -2.0, 100.0};
  for (int i = 0; i < 10; ++i)
  {
    point.time = 100.0 + i;
    PIData::addDataPoint(other, &point); // 10 points against Eagle's 1
  }
  model.forceRefresh();
  proxy.sort(PluginUtils::EntityTreeModel::POINTS_COLUMN, Qt::AscendingOrder);
  EXPECT_EQ(sample.platform, model.uniqueId(proxy.mapToSource(proxy.index(0, 0))));
  EXPECT_EQ(other, model.uniqueId(proxy.mapToSource(proxy.index(1, 0))));
}

TEST_F(EntityProxy, NameSearchFollowsItsLineEditInEachSyntaxAndCase)
{
  auto* names = new kelQt::EntityNameFilter(&model);
  kelQt::EntityFilterLineEdit search;
  names->bindToWidget(&search);
  proxy.addEntityFilter(names);
  EXPECT_TRUE(shown(other)) << "an empty pattern shows everything";

  search.setText("Gat");
  EXPECT_TRUE(shown(sample.gate));
  EXPECT_TRUE(shown(sample.platform)) << "host of a match";
  EXPECT_FALSE(shown(other));

  search.setText("^E.*e$");
  EXPECT_TRUE(shown(sample.platform));
  search.setPatternSyntax(QRegExp::Wildcard);
  search.setText("E*le");
  EXPECT_TRUE(shown(sample.platform));
  search.setPatternSyntax(QRegExp::FixedString);
  EXPECT_FALSE(shown(sample.platform)) << "the star is a star";

  search.setPatternSyntax(QRegExp::RegExp);
  search.setText("eagle");
  EXPECT_TRUE(shown(sample.platform));
  search.setCaseSensitivity(Qt::CaseSensitive);
  EXPECT_FALSE(shown(sample.platform));

  search.setText("Her(");
  EXPECT_TRUE(search.isMarkedInvalid());
  EXPECT_FALSE(shown(sample.platform)) << "the last valid pattern stays in force";
  EXPECT_FALSE(shown(other));
  search.setText("Her");
  EXPECT_FALSE(search.isMarkedInvalid());
  EXPECT_TRUE(shown(other));
}

TEST_F(EntityProxy, NameSearchSettingsComeBackIntoTheLineEdit)
{
  kelQt::EntityNameFilter first(&model);
  first.setRegExp("h?ron", Qt::CaseSensitive, QRegExp::Wildcard);
  QMap<QString, QVariant> settings;
  first.getFilterSettings(settings);

  kelQt::EntityNameFilter second(&model);
  kelQt::EntityFilterLineEdit search;
  search.setRegexOnly(false);
  second.bindToWidget(&search);
  second.setFilterSettings(settings);
  EXPECT_EQ("h?ron", search.text());
  EXPECT_EQ(Qt::CaseSensitive, search.caseSensitivity());
  EXPECT_EQ(QRegExp::Wildcard, search.patternSyntax());
  EXPECT_FALSE(second.acceptEntity(other)) << "case sensitive: h is not H";
  search.setCaseSensitivity(Qt::CaseInsensitive);
  EXPECT_TRUE(second.acceptEntity(other));

  search.setRegexOnly(true);
  EXPECT_EQ(QRegExp::RegExp, search.patternSyntax());
}
