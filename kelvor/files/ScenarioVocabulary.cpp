#include "files/ScenarioVocabulary.h"

#include "files/LineTokenizer.h"
#include "host/DataTableCellTyped.h"
#include "files/NumberText.h"
#include "kelCore/StringUtils.h"

#include <cstdio>
#include <limits>
#include <memory>

namespace kelvor
{

namespace
{

struct Word
{
  const char* text;
  int value;
};

bool lookUp(const std::string& word, std::initializer_list<Word> words, int& value)
{
  for (const Word& w : words)
    if (kelCore::caseCompare(word, w.text) == 0)
      return value = w.value, true;
  return false;
}

std::string nameOf(int value, std::initializer_list<Word> words, const char* fallback)
{
  for (const Word& w : words)
    if (w.value == value)
      return w.text;
  return fallback;
}

const std::initializer_list<Word> KINDS = {{"platform", PI_PLATFORM_TYPE}, {"beam", PI_BEAM_TYPE},
                                           {"gate", PI_GATE_TYPE},         {"laser", PI_LASER_TYPE},
                                           {"LOB group", PI_LOB_GROUP_TYPE}, {"projector", PI_PROJECTOR_TYPE},
                                           {"custom rendering", PI_CUSTOM_RENDERING_TYPE}};
const std::initializer_list<Word> POSITION_SYSTEMS = {
  {"LLA", static_cast<int>(kelCore::CoordinateSystem::LLA)},   {"ECEF", static_cast<int>(kelCore::CoordinateSystem::ECEF)},
  {"NED", static_cast<int>(kelCore::CoordinateSystem::NED)},   {"NWU", static_cast<int>(kelCore::CoordinateSystem::NWU)},
  {"ENU", static_cast<int>(kelCore::CoordinateSystem::ENU)},   {"XEAST", static_cast<int>(kelCore::CoordinateSystem::XEAST)},
  {"GTP", static_cast<int>(kelCore::CoordinateSystem::GTP)}};
const std::initializer_list<Word> PI_SYSTEMS = {{"NED", 0}, {"NWU", 1},  {"ENU", 2}, {"LLA", 3}, {"ECEF", 4},
                                                {"XEAST", 5}, {"GTP", 8}, {"ECI", 9}};
const std::initializer_list<Word> BEAM_TYPES = {{"unknown", 0}, {"target", 1}, {"absolute", 9}, {"body", 10}};
const std::initializer_list<Word> GATE_TYPES = {{"absolute", 1}, {"target", 3}, {"body", 11}};
const std::initializer_list<Word> LOB_TYPES = {{"relative", 1}, {"absolute", 2}};
const std::initializer_list<Word> STORAGE_TYPES = {
  {"uint8", UTILS::VT_UINT8},   {"int8", UTILS::VT_INT8},     {"uint16", UTILS::VT_UINT16}, {"int16", UTILS::VT_INT16},
  {"uint32", UTILS::VT_UINT32}, {"int32", UTILS::VT_INT32},   {"uint64", UTILS::VT_UINT64}, {"int64", UTILS::VT_INT64},
  {"float", UTILS::VT_FLOAT},   {"double", UTILS::VT_DOUBLE}, {"string", UTILS::VT_STRING}, {"blob", UTILS::VT_BLOB}};

template <typename T>
PIData::DataTableCell* integerCell(const std::string& token)
{
  if constexpr (std::is_signed_v<T>)
  {
    std::int64_t v = 0;
    if (!NumberText::parse(token, v) || v < std::numeric_limits<T>::min() || v > std::numeric_limits<T>::max())
      return nullptr;
    return new PIData::DataTableCellTyped<T>(static_cast<T>(v));
  }
  else
  {
    std::uint64_t v = 0;
    if (!NumberText::parse(token, v) || v > std::numeric_limits<T>::max())
      return nullptr;
    return new PIData::DataTableCellTyped<T>(static_cast<T>(v));
  }
}

} // namespace

std::string ScenarioVocabulary::kindName(int kind) { return nameOf(kind, KINDS, "entity"); }

std::string ScenarioVocabulary::kindNames(int kinds)
{
  if ((kinds & ANY_ENTITY) == ANY_ENTITY)
    return "entity";
  std::string names;
  for (const Word& w : KINDS)
    if (kinds & w.value)
      names += (names.empty() ? "" : " or ") + std::string(w.text);
  return names;
}

bool ScenarioVocabulary::positionSystem(const std::string& word, kelCore::CoordinateSystem& system)
{
  int value = 0;
  if (!lookUp(word, POSITION_SYSTEMS, value))
    return false;
  system = static_cast<kelCore::CoordinateSystem>(value);
  return true;
}

std::string ScenarioVocabulary::positionSystemName(kelCore::CoordinateSystem system)
{
  return nameOf(static_cast<int>(system), POSITION_SYSTEMS, "LLA");
}

bool ScenarioVocabulary::piSystem(const std::string& word, int& system)
{
  if (lookUp(word, PI_SYSTEMS, system))
    return true;
  std::int64_t number = 0;
  if (!NumberText::parse(word, number) || number < 0 || number > 9)
    return false;
  system = static_cast<int>(number);
  return true;
}

std::string ScenarioVocabulary::piSystemName(int system) { return nameOf(system, PI_SYSTEMS, std::to_string(system).c_str()); }

bool ScenarioVocabulary::beamType(const std::string& word, int& type) { return lookUp(word, BEAM_TYPES, type); }
std::string ScenarioVocabulary::beamTypeName(int type) { return nameOf(type, BEAM_TYPES, "unknown"); }
bool ScenarioVocabulary::gateType(const std::string& word, int& type) { return lookUp(word, GATE_TYPES, type); }
std::string ScenarioVocabulary::gateTypeName(int type) { return nameOf(type, GATE_TYPES, "absolute"); }
bool ScenarioVocabulary::lobType(const std::string& word, int& type) { return lookUp(word, LOB_TYPES, type); }
std::string ScenarioVocabulary::lobTypeName(int type) { return nameOf(type, LOB_TYPES, "absolute"); }

bool ScenarioVocabulary::onOff(const std::string& word, bool& on)
{
  int value = 0;
  if (!lookUp(word, {{"on", 1}, {"off", 0}}, value))
    return false;
  on = value != 0;
  return true;
}

bool ScenarioVocabulary::storageType(const std::string& word, UTILS::VariableType_t& type)
{
  int value = 0;
  if (!lookUp(word, STORAGE_TYPES, value))
    return false;
  type = static_cast<UTILS::VariableType_t>(value);
  return true;
}

std::string ScenarioVocabulary::storageTypeName(UTILS::VariableType_t type) { return nameOf(type, STORAGE_TYPES, "double"); }

PIData::DataTableCell* ScenarioVocabulary::parseCell(UTILS::VariableType_t type, const std::string& token)
{
  switch (type)
  {
  case UTILS::VT_UINT8: return integerCell<std::uint8_t>(token);
  case UTILS::VT_INT8: return integerCell<std::int8_t>(token);
  case UTILS::VT_UINT16: return integerCell<std::uint16_t>(token);
  case UTILS::VT_INT16: return integerCell<std::int16_t>(token);
  case UTILS::VT_UINT32: return integerCell<std::uint32_t>(token);
  case UTILS::VT_INT32: return integerCell<std::int32_t>(token);
  case UTILS::VT_UINT64: return integerCell<std::uint64_t>(token);
  case UTILS::VT_INT64: return integerCell<std::int64_t>(token);
  case UTILS::VT_FLOAT:
  case UTILS::VT_DOUBLE: {
    double v = 0;
    if (!NumberText::parse(token, v, true))
      return nullptr;
    if (type == UTILS::VT_FLOAT)
    {
      return new PIData::DataTableCellTyped<float>(static_cast<float>(v));
    }
    return new PIData::DataTableCellTyped<double>(v);
  }
  case UTILS::VT_STRING: return new PIData::DataTableCellTyped<std::string>(token);
  case UTILS::VT_BLOB: {
    if (token.rfind("blob:", 0) != 0 || (token.size() - 5) % 2 != 0)
      return nullptr;
    UTILS::Blob bytes;
    for (std::size_t i = 5; i < token.size(); i += 2)
    {
      unsigned int byte = 0;
      if (!NumberText::parseColor("0x" + token.substr(i, 2), byte))
        return nullptr;
      bytes.push_back(static_cast<std::uint8_t>(byte));
    }
    return new PIData::DataTableCellTyped<UTILS::Blob>(bytes);
  }
  case UTILS::VT_UNKNOWN: break;
  }
  return nullptr;
}

std::string ScenarioVocabulary::formatCell(const PIData::DataTableCell& cell)
{
  switch (cell.type())
  {
  case UTILS::VT_FLOAT: {
    float f = 0;
    cell.getValue(f);
    return NumberText::format(static_cast<double>(f));
  }
  case UTILS::VT_DOUBLE: {
    double d = 0;
    cell.getValue(d);
    return NumberText::format(d);
  }
  case UTILS::VT_STRING: {
    std::string s;
    cell.getValue(s);
    return LineTokenizer::quote(s);
  }
  case UTILS::VT_BLOB: {
    UTILS::Blob bytes;
    cell.getValue(bytes);
    std::string text = "blob:";
    char hex[3];
    for (std::uint8_t b : bytes)
    {
      std::snprintf(hex, sizeof(hex), "%02X", b);
      text += hex;
    }
    return text;
  }
  default: {
    std::string s;
    cell.getValue(s);
    return s;
  }
  }
}

std::string ScenarioVocabulary::formatCells(const DataTable& table, const PIData::DataTableRowT& row)
{
  std::string text;
  for (const auto& c : table.columns())
  {
    const PIData::DataTableCell* cell = row.findCell(static_cast<unsigned long>(c.id));
    text += ' ';
    text += cell ? formatCell(*cell) : std::string("NULL");
  }
  return text;
}

} // namespace kelvor
