// kelvor-edit: batch edits of KELVOR Lite scenario files.
#include "cli/KelvorEdit.h"
#include "cli/ProgressLine.h"
#include "store/ProcessMemory.h"

#include <QCoreApplication>

#include <exception>
#include <iostream>
#include <new>

int main(int argc, char** argv)
{
  kelvor::keepFreedMemoryForReuse();
  // Nothing escapes: whatever goes wrong ends as a failure with a sentence, never an abort.
  try
  {
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName("kelvor-lite");
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
