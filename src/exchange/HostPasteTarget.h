#pragma once

#include "exchange/PasteTarget.h"

#include <memory>

namespace kelCore
{
class UnitContextAdapter;
class UnitContextFormatter;
}

namespace QtSep
{

class DataSource;

/**
 * @brief Pastes into the running host: entities through its create calls, their data through
 * the point editor's own sources, in storage units (LLA, radians, metres) whatever units the
 * user shows, since each entity gets fresh default units.
 */
class HostPasteTarget : public PasteTarget
{
public:
  HostPasteTarget();
  ~HostPasteTarget() override;

  unsigned long createPlatform(const PIData::PIPlatformHeader& header) override;
  unsigned long createBeam(unsigned long host, const PIData::PIBeamHeader& header) override;
  unsigned long createGate(unsigned long host, const PIData::PIGateHeader& header) override;
  unsigned long createLaser(unsigned long host, const PIData::PILaserHeader& header) override;
  unsigned long createLob(unsigned long host, const PIData::PILobHeader& header) override;
  unsigned long createProjector(unsigned long host, const PIData::PIProjectorHeader& header) override;
  unsigned long createCustomRendering(unsigned long host, const PIData::PICustomRenderingHeader& header) override;

  void openTable(unsigned long id, Table table) override;
  bool openDataTable(unsigned long id, const std::string& name, const std::vector<Column>& columns) override;
  void addRow(int row) override;
  int setCell(int row, int column, const QVariant& value) override;
  void commit() override;

  /// @return every entity made, in the order made
  const std::vector<unsigned long>& made() const { return madeIds_; }

private:
  /// Keeps a new entity's id. @return id
  unsigned long keep_(unsigned long id);

  std::unique_ptr<kelCore::UnitContextAdapter> units_;
  std::unique_ptr<kelCore::UnitContextFormatter> formatter_;
  std::unique_ptr<DataSource> open_;
  std::vector<unsigned long> madeIds_;
};

} // namespace QtSep
