#include "ui/MapThemes.h"

#include <marble/MarbleDirs.h>

namespace kelvor
{

const char* const MapThemes::SETTING = "MapTheme";

namespace
{

// Atlas colours its relief from tiles that turn to large pixels when a scenario fills the view.
const char* const SHARPEST = "earth/plain/plain.dgml";

} // namespace

std::vector<MapThemes::Theme> MapThemes::installed()
{
  const std::vector<Theme> offered = {
    {"earth/srtm/srtm.dgml", tr("Atlas")},
    {"earth/plain/plain.dgml", tr("Plain")},
    {"earth/bluemarble/bluemarble.dgml", tr("Blue Marble")},
  };
  std::vector<Theme> found;
  for (const Theme& theme : offered)
    if (!Marble::MarbleDirs::path("maps/" + theme.id).isEmpty())
      found.push_back(theme);
  return found;
}

QString MapThemes::choose(const QString& saved)
{
  const std::vector<Theme> themes = installed();
  for (const QString& wanted : {saved, QString(SHARPEST)})
    for (const Theme& theme : themes)
      if (theme.id == wanted)
        return wanted;
  return themes.empty() ? QString() : themes.front().id;
}

} // namespace kelvor
