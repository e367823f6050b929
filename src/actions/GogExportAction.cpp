#include "actions/GogExportAction.h"

#include "host/GenericDataTags.h"
#include "host/PICommon.h"
#include "host/PIDataClock.h"
#include "host/PIDataPoints.h"
#include "host/PIDataScenario.h"
#include "kelCore/Geodesy.h"
#include "utils/ColorUtils.h"

#include <QFile>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iomanip>
#include <map>
#include <sstream>

namespace QtSep
{

namespace
{

constexpr double DEGREES = 57.29577951308232;
constexpr double FEET = 3.28084;
constexpr double YARDS = 1.0936133342174104;

std::vector<PIData::PIPlatformPoint> getTspiPoints_(std::uint64_t id)
{
  PIData::PICoordReferenceFrame geodetic;
  geodetic.coordinateSystem = PI_COORDSYS_LLA;
  std::vector<PIData::PIPlatformPoint> points;
  PIData::getDataPoints(id, PIData::clockGetBegin(), PIData::clockGetEnd(), &points, geodetic);
  return points;
}

std::map<double, std::uint32_t> getTrackColors_(std::uint64_t id)
{
  std::vector<PIData::PIGenericDataPoint> items;
  PIData::getDataPoints(id, &items);
  std::map<double, std::uint32_t> colours;
  for (const PIData::PIGenericDataPoint& item : items)
  {
    if (item.tag == KELVOR_GD_TRACKCOLOR)
      colours[item.time] = UTILS::colorGetColorInt(item.value, false);
  }
  return colours;
}

/// @return the colour in force at time: the last at or before it; a lone colour holds throughout
std::uint32_t colourAt(const std::map<double, std::uint32_t>& colours, double time)
{
  if (colours.empty())
    return 0;
  if (colours.size() == 1)
    return colours.begin()->second;
  auto after = colours.upper_bound(time);
  return after == colours.begin() ? 0 : std::prev(after)->second;
}

std::string hex(unsigned int value, int digits)
{
  std::ostringstream text;
  text << std::hex << std::uppercase << std::setw(digits) << std::setfill('0') << value;
  return text.str();
}

/// The colour of the "linecolor" line, with its leading blank; empty for no colour.
std::string colourText(std::uint32_t trackColour, const QColor& defaultColour)
{
  if (trackColour != 0)
    return " 0x" + hex(trackColour, 8);
  if (defaultColour.value() == 0)
    return std::string();
  return " 0x" + hex(defaultColour.alpha(), 2) + hex(defaultColour.blue(), 2) + hex(defaultColour.green(), 2) +
         hex(defaultColour.red(), 2);
}

const char* styleLine(GogExportDialog::LineStyle style)
{
  switch (style)
  {
  case GogExportDialog::DASHED: return "linestyle dash";
  case GogExportDialog::DOTTED: return "linestyle dot";
  default: return "linestyle solid";
  }
}

/// The point line of a plot type, numbers in fixed notation.
std::string pointLine(const PIData::PIPlatformPoint& point, GogExportDialog::ExportType type, double offset,
                      const kelCore::Vec3& origin)
{
  std::ostringstream line;
  line << std::fixed;
  const double lat = point.position.x;
  const double lon = point.position.y;
  const double alt = point.position.z;
  switch (type)
  {
  case GogExportDialog::LL_PLOT: line << "ll " << lat * DEGREES << ' ' << lon * DEGREES; break;
  case GogExportDialog::LLA_PLOT: line << "lla " << lat * DEGREES << ' ' << lon * DEGREES << ' ' << alt * FEET; break;
  case GogExportDialog::ALTITUDE_VS_TIME: line << "xy " << point.time + offset << ' ' << alt * YARDS; break;
  case GogExportDialog::ALTITUDE_VS_RANGE: {
    const double range = kelCore::calculateGroundDist(origin, {lat, lon, alt});
    line << "xy " << range * YARDS + offset << ' ' << alt * YARDS;
    break;
  }
  case GogExportDialog::VELOCITY_VS_TIME: {
    const PIPoint& v = point.velocity;
    line << "xy " << point.time + offset << ' ' << std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z) * YARDS;
    break;
  }
  }
  return line.str();
}

} // namespace

GogExportAction::GogExportAction(QWidget* parent) : CommandAction(parent, "Export to GOG...", std::string(), WEIGHT, true) {}

bool GogExportAction::accepts_(const std::vector<EntityInfo>& entities) const
{
  return !entities.empty() && std::all_of(entities.begin(), entities.end(), [](const EntityInfo& entity) {
           return entity.type == PI_PLATFORM_TYPE;
         });
}

int GogExportAction::onCmdGogExport(PIObject*, void*)
{
  runCommand_();
  return 1;
}

void GogExportAction::exportToGog_(std::ostream& out, std::uint64_t id, int number, GogExportDialog::ExportType type,
                                   GogExportDialog::LineStyle style, int width, const QColor& colour, double offset,
                                   bool useTrackColor, bool useDepthBuffer)
{
  const std::vector<PIData::PIPlatformPoint> points = getTspiPoints_(id);
  if (points.empty())
    return;
  const std::map<double, std::uint32_t> colours = useTrackColor ? getTrackColors_(id) : std::map<double, std::uint32_t>();
  const kelCore::Vec3 origin(PIData::getLatitudeOrigin(), PIData::getLongitudeOrigin(), PIData::getAltitudeOrigin());

  bool open = false;
  std::uint32_t sectionColour = 0;
  std::string lastLine;
  for (const PIData::PIPlatformPoint& point : points)
  {
    const std::uint32_t pointColour = colourAt(colours, point.time);
    if (!open || pointColour != sectionColour)
    {
      if (open)
        out << "end\n" << std::flush;
      out << "start\n"
          << "depthbuffer " << (useDepthBuffer ? "true" : "false") << '\n'
          << "linecolor color" << number << colourText(pointColour, colour) << '\n'
          << "linewidth " << width << '\n';
      if (points.size() == 1)
        out << "points\n";
      else
        out << styleLine(style) << "\nline\n";
      // The new section starts where the last one ended, so the line stays unbroken.
      if (!lastLine.empty())
        out << lastLine << '\n';
      open = true;
      sectionColour = pointColour;
    }
    lastLine = pointLine(point, type, offset, origin);
    out << lastLine << '\n';
  }
  out << "end\n" << std::flush;
}

int GogExportAction::run_()
{
  GogExportDialog dialog(parentWidget());
  dialog.loadSettings();
  if (dialog.exec() != QDialog::Accepted)
    return 1;
  dialog.saveSettings();
  const std::string filename = dialog.filename().toStdString();
  std::ofstream file(filename);
  if (file)
  {
    int number = 0;
    for (const EntityInfo& platform : selection())
      exportToGog_(file, platform.id, ++number, dialog.exportType(), dialog.lineStyle(), dialog.lineWidth(),
                   dialog.defaultColor(), dialog.xOffset(), dialog.useTrackColor(), dialog.useDepthBuffer());
    file.close();
  }
  if (file)
    PICommon::notify("Saved to file: " + filename, PICommon::NOTIFY_NOTICE);
  else
    PICommon::notify("Failed to save to file: " + filename, PICommon::NOTIFY_ERROR);
  return 1;
}

} // namespace QtSep
