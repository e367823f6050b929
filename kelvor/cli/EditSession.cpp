#include "cli/EditSession.h"

#include "files/CsvTrackReader.h"
#include "files/ScenarioReader.h"
#include "host/PIClientFunctions.h"
#include "host/PluginExports.h"

#include <QDir>
#include <QStandardPaths>

namespace kelvor
{

namespace
{

bool endsWithCsv(const std::string& path)
{
  if (path.size() < 4)
    return false;
  std::string end = path.substr(path.size() - 4);
  for (char& c : end)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return end == ".csv";
}

std::string registryPath()
{
  QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
  if (folder.isEmpty())
    folder = QDir::homePath() + "/.config/kelvor-lite";
  QDir().mkpath(folder);
  return (folder + "/kelvor-edit.ini").toStdString();
}

} // namespace

EditSession::EditSession()
  : registryFile_(registryPath()),
    registry_(std::make_unique<Registry>(registryFile_)),
    server_(std::make_unique<KelvorServer>(store_, services_, *registry_))
{
  // The plug-in's processing code runs in process against this store, as in the application.
  SPI_InitializeFunctionMap(server_.get(), &identity_);
  PIFunctionParams_t start;
  SPI_PluginDispatchFunction(PICF_STARTUP, &start);
}

EditSession::~EditSession()
{
  PIFunctionParams_t close;
  SPI_PluginDispatchFunction(PICF_CLOSE, &close);
  SPI_CleanUpPlugin();
  g_ClientMessageMap.clear();
}

ReadReport EditSession::open(const std::string& path)
{
  if (endsWithCsv(path))
    return CsvTrackReader(store_).readFile(path);
  return ScenarioReader(store_).readFile(path);
}

} // namespace kelvor
