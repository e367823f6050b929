// Any bytes given as an entity payload are pasted or stopped with a reason, never a crash: the
// reader walks the whole grammar into a target that accepts it in memory.
#include "exchange/EntityPayloadReader.h"
#include "exchange/PasteTarget.h"
#include "exchange/PayloadStream.h"

#include <cstddef>
#include <cstdint>

namespace
{

class MemoryPasteTarget : public QtSep::PasteTarget
{
public:
  unsigned long createPlatform(const PIData::PIPlatformHeader&) override { return next_(); }
  unsigned long createBeam(unsigned long, const PIData::PIBeamHeader&) override { return next_(); }
  unsigned long createGate(unsigned long, const PIData::PIGateHeader&) override { return next_(); }
  unsigned long createLaser(unsigned long, const PIData::PILaserHeader&) override { return next_(); }
  unsigned long createLob(unsigned long, const PIData::PILobHeader&) override { return next_(); }
  unsigned long createProjector(unsigned long, const PIData::PIProjectorHeader&) override { return next_(); }
  unsigned long createCustomRendering(unsigned long, const PIData::PICustomRenderingHeader&) override
  {
    return next_();
  }
  void openTable(unsigned long, Table) override { cells_ = 0; }
  bool openDataTable(unsigned long, const std::string& name, const std::vector<Column>&) override
  {
    cells_ = 0;
    // A host may refuse a table; the reader must stop cleanly then.
    return name != "refused";
  }
  void addRow(int) override {}
  int setCell(int, int column, const QVariant& value) override
  {
    ++cells_;
    // Refuse what no table takes, so that the refusal path runs too.
    return column > 64 || value.userType() == QMetaType::QByteArray ? 1 : 0;
  }
  void commit() override {}

private:
  unsigned long next_() { return ++made_; }
  unsigned long made_ = 0;
  unsigned long cells_ = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  QtSep::PayloadStream stream(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
  unsigned long process = 0;
  bool child = false;
  if (!stream.readUnsignedLong(process) || !stream.readBool(child))
    return 0;
  MemoryPasteTarget target;
  QtSep::EntityPayloadReader reader(stream, target, (process & 1) != 0);
  if (child)
    reader.pasteChild(1);
  else
    reader.pasteTopLevel();
  return 0;
}
