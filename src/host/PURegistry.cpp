#include "host/PURegistry.h"

#include "host/PIRegistry.h"

#include <cerrno>
#include <cstdlib>
#include <iomanip>
#include <limits>
#include <sstream>

namespace PURegistry
{

namespace
{

template <typename T>
void saveNumber(const std::string& key, T value)
{
  std::ostringstream out;
  if constexpr (std::is_floating_point_v<T>)
    out << std::setprecision(std::numeric_limits<T>::max_digits10);
  out << value;
  PIGUI::PIRegistry::setValue(key, out.str());
}

// The stored text, or false when the key is absent or empty.
bool stored(const std::string& key, std::string& text)
{
  text = PIGUI::PIRegistry::getValue(key);
  return !text.empty();
}

} // namespace

void saveReg(const std::string& key, const std::string& value) { PIGUI::PIRegistry::setValue(key, value); }
void saveReg(const std::string& key, const char* value) { PIGUI::PIRegistry::setValue(key, value ? value : ""); }
void saveReg(const std::string& key, int value) { saveNumber(key, value); }
void saveReg(const std::string& key, double value) { saveNumber(key, value); }
void saveReg(const std::string& key, bool value) { saveNumber(key, value ? 1 : 0); }

void saveReg(const std::string& key, unsigned int value, bool hex)
{
  if (!hex)
    return saveNumber(key, value);
  std::ostringstream out;
  out << "0x" << std::hex << value;
  PIGUI::PIRegistry::setValue(key, out.str());
}

bool loadReg(bool fallback, const std::string& key)
{
  std::string text;
  if (!stored(key, text))
    return fallback;
  return std::strtol(text.c_str(), nullptr, 10) != 0;
}

int loadReg(int fallback, const std::string& key)
{
  std::string text;
  if (!stored(key, text))
    return fallback;
  errno = 0;
  char* end = nullptr;
  const long value = std::strtol(text.c_str(), &end, 10);
  if (end == text.c_str() || errno == ERANGE || value < std::numeric_limits<int>::min() ||
      value > std::numeric_limits<int>::max())
    return fallback;
  return static_cast<int>(value);
}

double loadReg(double fallback, const std::string& key)
{
  std::string text;
  if (!stored(key, text))
    return fallback;
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  return end == text.c_str() ? fallback : value;
}

unsigned int loadReg(unsigned int fallback, const std::string& key)
{
  std::string text;
  if (!stored(key, text))
    return fallback;
  errno = 0;
  char* end = nullptr;
  const unsigned long value = std::strtoul(text.c_str(), &end, 0);
  if (end == text.c_str() || errno == ERANGE || value > std::numeric_limits<unsigned int>::max())
    return fallback;
  return static_cast<unsigned int>(value);
}

std::string loadReg(const std::string& fallback, const std::string& key)
{
  std::string text;
  return stored(key, text) ? text : fallback;
}

std::string loadReg(const char* fallback, const std::string& key)
{
  return loadReg(std::string(fallback ? fallback : ""), key);
}

int loadReg(int fallback, const std::string& key, int min, int max)
{
  const int value = loadReg(fallback, key);
  if (value >= max)
    return max;
  if (value < min)
    return min;
  return value;
}

} // namespace PURegistry
