// kelvor-edit: batch edits of KELVOR Lite scenario files.
#include "cli/KelvorEdit.h"

#include <QCoreApplication>

#include <iostream>

int main(int argc, char** argv)
{
  QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName("kelvor-lite");
  std::vector<std::string> arguments(argv + 1, argv + argc);
  return kelvor::KelvorEdit().run(arguments, std::cout, std::cerr);
}
