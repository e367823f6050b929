#include "cli/EditSession.h"

#include "files/CsvTrackReader.h"
#include "files/GdalTrackReader.h"
#include "files/NumberText.h"
#include "files/ScenarioReader.h"
#include "host/PIClientFunctions.h"
#include "host/PluginExports.h"
#include "kelCore/StringUtils.h"

#include <QDir>
#include <QStandardPaths>

#include <fstream>

namespace kelvor
{

namespace
{

std::string registryPath()
{
  QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
  if (folder.isEmpty())
    folder = QDir::homePath() + "/.config/kelvor-lite";
  QDir().mkpath(folder);
  return (folder + "/kelvor-edit.ini").toStdString();
}

/// @return whether path ends in ending, whatever the case of its letters
bool endsWith(const std::string& path, const std::string& ending)
{
  return path.size() >= ending.size() &&
         kelCore::caseCompare(path.substr(path.size() - ending.size()), ending) == 0;
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

bool EditSession::isCsv(const std::string& path) { return endsWith(path, ".csv"); }

bool EditSession::isScenario(const std::string& path)
{
  if (endsWith(path, ".kls"))
    return true;
  // The first line that is neither blank nor a comment, within the file's first few kilobytes
  // (a track file may be one long line).
  std::ifstream in(path, std::ios::binary);
  std::string start(4096, '\0');
  in.read(start.data(), static_cast<std::streamsize>(start.size()));
  start.resize(static_cast<std::size_t>(in.gcount()));
  std::size_t at = start.rfind("\xEF\xBB\xBF", 0) == 0 ? 3 : 0;
  while (at < start.size())
  {
    at = start.find_first_not_of(" \t\r\n", at);
    if (at == std::string::npos || start[at] != '#')
      break;
    at = start.find('\n', at);
  }
  const std::string header = "kelvor-scenario";
  return at != std::string::npos && at + header.size() <= start.size() &&
         kelCore::caseCompare(start.substr(at, header.size()), header) == 0;
}

ReadReport EditSession::open(const std::string& path, int referenceYear)
{
  if (isCsv(path))
  {
    CsvTrackReader::Options options;
    options.referenceYear = referenceYear;
    return CsvTrackReader(store_, options).readFile(path);
  }
  if (isScenario(path))
    return ScenarioReader(store_).readFile(path);
  // Every other file is a track file of the formats other tools write.
  GdalTrackReader::Options options;
  options.referenceYear = referenceYear;
  return GdalTrackReader(store_, options).readFile(path);
}

std::vector<UniqueID_t> EditSession::entitiesNamed(const std::string& nameOrId) const
{
  // An id is whole digits that fit 64 bits; anything else, however long, is a name.
  std::uint64_t id = 0;
  const bool digits =
      nameOrId.find_first_not_of("0123456789") == std::string::npos && NumberText::parse(nameOrId, id);
  std::vector<UniqueID_t> named;
  for (UniqueID_t entity : store_.list(PI_ALL_TYPES))
  {
    const EntityHeader& header = store_.entity(entity)->header;
    if (digits ? originalIdOfHeader(header) == id : nameOfHeader(header) == nameOrId)
      named.push_back(entity);
  }
  // A platform named by digits ("Flight 7" aside, some are called "101") is found by its name.
  if (named.empty() && digits)
  {
    for (UniqueID_t entity : store_.list(PI_ALL_TYPES))
    {
      if (nameOfHeader(store_.entity(entity)->header) == nameOrId)
        named.push_back(entity);
    }
  }
  return named;
}

std::vector<std::string> EditSession::takeNotifications()
{
  std::vector<std::string> lines;
  const auto& all = services_.notifications;
  for (; notificationsTaken_ < all.size(); ++notificationsTaken_)
  {
    std::string text = all[notificationsTaken_].first;
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
      text.pop_back();
    lines.push_back(text);
  }
  return lines;
}

} // namespace kelvor
