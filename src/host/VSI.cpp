#include "host/VSI.h"

namespace VSI
{

std::string companyName() { return "The Scenario Editor team"; }
std::string companyInfo() { return "Scenario Editor for KELVOR: see the project's README"; }
std::string companyContact() { return "Scenario Editor team, through the project's issue tracker"; }
std::string compileSWVersionDateTime() { return std::string("1.22.0 (") + __DATE__ + " " + __TIME__ + ")"; }

} // namespace VSI
