#pragma once

#include <string>

/**
 * @file
 * Settings of the plug-in's actions in the host's registry: keyed strings, numbers written
 * with a stream. An absent or empty key reads as the default given.
 */

namespace PURegistry
{

void saveReg(const std::string& key, const std::string& value);
void saveReg(const std::string& key, const char* value);
void saveReg(const std::string& key, int value);
/// Written with enough digits to read back exactly.
void saveReg(const std::string& key, double value);
/// @param hex write as "0x" and hexadecimal digits
void saveReg(const std::string& key, unsigned int value, bool hex);
/// Written as 1 or 0.
void saveReg(const std::string& key, bool value);

/// @return the stored bool (strtol of the text, non-zero true; text that is no number is false), or fallback.
bool loadReg(bool fallback, const std::string& key);
/// @return the stored integer, or fallback when absent, empty or no number.
int loadReg(int fallback, const std::string& key);
double loadReg(double fallback, const std::string& key);
/// Reads decimal or "0x" hexadecimal text.
unsigned int loadReg(unsigned int fallback, const std::string& key);
std::string loadReg(const std::string& fallback, const std::string& key);
std::string loadReg(const char* fallback, const std::string& key);
/// @return the stored integer clamped: at or above max gives max, below min gives min.
int loadReg(int fallback, const std::string& key, int min, int max);

} // namespace PURegistry
