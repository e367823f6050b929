#pragma once

#include "exchange/PayloadMarkers.h"
#include "plugin/EntityInfo.h"

#include <string>
#include <vector>

class QDataStream;
class QMimeData;

namespace QtSep
{

class DataSource;

/**
 * @brief Whole entities as one binary payload under the MIME type CP_VERSION, for the
 * clipboard and for drag and drop, also between two running hosts.
 *
 * A payload holds platforms and custom renderings of their own, each with all its children
 * and data, or one child entity alone. Every field is a QVariant in a default-version
 * QDataStream; the data of each table are the point editor's sources' raw cells, so a paste
 * fills new entities through those same sources. Pasting always makes new entities, under the
 * names and ids the payload carries.
 */
class EntityMimeData
{
public:
  EntityMimeData() = default;
  virtual ~EntityMimeData() = default;

  /// @return true when the entities can be copied: platforms and custom renderings of their own, or one child
  bool isValidCopy(const std::vector<EntityInfo>& entities) const;
  /**
   * @return the payload of the entities, owned by the caller; null when isValidCopy is false,
   * or when the payload could not be made whole (copyError() then says why)
   */
  QMimeData* copy(const std::vector<EntityInfo>& entities) const;
  /**
   * @param targets what the paste was asked on: a child needs one target of a kind that can hold it
   * @return true when mime holds a payload that can be pasted on targets
   */
  bool isValidPaste(const std::vector<EntityInfo>& targets, const QMimeData* mime) const;
  /**
   * Makes the payload's entities: top-level ones on their own, a child on targets[0]. A paste
   * from another process fits the clock to the data afterwards.
   * @return 0, or 1 when there is nothing to paste or a top-level record failed; entities made
   * before a fault stay
   */
  int paste(const std::vector<EntityInfo>& targets, const QMimeData* mime);
  /// @return true when mime's payload was written by this process (or its process id cannot be read)
  bool isLocalData(const QMimeData* mime) const;

  /// @return why the last copy made no payload of entities it could copy; empty when it made one
  const std::string& copyError() const { return copyError_; }
  /// @return why the last paste stopped short; empty when it went through
  const std::string& pasteError() const { return pasteError_; }
  /// @return the entities the last paste made, in the order made
  const std::vector<unsigned long>& pastedIds() const { return pastedIds_; }

  /// Set by paste: whether the payload came from this process.
  bool sameProcess = false;

private:
  bool isValidCopy_(const std::vector<EntityInfo>& entities, bool& childCopy) const;
  void writeRecord_(QDataStream& out, const EntityInfo& entity) const;
  void writePlatform_(QDataStream& out, unsigned long id) const;
  void writeBeam_(QDataStream& out, unsigned long id) const;
  void writeGate_(QDataStream& out, unsigned long id) const;
  void writeLaser_(QDataStream& out, unsigned long id) const;
  void writeLob_(QDataStream& out, unsigned long id) const;
  void writeProjector_(QDataStream& out, unsigned long id) const;
  void writeCustomRendering_(QDataStream& out, unsigned long id) const;
  void writeEntity_(QDataStream& out, unsigned long id) const;
  void writeSource_(QDataStream& out, const DataSource& source) const;
  void writeDataTables_(QDataStream& out, unsigned long id) const;

  mutable std::string copyError_;
  std::string pasteError_;
  std::vector<unsigned long> pastedIds_;
};

} // namespace QtSep
