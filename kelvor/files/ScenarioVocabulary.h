#pragma once

#include "host/DataTableCell.h"
#include "host/PIScenarioObjectType.h"
#include "kelCore/CoordinateSystem.h"
#include "store/DataTable.h"

#include <string>

namespace kelvor
{

/// The words of scenario files, both ways: kinds, types, systems, states and table cells.
class ScenarioVocabulary
{
public:
  /// Every entity kind, for commands that any entity takes.
  static constexpr int ANY_ENTITY = PI_PLATFORM_TYPE | PI_BEAM_TYPE | PI_GATE_TYPE | PI_LASER_TYPE |
                                    PI_LOB_GROUP_TYPE | PI_PROJECTOR_TYPE | PI_CUSTOM_RENDERING_TYPE;

  /// @return "platform", "beam", ... of one kind.
  static std::string kindName(int kind);
  /// @return "platform or beam" and the like of a mask.
  static std::string kindNames(int kinds);

  /// Reads LLA, ECEF, NED, NWU, ENU, XEAST or GTP, in any case.
  static bool positionSystem(const std::string& word, kelCore::CoordinateSystem& system);
  static std::string positionSystemName(kelCore::CoordinateSystem system);
  /// Reads a PICoordSystem_t by name (NED, NWU, ENU, LLA, ECEF, XEAST, GTP, ECI) or number.
  static bool piSystem(const std::string& word, int& system);
  static std::string piSystemName(int system);

  static bool beamType(const std::string& word, int& type);
  static std::string beamTypeName(int type);
  static bool gateType(const std::string& word, int& type);
  static std::string gateTypeName(int type);
  static bool lobType(const std::string& word, int& type);
  static std::string lobTypeName(int type);
  static bool onOff(const std::string& word, bool& on);

  /// Reads uint8 ... double, string, blob (or the storage type's number).
  static bool storageType(const std::string& word, UTILS::VariableType_t& type);
  static std::string storageTypeName(UTILS::VariableType_t type);
  /// @return a new cell of type read from a token, null when the token is not such a value.
  /// Blobs are written "blob:" and hexadecimal bytes.
  static PIData::DataTableCell* parseCell(UTILS::VariableType_t type, const std::string& token);
  /// @return the token of a cell, as parseCell reads it back exactly.
  static std::string formatCell(const PIData::DataTableCell& cell);
  /// @return the cells of a row in column order, each as formatCell writes it or NULL, one blank before each.
  static std::string formatCells(const DataTable& table, const PIData::DataTableRowT& row);
};

} // namespace kelvor
