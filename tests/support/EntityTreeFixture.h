#pragma once

#include "support/ModelChecker.h"
#include "support/ServerFixture.h"
#include "utils/EntityTreeModel.h"

/// The sample entities and a second platform "Heron", read by an entity tree model.
class EntityTreeFixture : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    sample = createSampleEntities();
    PIData::PIPlatformHeader header;
    header.name = "Heron";
    other = PIData::createPlatform(&header, nullptr);
    model.forceRefresh();
  }

  SampleEntities sample;
  UniqueID_t other = 0;
  PluginUtils::EntityTreeModel model;
  ModelChecker modelChecked{&model};
};
