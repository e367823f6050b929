// kelvor-datagen: writes the demonstration scenario, or a large synthetic one for benchmarks.
#include "ScenarioGenerator.h"
#include "files/ScenarioWriter.h"

#include <cstdlib>
#include <iostream>
#include <string>

int main(int argc, char** argv)
{
  const std::string usage = "Usage: kelvor-datagen demo OUT | kelvor-datagen synthetic POINTS OUT\n";
  if (argc < 2 || std::string(argv[1]) == "--help")
  {
    std::cout << usage;
    return argc < 2 ? 2 : 0;
  }
  kelvor::ScenarioStore store;
  std::string out;
  if (std::string(argv[1]) == "demo" && argc == 3)
  {
    kelvor::ScenarioGenerator::demo(store);
    out = argv[2];
  }
  else if (std::string(argv[1]) == "synthetic" && argc == 4)
  {
    char* end = nullptr;
    const unsigned long long points = std::strtoull(argv[2], &end, 10);
    if (*end != '\0' || points == 0)
    {
      std::cerr << "kelvor-datagen: POINTS must be a positive number\n";
      return 2;
    }
    kelvor::ScenarioGenerator::synthetic(store, points);
    out = argv[3];
  }
  else
  {
    std::cerr << usage;
    return 2;
  }
  std::string error;
  if (!kelvor::ScenarioWriter(store).writeFile(out, error))
  {
    std::cerr << "kelvor-datagen: " << error << '\n';
    return 1;
  }
  return 0;
}
