// kelvor-edit commands on whole files: info, check, convert, remove-duplicates, validate, export.
#include "cli/Commands.h"

#include "files/GdalTrackWriter.h"
#include "files/NumberText.h"
#include "files/ScenarioVocabulary.h"
#include "host/PIDataEntities.h"
#include "processing/RemoveDuplicatePoints.h"
#include "validation/ValidateScenario.h"

#include <QJsonArray>
#include <QJsonObject>

#include <cmath>
#include <iomanip>
#include <map>
#include <sstream>

namespace kelvor::commands
{

namespace
{

std::string degrees(double radians, char positive, char negative)
{
  std::ostringstream text;
  text << std::fixed << std::setprecision(6) << std::fabs(radians * 180.0 / M_PI) << ' '
       << (radians < 0 ? negative : positive);
  return text.str();
}

/// @return "; " and the report's count of replaced records, or nothing when none was replaced.
std::string replacements(const ReadReport& report)
{
  const std::string summary = report.replacementSummary();
  return summary.empty() ? summary : "; " + summary;
}

QString text(const std::string& s)
{
  return QString::fromStdString(s);
}

} // namespace

int info(CommandContext& context)
{
  if (const int status = context.start(1, "one FILE", false))
    return status;
  const std::string& path = context.inFile();
  const ScenarioStore& store = context.session().store();
  std::map<std::string, std::size_t> kinds;
  for (UniqueID_t id : store.list(PI_ALL_TYPES))
    ++kinds[ScenarioVocabulary::kindName(store.entity(id)->kind)];
  const ScenarioProperties& p = store.properties();
  const double begin = store.earliestTime(0), end = store.latestTime(0);
  const int status = context.report().errors.empty() ? 0 : 1;
  if (context.args().has("--json"))
  {
    QJsonObject object;
    object["file"] = text(path);
    object["entities"] = static_cast<qint64>(store.entityCount());
    QJsonObject byKind;
    for (const auto& [kind, count] : kinds)
      byKind[text(kind)] = static_cast<qint64>(count);
    object["kinds"] = byKind;
    object["points"] = static_cast<qint64>(store.pointCount());
    object["timeSpan"] = begin < 0 ? QJsonValue() : QJsonObject{{"begin", begin}, {"end", end}};
    object["referenceYear"] = p.referenceYear;
    object["origin"] = QJsonObject{{"latitude", p.latOrigin * 180.0 / M_PI},
                                   {"longitude", p.lonOrigin * 180.0 / M_PI},
                                   {"altitude", p.altOrigin}};
    object["unreadableLines"] = static_cast<qint64>(context.report().errors.size());
    context.printJson(object);
    return status;
  }
  std::ostream& out = context.out();
  out << "file: " << path << '\n';
  out << "entities: " << store.entityCount() << '\n';
  for (const auto& [kind, count] : kinds)
    out << "  " << kind << ": " << count << '\n';
  out << "points: " << store.pointCount()
      << " (each entity's own: platform positions; beam, gate, laser and LOB pointings; projector fields of view;"
         " custom rendering states)\n";
  if (begin < 0)
    out << "time span: none (no timed data)\n";
  else
    out << "time span: " << NumberText::format(begin) << " to " << NumberText::format(end) << " s ("
        << NumberText::format(end - begin) << " s)\n";
  out << "reference year: " << p.referenceYear << '\n';
  out << "origin: " << degrees(p.latOrigin, 'N', 'S') << ", " << degrees(p.lonOrigin, 'E', 'W') << ", " << p.altOrigin
      << " m\n";
  return status;
}

int check(CommandContext& context)
{
  // A file with unreadable lines is what check reports on: it is read in part.
  if (const int status = context.start(1, "one FILE", false))
    return status;
  const std::string& path = context.inFile();
  const ReadReport& report = context.report();
  // A replaced record is a warning, not an error: the file still reads whole.
  // A track file GDAL reads is counted in features, not lines, and is read whole or not at all.
  const bool text = EditSession::isCsv(path) || EditSession::isScenario(path);
  if (report.errors.empty())
  {
    context.out() << path << ": " << report.lines << (text ? " lines" : " features") << ", all readable"
                  << replacements(report) << '\n';
    return 0;
  }
  if (!text)
  {
    context.out() << path << ": cannot be read as tracks, for the reason above\n";
    return 1;
  }
  context.out() << path << ": " << report.errors.size() << " of " << report.lines << " lines cannot be read"
                << replacements(report) << '\n';
  return 1;
}

int convert(CommandContext& context)
{
  kelCore::CoordinateSystem positions = kelCore::CoordinateSystem::LLA;
  if (context.args().has("--positions") &&
      !ScenarioVocabulary::positionSystem(context.args().value("--positions"), positions))
    return context.usage("--positions takes LLA, ECEF, NED, NWU, ENU, XEAST or GTP");
  if (const int status = context.start(2, "IN and OUT", true))
    return status;
  const std::string& out = context.outFile();
  if (!context.writeScenario(out, positions))
    return 1;
  const std::size_t entities = context.session().store().entityCount();
  context.out() << "wrote " << out << " (" << entities << (entities == 1 ? " entity" : " entities") << ", positions "
                << ScenarioVocabulary::positionSystemName(positions) << replacements(context.report()) << ")\n";
  return 0;
}

int removeDuplicates(CommandContext& context)
{
  if (const int status = context.start(2, "IN and OUT", true))
    return status;
  const std::string& in = context.inFile();
  const std::string& outFile = context.outFile();

  // Any kind of entity: each named one with its children, or the whole scenario.
  std::vector<UniqueID_t> ids;
  for (const std::string& name : context.args().values("--entity"))
  {
    const std::vector<UniqueID_t> found = context.session().entitiesNamed(name);
    if (found.empty())
      return context.fail("no entity named '" + name + "' in " + in + "; nothing written");
    ids.insert(ids.end(), found.begin(), found.end());
  }
  if (!context.args().has("--entity"))
    PIData::getObjectList(&ids);

  const auto before = context.pointCounts(context.session().store().list(PI_ALL_TYPES));
  context.progress().step("removing duplicate points");
  const std::vector<UniqueID_t> reduced = QtSep::RemoveDuplicatePoints().remove(ids);
  if (!context.writeScenario(outFile))
    return 1;
  const std::size_t removed = context.reportRemoved(reduced, before);
  context.out() << "wrote " << outFile << ": " << removed << " duplicate points removed from " << reduced.size()
                << (reduced.size() == 1 ? " entity\n" : " entities\n");
  return 0;
}

int validate(CommandContext& context)
{
  if (context.args().has("--fix-all") && context.args().value("--fix-all").empty())
    return context.usage("--fix-all takes the file to write");
  const bool fix = context.args().has("--fix-all");
  if (const int status = context.start(1, "one FILE", fix))
    return status;
  const std::string& path = context.inFile();

  QtSep::ValidateScenario checker;
  context.progress().step("validating");
  checker.validate();
  std::vector<QtSep::ValidateScenario::Issue*> issues;
  checker.getIssues(issues);
  // What Fix All did for each issue: the title of the repair that applied, empty for none.
  std::vector<std::string> fixedBy(issues.size());
  std::size_t fixed = 0;
  if (fix)
  {
    context.progress().step("repairing");
    fixed = checker.fixAll([&](std::size_t issue, std::size_t solution, bool applied) {
      if (!applied)
        return;
      std::vector<QtSep::ValidateScenario::Solution*> solutions;
      issues[issue]->getSolutions(solutions);
      fixedBy[issue] = solutions[solution]->title();
    });
    if (!context.writeScenario(context.args().value("--fix-all")))
      return 1;
  }

  const bool clean = issues.empty() && context.report().errors.empty();
  if (context.args().has("--json"))
  {
    QJsonArray list;
    for (std::size_t i = 0; i < issues.size(); ++i)
    {
      std::vector<QtSep::ValidateScenario::Solution*> solutions;
      issues[i]->getSolutions(solutions);
      QJsonArray titles;
      for (const auto* solution : solutions)
        titles.append(text(solution->title()));
      // The entity by the id the file shows, as NAME_OR_ID takes it; 0 for the scenario.
      const Entity* entity = context.session().store().entity(issues[i]->uniqueId());
      QJsonObject issue{{"code", static_cast<int>(issues[i]->code())},
                        {"entity", static_cast<qint64>(entity ? originalIdOfHeader(entity->header) : 0)},
                        {"description", text(issues[i]->description())},
                        {"solutions", titles}};
      if (fix)
        issue["fixedBy"] = fixedBy[i].empty() ? QJsonValue() : QJsonValue(text(fixedBy[i]));
      list.append(issue);
    }
    QJsonObject object{{"file", text(path)}, {"issues", list}};
    if (fix)
    {
      object["fixed"] = static_cast<qint64>(fixed);
      object["written"] = text(context.args().value("--fix-all"));
    }
    context.printJson(object);
  }
  else
  {
    for (std::size_t i = 0; i < issues.size(); ++i)
    {
      context.out() << issues[i]->description();
      if (fix)
        context.out() << (fixedBy[i].empty() ? " [not fixed]" : " [fixed: " + fixedBy[i] + "]");
      context.out() << '\n';
    }
    context.out() << path << ": "
                  << (issues.empty() ? std::string("no issues found")
                                     : std::to_string(issues.size()) + (issues.size() == 1 ? " issue" : " issues"));
    if (fix)
      context.out() << "; " << fixed << " fixed; wrote " << context.args().value("--fix-all");
    context.out() << '\n';
  }
  // Once the repairs are written the command has done its work; what is left is listed.
  return fix || clean ? 0 : 1;
}

int exportTracks(CommandContext& context)
{
  const std::vector<std::string>& files = context.args().files();
  if (files.size() == 2 && GdalTrackWriter::driverFor(files[1]).empty())
    return context.usage("OUT must end in .gpx, .kml, .geojson or .gpkg, not '" + files[1] + "'");
  if (const int status = context.start(2, "IN and OUT.gpx|.kml|.geojson|.gpkg", true))
    return status;
  const std::string& out = context.outFile();
  std::vector<UniqueID_t> ids;
  if (!context.platforms(ids))
    return 1;
  context.progress().step("writing " + out);
  std::string error;
  const bool written = GdalTrackWriter(context.session().store()).writeFile(out, ids, error);
  context.progress().clear();
  if (!written)
    return context.fail(error + "; nothing written");
  std::size_t points = 0;
  QJsonArray platforms;
  for (UniqueID_t id : ids)
  {
    const std::size_t count = context.session().store().entity(id)->platformPoints.size();
    points += count;
    QJsonObject platform = context.entityJson(id);
    platform["points"] = static_cast<qint64>(count);
    platforms.append(platform);
  }
  if (context.args().has("--json"))
  {
    context.printJson(QJsonObject{{"file", text(out)}, {"platforms", platforms}, {"points", static_cast<qint64>(points)}});
    return 0;
  }
  context.out() << "wrote " << out << ": " << ids.size() << (ids.size() == 1 ? " platform, " : " platforms, ") << points
                << (points == 1 ? " point\n" : " points\n");
  return 0;
}

} // namespace kelvor::commands
