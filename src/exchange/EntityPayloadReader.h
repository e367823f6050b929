#pragma once

#include <string>

class QString;

namespace QtSep
{

class PasteTarget;
class PayloadStream;

/**
 * @brief Walks the records of an entity payload and pastes each entity as it is read: the
 * entity is made through the target, then its tables are filled and committed one by one.
 *
 * Reading is strict: a field of another type, a marker of another text, a list cell of other
 * than two items, a cell the target refuses or a payload that ends early stops the paste with
 * status 1 at that point. What was made before stays, as it would after any other failed edit;
 * reason() then says what was wrong.
 */
class EntityPayloadReader
{
public:
  /**
   * @param stream the payload, read past its process id and child flag
   * @param target where the entities go
   * @param sameProcess true when the payload was written by this process: list cells then give
   * their second item (this process's form, such as an entity id) rather than their first
   */
  EntityPayloadReader(PayloadStream& stream, PasteTarget& target, bool sameProcess);

  /// Pastes platform and custom rendering records until the payload ends. @return 0, or 1 on a fault
  int pasteTopLevel();
  /**
   * Pastes the one child record of a child payload, read past its entity type field.
   * @param host the entity that receives the child @return 0, or 1 on a fault
   */
  int pasteChild(unsigned long host);

  /// @return why the paste stopped; empty after a paste without fault
  const std::string& reason() const { return reason_; }

private:
  /// The kinds a host accepts as children in its record.
  enum ChildKinds
  {
    PLATFORM_CHILDREN,
    BEAM_CHILDREN,
    ANY_CHILD
  };

  int pasteRecord_(const QString& marker, unsigned long host, ChildKinds allowed);
  int pastePlatform_();
  int pasteBeam_(unsigned long host);
  int pasteGate_(unsigned long host);
  int pasteLaser_(unsigned long host);
  int pasteLob_(unsigned long host);
  int pasteProjector_(unsigned long host);
  int pasteCustomRendering_(unsigned long host);
  /// Reads the children section of a platform or beam record, through its end marker.
  int pasteChildren_(unsigned long host, ChildKinds allowed);
  /// Fills a new entity from its entity block. @param id 0 when the entity could not be made
  int pasteEntity_(unsigned long id);
  /// Reads one source block into the target's open table, and commits it.
  int pasteDataSource_();
  /// Reads a source block and drops it: a data table without columns to fill.
  int skipDataSource_();
  int pasteTable_(unsigned long id);
  /// Reads the marker that must come next. @return 0, or 1 when another field is there
  int expectMarker_(const char* marker);
  /// Names the entity being read, for the reason a paste stops.
  void naming_(const char* kind, const std::string& name);
  /// Records why the paste stops. @return 1
  int fail_(const std::string& reason);
  /// @return the stream's own reason, or fallback when the stream read well
  int streamFailed_();

  PayloadStream& stream_;
  PasteTarget& target_;
  bool sameProcess_;
  std::string reason_;
  /// The entity and the table being read, for the reason a paste stops.
  std::string entity_;
  std::string table_;
};

} // namespace QtSep
