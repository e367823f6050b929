#include "host/PIApplication_v0_5_7.h"

int PIApplication_v0_5_7::StartUp(std::vector<std::string>*) { return StartUp(); }
