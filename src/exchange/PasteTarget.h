#pragma once

#include "host/PIBeamHeader.h"
#include "host/PICustomRenderingHeader.h"
#include "host/PIGateHeader.h"
#include "host/PILaserHeader.h"
#include "host/PILobHeader.h"
#include "host/PIPlatformHeader.h"
#include "host/PIProjectorHeader.h"
#include "host/UnitType.h"
#include "host/VariableType.h"

#include <QVariant>

#include <string>
#include <vector>

namespace QtSep
{

/**
 * @brief Where a paste puts what it reads: makes the entities and fills their tables row by
 * row. The host's side does so through the host's create calls and the point editor's data
 * sources; a test or a fuzzer may keep it all in memory.
 *
 * Every table is filled the same way: open it, then for each row addRow and setCell for each
 * of its columns, then commit. Ids are the host's entity ids; 0 is a failure.
 */
class PasteTarget
{
public:
  /// The tables of an entity that a paste fills apart from data tables.
  enum class Table
  {
    OWN = 0,  ///< the series of the entity's kind (points, beam series, ...)
    CATEGORY, ///< category data
    GENERIC   ///< generic data
  };

  /// A data table column as the payload lists it.
  struct Column
  {
    std::string name;
    UTILS::VariableType_t type = UTILS::VT_UNKNOWN;
    UTILS::UnitType_t units = UTILS::UNITS_NONE;
  };

  virtual ~PasteTarget() = default;

  /// Makes a platform with one seed point at the clock's begin, then removes its points. @return its id
  virtual unsigned long createPlatform(const PIData::PIPlatformHeader& header) = 0;
  /// Makes a beam on host with one seed point, then removes its series. @return its id
  virtual unsigned long createBeam(unsigned long host, const PIData::PIBeamHeader& header) = 0;
  /// Makes a gate on a beam with one seed point, then removes its series. @return its id
  virtual unsigned long createGate(unsigned long host, const PIData::PIGateHeader& header) = 0;
  /// @return the new laser's id
  virtual unsigned long createLaser(unsigned long host, const PIData::PILaserHeader& header) = 0;
  /// @return the new LOB group's id
  virtual unsigned long createLob(unsigned long host, const PIData::PILobHeader& header) = 0;
  /// @return the new projector's id
  virtual unsigned long createProjector(unsigned long host, const PIData::PIProjectorHeader& header) = 0;
  /// @param host 0 for a custom rendering of its own @return the new custom rendering's id
  virtual unsigned long createCustomRendering(unsigned long host, const PIData::PICustomRenderingHeader& header) = 0;

  /// Opens an empty table of entity id for filling.
  virtual void openTable(unsigned long id, Table table) = 0;
  /**
   * Makes a data table under entity id and opens it for filling.
   * @param columns the table's columns without its time column; not empty
   * @return false when the table could not be made
   */
  virtual bool openDataTable(unsigned long id, const std::string& name, const std::vector<Column>& columns) = 0;
  /// Adds row number row (0, 1, ...) to the open table, a copy of the row before it.
  virtual void addRow(int row) = 0;
  /// Sets a cell of the open table to a value in storage units. @return 0, non-zero when refused
  virtual int setCell(int row, int column, const QVariant& value) = 0;
  /// Writes the open table to the entity, and closes it.
  virtual void commit() = 0;
};

} // namespace QtSep
