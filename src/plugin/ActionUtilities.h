#pragma once

#include "host/PIScenarioObjectType.h"

#include <QString>

#include <string>
#include <vector>

class QWidget;

/// @file What every action uses: asking first, entity names, times, and telling the host of changes.

namespace QtSep
{

/**
 * Asks before a command, unless the user said not to ask again.
 * @param key the bool setting that keeps the answer "do not ask again" (as "ConfirmDelete")
 * @return 0 to go on, 1 when the user declined
 */
int verifyAction(const QString& title, const QString& text, const std::string& key, QWidget* parent);
/// @return text, with "..." when the command will ask first (its setting key is true).
std::string addEllipsisIfConfirm(const std::string& text, const std::string& key);
/// @return the entity's kind.
PIScenarioObjectType_t getEntityType(unsigned long id);
/// @return the name in the entity's header; empty for an unknown id.
std::string getEntityHeaderName(unsigned long id);
/**
 * Reads the name in an entity's header, by the header of its kind.
 * \returns true when the kind has a header and it was read; name is untouched otherwise
 */
bool readEntityHeaderName(unsigned long id, PIScenarioObjectType_t type, std::string& name);
/// @return the entity's name; a platform's alias where it shows one; empty for an unknown id.
std::string getEntityName(unsigned long id);
/// @return the name of the entity's host, or its own name when it has none.
std::string getEntityHostName(unsigned long id);
/// @return the latest time of the platform that carries the entity, 0.0 when there is none.
double getPlatformLatestTime(unsigned long id);
/// Tells the host that the entities' data changed, through its signal service.
void fireChangeCallback(const std::vector<unsigned long>& ids);
void fireChangeCallback(unsigned long id);

} // namespace QtSep
