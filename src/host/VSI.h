#pragma once

#include <string>

/// @file Version constants of the build.

namespace VSI
{

/// @return who makes the plug-in.
std::string companyName();
/// @return where to learn more.
std::string companyInfo();
/// @return whom to contact.
std::string companyContact();
/// @return the version and the build's compile date and time, as "1.22.0 (Nov 23 2026 01:00:00)".
std::string compileSWVersionDateTime();

} // namespace VSI
