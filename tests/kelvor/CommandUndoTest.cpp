// Every command of the editor that writes, run through the host on the demo scenario with the
// journal kept: undoing its one step gives back the very file before it, byte for byte, and
// redoing it the very file the command wrote.
#include "cli/EditSession.h"
#include "cli/KelvorEdit.h"
#include "files/ScenarioReader.h"
#include "support/ScenarioChecks.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

using namespace kelvor;

namespace
{

const std::string DEMO = std::string(SEP_SOURCE_DIR) + "/data/demo.kls";

const auto fileOf = ScenarioChecks::scenarioText;
const auto contentsOf = ScenarioChecks::fileContents;

/// Journals the command's session, then undoes and redoes its step, noting the files between.
class UndoRecorder : public KelvorEdit::SessionObserver
{
public:
  std::size_t steps = 0;
  std::string undone;
  std::string redone;

  void started(EditSession& session) override { session.store().keepJournal(true); }
  void finished(EditSession& session, int status) override
  {
    ScenarioStore& store = session.store();
    if (status != KelvorEdit::SUCCESS)
      return;
    store.journal()->endStep();
    steps = store.journal()->undoSteps().size();
    if (!store.undo())
      return;
    undone = fileOf(store);
    if (store.redo())
      redone = fileOf(store);
  }
};

} // namespace

TEST(CommandUndo, EveryWritingCommandUndoesToTheFileBeforeAndRedoesToTheFileItWrote)
{
  ScenarioStore opened;
  ASSERT_TRUE(ScenarioReader(opened).readFile(DEMO).loaded);
  const std::string before = fileOf(opened);
  const std::vector<std::vector<std::string>> commands = {
    {"remove-duplicates", "IN", "OUT"},
    {"decimate", "IN", "OUT", "--method", "point", "--every", "3"},
    {"decimate", "IN", "OUT", "--method", "time", "--interval", "30", "--interpolate", "--append-suffix"},
    {"decimate", "IN", "OUT", "--method", "angle", "--angle", "10", "--replace"},
    {"decimate", "IN", "OUT", "--method", "distance", "--distance", "2000", "--replace"},
    {"decimate", "IN", "OUT", "--method", "area", "--drop", "0.5", "--entity", "Eagle 1"},
    {"filter-speed", "IN", "OUT", "--min", "0", "--max", "150"},
    {"derive", "IN", "OUT"},
    {"derive", "IN", "OUT", "--method", "lagrangian", "--entity", "Hawk 3"},
    {"transform", "IN", "OUT", "--x", "1,100", "--yaw", "1,0.1", "--time", "1,5"},
    {"transform", "IN", "OUT", "--system", "ECEF", "--z", "2,0"},
    {"merge", "IN", "OUT", "--entity", "201", "--entity", "202", "--entity", "203"},
    {"auto-merge", "IN", "OUT", "--no-original-id"},
    {"manual-merge", "IN", "OUT", "--entity", "201", "--entity", "202", "--entity", "203", "--gap", "5"},
    {"make-stationary", "IN", "OUT", "--maintain-life-span"},
    {"shift-times", "IN", "OUT", "--reference-year", "2030"},
    {"validate", "IN", "--fix-all", "OUT"},
  };
  QTemporaryDir dir;
  const std::string out = dir.filePath("out.kls").toStdString();
  for (const std::vector<std::string>& words : commands)
  {
    std::vector<std::string> line;
    std::string described;
    for (const std::string& word : words)
    {
      line.push_back(word == "IN" ? DEMO : word == "OUT" ? out : word);
      described += word + " ";
    }
    SCOPED_TRACE(described);

    KelvorEdit edit;
    UndoRecorder recorder;
    edit.setSessionObserver(&recorder);
    std::ostringstream said, errors;
    ASSERT_EQ(KelvorEdit::SUCCESS, edit.run(line, said, errors)) << errors.str();
    const std::string written = contentsOf(out);
    EXPECT_FALSE(before == written) << "the command changed nothing: a poor case";
    EXPECT_EQ(1u, recorder.steps) << "a command is one step";
    EXPECT_TRUE(recorder.undone == before) << "undo left another file";
    EXPECT_TRUE(recorder.redone == written) << "redo left another file than the command wrote";
  }
}
