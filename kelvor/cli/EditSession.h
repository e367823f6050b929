#pragma once

#include "files/ReadReport.h"
#include "server/HeadlessHostServices.h"
#include "server/KelvorServer.h"
#include "server/Registry.h"
#include "store/ScenarioStore.h"

#include <memory>
#include <string>
#include <vector>

namespace kelvor
{

/**
 * @brief A store with its server and headless host services, the plug-in bound to them as
 * the application binds it, for one run of the command line. The plug-in is bound to one
 * server at a time: one session lives at a time.
 */
class EditSession
{
public:
  EditSession();
  ~EditSession();
  EditSession(const EditSession&) = delete;
  EditSession& operator=(const EditSession&) = delete;

  /**
   * Reads a scenario file, a CSV track file by its ".csv" ending, or any other file as a track
   * file through GDAL (GPX, KML, GeoJSON, GeoPackage, shapefiles...).
   * @param referenceYear for a track file, the year its times count from; 0 for the year of its
   * first dated time
   */
  ReadReport open(const std::string& path, int referenceYear = 0);
  /// @return true for a path that names a CSV track file.
  static bool isCsv(const std::string& path);
  /// @return true for a path that names a scenario file: ending in ".kls", or beginning with "kelvor-scenario".
  static bool isScenario(const std::string& path);

  /**
   * @return the entities a NAME_OR_ID names, in the store's order: those whose original id
   * (the id the file and the Data Browser show) it is, when it is a number that some entity
   * has as its id; else those of that name. None when nothing matches.
   */
  std::vector<UniqueID_t> entitiesNamed(const std::string& nameOrId) const;
  /// @return the lines the plug-in sent to the notification stream since the last call, oldest first.
  std::vector<std::string> takeNotifications();

  ScenarioStore& store() { return store_; }
  const ScenarioStore& store() const { return store_; }
  HeadlessHostServices& services() { return services_; }

private:
  ScenarioStore store_;
  HeadlessHostServices services_;
  std::string registryFile_;
  std::unique_ptr<Registry> registry_;
  std::unique_ptr<KelvorServer> server_;
  int identity_ = 0;
  std::size_t notificationsTaken_ = 0;
};

} // namespace kelvor
