#include "cli/KelvorEdit.h"

#include "cli/Commands.h"

#include <algorithm>
#include <exception>
#include <new>

namespace kelvor
{

namespace
{

/// One command: what --help shows, the options it takes, and what runs it.
struct CommandEntry
{
  const char* name;
  const char* synopsis; ///< the command with its arguments, as the overview lists it
  const char* help;     ///< what it does and what each option means
  std::vector<OptionRule> options;
  int (*run)(CommandContext&);
};

const OptionRule ENTITIES{"--entity", true, true};
const OptionRule REFERENCE_YEAR{"--reference-year", true, false};

const std::vector<CommandEntry>& commandTable()
{
  static const std::vector<CommandEntry> table = {
    {"info", "info FILE [--json]",
     "Entities by kind, points (as the Data Browser counts them), time span, reference year and origin.\n"
     "  --json           the same as one JSON object\n",
     {{"--json"}}, commands::info},
    {"check", "check FILE",
     "Every line that cannot be read, and every record that replaces an earlier one of its series and time.\n"
     "Exits 1 when a line cannot be read; a replaced record is a warning.\n",
     {}, commands::check},
    {"convert", "convert IN OUT [--positions S]",
     "Reads IN and writes OUT as a scenario file. IN may be a track file of another tool (GPX, KML, GeoJSON,\n"
     "GeoPackage, shapefile...): one platform a track, read through GDAL.\n"
     "  --positions S    the system of OUT's positions: LLA (the default), ECEF, NED, NWU, ENU, XEAST or GTP\n",
     {{"--positions", true}}, commands::convert},
    {"export", "export IN OUT.gpx|.kml|.geojson|.gpkg [--entity NAME_OR_ID]... [--json]",
     "Writes the platforms' tracks for other tools, in the format OUT's ending names: each platform a line with\n"
     "a time a vertex, and its points as point features with time, alt (m), yaw, pitch, roll (degrees) and ve,\n"
     "vn, vu (m/s). GPX: one trk a platform, orientation and velocity as extensions. convert reads every one back.\n"
     "  --entity X       a platform by name or id; every platform when none is named\n"
     "  --json           what was written: {\"file\": OUT, \"platforms\": [{\"name\", \"id\", \"points\"}], \"points\": N}\n",
     {ENTITIES, {"--json"}}, commands::exportTracks},
    {"remove-duplicates", "remove-duplicates IN OUT [--entity NAME_OR_ID]...",
     "Of each run of three or more points equal but for their time, keeps the first and the last.\n"
     "  --entity X       an entity (any kind) and its children; the whole scenario when none is named\n",
     {ENTITIES}, commands::removeDuplicates},
    {"validate", "validate FILE [--fix-all OUT] [--json]",
     "The common errors that make a scenario play wrongly, one a line. Exits 1 when there are any.\n"
     "  --fix-all OUT    repairs what Fix All repairs (for each issue the first solution that works) and\n"
     "                   writes the result to OUT; exits 0 once OUT is written, listing what was not fixed\n"
     "  --json           the issues as one JSON object\n",
     {{"--fix-all", true}, {"--json"}}, commands::validate},
    {"decimate",
     "decimate IN OUT --method point|time|angle|distance|area [--every N] [--interval S] [--interpolate]\n"
     "         [--angle DEG] [--distance M] [--drop FRACTION] [--no-keep-last] [--append-suffix] [--replace]\n"
     "         [--entity NAME_OR_ID]...",
     "Thins platforms as Decimate does: a thinned copy beside each source, named by the method's suffix\n"
     "(\"Eagle (Pnt 10)\"), with the editor's audit line. Static platforms are passed over.\n"
     "  --method point     keep every Nth point:                --every N (1 or more)\n"
     "  --method time      keep points at least S seconds apart: --interval S (more than 0);\n"
     "                     --interpolate resamples every S seconds instead\n"
     "  --method angle     cull points within DEG degrees of the heading: --angle DEG (more than 0, to 180)\n"
     "  --method distance  keep a point each M metres travelled: --distance M (more than 0)\n"
     "  --method area      drop the flattest FRACTION of the points (Visvalingam): --drop FRACTION (0 to 1)\n"
     "  --no-keep-last     do not add the last point (all methods but area)\n"
     "  --append-suffix    the copy takes the source's name; the source is renamed NAME_orig\n"
     "  --replace          thin each platform itself instead (same id, name, children and data)\n"
     "  --entity X         a platform by name or id; every platform when none is named\n",
     {{"--method", true}, {"--every", true}, {"--interval", true}, {"--interpolate"}, {"--angle", true},
      {"--distance", true}, {"--drop", true}, {"--no-keep-last"}, {"--append-suffix"}, {"--replace"}, ENTITIES},
     commands::decimate},
    {"filter-speed",
     "filter-speed IN OUT --min V --max V [--units m/s|kts|km/h|mph|ft/s] [--calculated] [--entity NAME_OR_ID]...",
     "Removes the points whose speed lies outside [V, V], as Velocity Filtering does, with its audit line.\n"
     "  --min V, --max V  the speeds kept, both included, in the units given (m/s by default)\n"
     "  --calculated      the speed from successive positions instead of each point's velocity\n"
     "  --entity X        a platform by name or id; every platform when none is named\n",
     {{"--min", true}, {"--max", true}, {"--units", true}, {"--calculated"}, ENTITIES}, commands::filterSpeed},
    {"derive", "derive IN OUT [--method delta|lagrangian] [--window N] [--entity NAME_OR_ID]...",
     "Recalculates the orientation and velocity of every point, as Calculate Ori / Vel does.\n"
     "  --method lagrangian  a third-order polynomial over a window of points (the default)\n"
     "  --method delta       velocity from successive positions, orientation from velocity\n"
     "  --window N           the Lagrangian window: 5 or more points, 10 by default\n"
     "  --entity X           a platform by name or id, which must derive; when none is named, every platform,\n"
     "                       passing over those that cannot be derived (static, too few points)\n",
     {{"--method", true}, {"--window", true}, ENTITIES}, commands::derive},
    {"export-gog",
     "export-gog IN OUT.gog --plot ground|trajectory|alt-time|alt-range|vel-time [--line-style solid|dashed|dotted]\n"
     "           [--line-width N] [--color 0xRRGGBBAA] [--x-offset X] [--track-color] [--no-depth-buffer]\n"
     "           [--entity NAME_OR_ID]...",
     "Writes the tracks as a GOG overlay or plot, as Export to GOG does.\n"
     "  --plot ground      latitude, longitude           --plot trajectory  latitude, longitude, altitude (ft)\n"
     "  --plot alt-time    time, altitude (yd)           --plot alt-range   range from the origin (yd), altitude (yd)\n"
     "  --plot vel-time    time, speed (yd/s)\n"
     "  --line-style S     solid (the default), dashed or dotted\n"
     "  --line-width N     1 (the default) to 10 pixels\n"
     "  --color C          the line colour, 0xFFFFFFFF by default; 0x00000000 for none\n"
     "  --x-offset X       added to the x values of the x-y plots\n"
     "  --track-color      colour each stretch by the platform's track colours\n"
     "  --no-depth-buffer  switch the depth buffer off\n"
     "  --entity X         a platform by name or id; every platform when none is named\n",
     {{"--plot", true}, {"--line-style", true}, {"--line-width", true}, {"--color", true}, {"--x-offset", true},
      {"--track-color"}, {"--no-depth-buffer"}, ENTITIES},
     commands::exportGog},
    {"transform",
     "transform IN OUT [--system NED|NWU|ENU|LLA|ECEF|ECI|XEAST|GTP] [--time M,A] [--x M,A] [--y M,A] [--z M,A]\n"
     "          [--yaw M,A] [--pitch M,A] [--roll M,A] [--vx M,A] [--vy M,A] [--vz M,A] [--entity NAME_OR_ID]...",
     "Maps chosen components of the platforms' points to value x M + A, as Transform Platform... does, in the\n"
     "coordinate system given (LLA by default). Each option turns on its row of the dialog; the others stay as\n"
     "they are. A, as in the dialog, is in degrees for latitude, longitude and angles, in metres for positions,\n"
     "in metres a second for velocities and in seconds for the time. A change of the time takes the platform's\n"
     "children with it; a platform whose times would fall before the reference year is left as it was.\n"
     "  --system S   the coordinate system of --x, --y, --z and the velocities\n"
     "  --time M,A   the time axis             --x, --y, --z M,A     the position (latitude, longitude, altitude in LLA)\n"
     "  --yaw, --pitch, --roll M,A  the angles  --vx, --vy, --vz M,A  the velocity\n"
     "  --entity X   a platform by name or id; every platform when none is named\n",
     {{"--system", true}, {"--time", true}, {"--x", true}, {"--y", true}, {"--z", true}, {"--yaw", true},
      {"--pitch", true}, {"--roll", true}, {"--vx", true}, {"--vy", true}, {"--vz", true}, ENTITIES},
     commands::transform},
    {"merge", "merge IN OUT --entity A --entity B [--entity C]...",
     "Merges the platforms B, C... into A, as Merge does, and removes them; A keeps its id and name.\n"
     "A name that several platforms share stands for all of them, in id order.\n",
     {ENTITIES},
     commands::merge},
    {"auto-merge", "auto-merge IN OUT [--no-original-id]",
     "Merges every group of platforms of one name into its earliest, as the Auto Merge tab's Detect and Accept.\n"
     "  --no-original-id  group by name alone; by default the original ids must match too\n",
     {{"--no-original-id"}}, commands::autoMerge},
    {"manual-merge",
     "manual-merge IN OUT --entity PRIMARY --entity B [--entity C]... [--gap S] [--start T] [--end T]\n"
     "             [--include-no-original-id] [--skip K]... [--json]",
     "Builds a new platform, PRIMARY's name with \"_Merge\", as the Manual Merge tab's Detect and Merge do:\n"
     "PRIMARY's track, each of its dropouts filled from the first of B, C... (in that order) with points\n"
     "there. The sources stay as they are. Lists each stretch: START END and the platform filling it.\n"
     "  --gap S                  the seconds without points that make a dropout: 1 to 120, 15 by default\n"
     "  --start T, --end T       the time slice, seconds since the reference year; the scenario's span by default\n"
     "  --include-no-original-id also fill from platforms whose original id is 0\n"
     "  --skip K                 leave out stretch K of the list, counted from 1\n"
     "  --json                   the stretches as {\"dropouts\": [{\"start\": T, \"end\": T, \"fill\": NAME or N/A}, ...]}\n",
     {ENTITIES, {"--gap", true}, {"--start", true}, {"--end", true}, {"--include-no-original-id"},
      {"--skip", true, true}, {"--json"}},
     commands::manualMerge},
    {"make-stationary",
     "make-stationary IN OUT [--distance M] [--yaw DEG] [--pitch DEG] [--roll DEG] [--maintain-life-span]\n"
     "                [--entity NAME_OR_ID]...\n"
     "make-stationary FILE --detect-only [--distance M] [--yaw DEG] [--pitch DEG] [--roll DEG] [--json]",
     "Without --entity: the Make Stationary tab's Detect over the whole scenario, then its Accept of every\n"
     "candidate. With --entity: the named platforms are converted, as the Make Stationary command does.\n"
     "A platform becomes its first point, static, or with --maintain-life-span at its first and last times.\n"
     "Each delta given turns its criterion on, as its check box does; with none every platform that is not\n"
     "static is a candidate.\n"
     "  --distance M          ground distance from the first point, 0 to 10000 metres\n"
     "  --yaw DEG             change of yaw from the first value, 0 to 180 degrees\n"
     "  --pitch DEG, --roll DEG  change of pitch or roll, 0 to 90 degrees\n"
     "  --maintain-life-span  keep the first point at the first and the last time\n"
     "  --detect-only         list the candidates; nothing is written\n"
     "  --json                with --detect-only, {\"candidates\": [{\"id\": N, \"name\": NAME}, ...]}\n"
     "  --entity X            a platform by name or id\n",
     {{"--distance", true}, {"--yaw", true}, {"--pitch", true}, {"--roll", true}, {"--maintain-life-span"},
      {"--detect-only"}, {"--json"}, ENTITIES},
     commands::makeStationary},
    {"shift-times", "shift-times IN OUT [--reference-year Y] [--start TIME]",
     "Moves the whole scenario in time, as Edit Times... does: every time-stamped value of every entity\n"
     "shifts by the distance from the scenario's begin to TIME; static values stay.\n"
     "  --reference-year Y  the new reference year (1970 to 9999); alone, it relabels the year and every\n"
     "                      value keeps its seconds\n"
     "  --start TIME        the new begin, taken in the new reference year, in any format the editor reads:\n"
     "                      \"2026-05-01T08:00:00Z\", \"121 2026 08:00:00\", \"May 1 2026 08:00:00\" or seconds\n",
     {{"--start", true}, REFERENCE_YEAR}, commands::shiftTimes},
    {"dropouts", "dropouts FILE --entity NAME_OR_ID --gap S [--start T] [--end T] [--json]",
     "The stretches of more than S seconds without points of one platform, one a line: START END, in seconds\n"
     "since the reference year.\n"
     "  --start T, --end T  the time slice looked at; the scenario's span by default\n"
     "  --json              {\"dropouts\": [{\"start\": T, \"end\": T}, ...]}\n",
     {ENTITIES, {"--gap", true}, {"--start", true}, {"--end", true}, {"--json"}}, commands::dropouts},
  };
  return table;
}

const CommandEntry* find(const std::string& name)
{
  for (const CommandEntry& entry : commandTable())
  {
    if (name == entry.name)
      return &entry;
  }
  return nullptr;
}

/// @return true when the command gives --reference-year a meaning of its own.
bool ownsReferenceYear(const CommandEntry& entry)
{
  return std::any_of(entry.options.begin(), entry.options.end(),
                     [](const OptionRule& option) { return option.name == REFERENCE_YEAR.name; });
}

void commandHelp(const CommandEntry& entry, std::ostream& out)
{
  out << "Usage: kelvor-edit " << entry.synopsis << "\n\n" << entry.help;
  out << "\nIN and FILE may be a scenario (.kls), a CSV track (.csv) or a track file GDAL reads (.gpx, .kml,\n"
         ".geojson, .gpkg, .shp...); OUT may be IN, but is always written as a scenario, never over a track\n"
         "file (export writes those).\n";
  if (!ownsReferenceYear(entry))
    out << "  --reference-year Y  for a track file: the year its times count from (by default the year of its\n"
           "                      first time when the times are dates or Unix seconds)\n";
  out << "Exit status: 0 success, 1 failure (nothing written), 2 bad usage (nothing written).\n";
}

/// Runs one command, with every exception it lets escape turned into a failure.
int runCommand(const CommandEntry& entry, const std::vector<std::string>& words, std::ostream& out, std::ostream& err,
               bool progress, KelvorEdit::SessionObserver* observer)
{
  ProgressLine line(err, progress);
  std::vector<OptionRule> options = entry.options;
  if (!ownsReferenceYear(entry))
    options.push_back(REFERENCE_YEAR);
  CommandArguments arguments;
  std::string error;
  if (!arguments.parse(words, options, error))
  {
    err << "kelvor-edit: " << entry.name << ": " << error << "\nTry 'kelvor-edit " << entry.name << " --help'.\n";
    return KelvorEdit::USAGE;
  }
  try
  {
    CommandContext context(entry.name, arguments, out, err, line);
    if (ownsReferenceYear(entry))
      context.setReadsReferenceYear(false);
    if (observer)
      observer->started(context.session());
    const int status = entry.run(context);
    if (observer)
      observer->finished(context.session(), status);
    return status;
  }
  catch (const std::bad_alloc&)
  {
    line.clear();
    err << "kelvor-edit: " << entry.name << ": out of memory; nothing written\n";
  }
  catch (const std::exception& e)
  {
    line.clear();
    err << "kelvor-edit: " << entry.name << ": " << e.what() << "; nothing written\n";
  }
  return KelvorEdit::FAILURE;
}

} // namespace

int KelvorEdit::run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err, bool progress)
{
  if (arguments.empty())
  {
    usage_(err);
    return USAGE;
  }
  const std::string& command = arguments[0];
  const std::vector<std::string> rest(arguments.begin() + 1, arguments.end());
  if (command == "--help" || command == "-h" || command == "help")
  {
    const CommandEntry* entry = rest.empty() ? nullptr : find(rest[0]);
    if (entry)
      commandHelp(*entry, out);
    else
      usage_(out);
    return SUCCESS;
  }
  const CommandEntry* entry = find(command);
  if (!entry)
  {
    err << "kelvor-edit: unknown command '" << command << "'\n";
    usage_(err);
    return USAGE;
  }
  for (const std::string& word : rest)
  {
    if (word == "--help" || word == "-h")
    {
      commandHelp(*entry, out);
      return SUCCESS;
    }
  }
  return runCommand(*entry, rest, out, err, progress, observer_);
}

void KelvorEdit::usage_(std::ostream& out)
{
  out << "Usage: kelvor-edit COMMAND ARGUMENTS\n"
         "Batch edits of KELVOR Lite scenario files (.kls), CSV tracks (.csv) and the track files of other tools\n"
         "(GPX, KML, GeoJSON, GeoPackage...), with the Scenario Editor's own code. NAME_OR_ID is an entity's name or id.\n"
         "\n"
         "Commands:\n";
  for (const CommandEntry& entry : commandTable())
    out << "  " << entry.synopsis << '\n';
  out << "\n"
         "'kelvor-edit COMMAND --help' tells what a command does and what its options mean.\n"
         "Exit status: 0 success, 1 failure, 2 bad usage. Errors go to standard error as file:line: reason.\n";
}

} // namespace kelvor
