#pragma once

#include "host/PIData.h"
#include "host/PluginGlobals.h"
#include "server/HeadlessHostServices.h"
#include "server/KelvorServer.h"
#include "server/Registry.h"
#include "store/ScenarioStore.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

/**
 * Binds the plug-in's call path to a real KELVOR Lite server and store, as the loader does,
 * with headless host services and a registry in a temporary folder.
 */
class ServerFixture : public ::testing::Test
{
protected:
  void SetUp() override
  {
    g_FunctionMap = &server;
    g_This = &identity;
  }
  void TearDown() override
  {
    g_FunctionMap = nullptr;
    g_This = nullptr;
  }

  /// A platform "Eagle" with a point at 10 s, its beam "Radar" and that beam's gate "Gate".
  struct SampleEntities
  {
    UniqueID_t platform = 0;
    UniqueID_t beam = 0;
    UniqueID_t gate = 0;
  };

  /// Starts a scenario holding the sample entities, through the plug-in's call path.
  SampleEntities createSampleEntities()
  {
    PIData::initializeScenario();
    SampleEntities made;
    PIData::PIPlatformHeader header;
    header.name = "Eagle";
    PIData::PIPlatformPoint first;
    first.time = 10.0;
    first.position = {0.6, -2.0, 100.0};
    made.platform = PIData::createPlatform(&header, &first);
    PIData::PIBeamHeader beamHeader;
    beamHeader.name = "Radar";
    PIData::PIBeamPoint bp{0, 0, 1, 10};
    made.beam = PIData::createBeam(made.platform, &beamHeader, &bp, true);
    PIData::PIGateHeader gateHeader;
    gateHeader.name = "Gate";
    PIData::PIGatePoint gp{0, 0, 0, 0, 0, 1, 0.5, 10};
    made.gate = PIData::createGate(made.beam, &gateHeader, &gp, true);
    return made;
  }

  /// Makes a static platform: its one point, at time -1, stands at latitude 0.5 and longitude -2.0 (radians).
  static UniqueID_t createStaticPlatform(const std::string& name)
  {
    PIData::PIPlatformHeader header;
    header.name = name;
    PIData::PIPlatformPoint fixed;
    fixed.time = -1.0;
    fixed.position = {0.5, -2.0, 0.0};
    return PIData::createPlatform(&header, &fixed);
  }

  /**
   * Makes a platform with a point at each time (seconds), at latitude 0.5 and longitude -2.0
   * (radians), its altitude the time plus altitude metres.
   */
  static UniqueID_t createTrack(const std::string& name, UniqueID_t originalId, const std::vector<double>& times,
                                double altitude = 0.0)
  {
    PIData::PIPlatformHeader header;
    header.name = name;
    header.originalId = originalId;
    const UniqueID_t id = PIData::createPlatform(&header, nullptr);
    for (double t : times)
    {
      PIData::PIPlatformPoint point;
      point.time = t;
      point.position = {0.5, -2.0, t + altitude};
      PIData::addDataPoint(id, &point);
    }
    return id;
  }

  /// @return the times of a platform's points, in order, seconds
  static std::vector<double> pointTimes(UniqueID_t id)
  {
    std::vector<PIData::PIPlatformPoint> points;
    PIData::getDataPoints(id, -1e9, 1e9, &points);
    std::vector<double> out;
    for (const auto& point : points)
      out.push_back(point.time);
    return out;
  }

  QTemporaryDir dir;
  kelvor::ScenarioStore store;
  kelvor::HeadlessHostServices services;
  kelvor::Registry registry{dir.filePath("registry.ini").toStdString()};
  kelvor::KelvorServer server{store, services, registry};
  int identity = 0;
};
