// kelvor-edit: batch edits of KELVOR Lite scenario files.
#include "cli/KelvorEdit.h"
#include "cli/ProgressLine.h"
#include "store/ProcessMemory.h"

#include <QApplication>

#include <exception>
#include <iostream>
#include <new>

int main(int argc, char** argv)
{
  kelvor::keepFreedMemoryForReuse();
  // Nothing escapes: whatever goes wrong ends as a failure with a sentence, never an abort.
  try
  {
    // The editor's code behind some commands (the scenario's times) builds its editing panels
    // as it would in the window; they need a widget application, never a screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
      qputenv("QT_QPA_PLATFORM", "offscreen");
    // What Qt says while it sets up a screen nobody sees (a runtime folder, fonts) is no
    // concern of a command's user.
    const QtMessageHandler previous = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QApplication application(argc, argv);
    qInstallMessageHandler(previous);
    QApplication::setApplicationName("kelvor-lite");
    std::vector<std::string> arguments(argv + 1, argv + argc);
    return kelvor::KelvorEdit().run(arguments, std::cout, std::cerr, kelvor::ProgressLine::standardErrorIsTerminal());
  }
  catch (const std::bad_alloc&)
  {
    std::cerr << "kelvor-edit: out of memory\n";
  }
  catch (const std::exception& e)
  {
    std::cerr << "kelvor-edit: " << e.what() << '\n';
  }
  catch (...)
  {
    std::cerr << "kelvor-edit: unexpected failure\n";
  }
  return kelvor::KelvorEdit::FAILURE;
}
