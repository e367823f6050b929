#pragma once

#include "files/ReadReport.h"
#include "server/HeadlessHostServices.h"
#include "server/KelvorServer.h"
#include "server/Registry.h"
#include "store/ScenarioStore.h"

#include <memory>
#include <string>

namespace kelvor
{

/**
 * @brief A store with its server and headless host services, the plug-in bound to them as
 * the application binds it, for one run of the command line.
 */
class EditSession
{
public:
  EditSession();
  ~EditSession();
  EditSession(const EditSession&) = delete;
  EditSession& operator=(const EditSession&) = delete;

  /// Reads a scenario file, or a CSV track file by its ".csv" ending.
  ReadReport open(const std::string& path);

  ScenarioStore& store() { return store_; }
  HeadlessHostServices& services() { return services_; }

private:
  ScenarioStore store_;
  HeadlessHostServices services_;
  std::string registryFile_;
  std::unique_ptr<Registry> registry_;
  std::unique_ptr<KelvorServer> server_;
  int identity_ = 0;
};

} // namespace kelvor
