#pragma once

#include "store/ScenarioStore.h"

#include <cstddef>
#include <string>
#include <vector>

/**
 * @file What must hold of any scenario KELVOR Lite keeps, whatever was done to it, for tests
 * that edit at random. Each check answers one line per finding, empty when all is well.
 */
namespace ScenarioChecks
{

/**
 * The store's own rules: every series of every entity strictly ascending in time (categories
 * by time and name, generic data by time and tag, table rows by time); every number finite;
 * every child's host present, of a kind that can hold it, and listing it; every child listed
 * by a host present and naming that host; every table of an entity present and owned by it.
 */
std::vector<std::string> inconsistencies(const kelvor::ScenarioStore& store);

/**
 * Everything a scenario file keeps, compared: the properties; the entities in id order with
 * their kind, host, children, alias and every header field; every item of every series,
 * category and generic data; every table with its columns and cells; preference rules, draw
 * flags and overlay files. Numbers compare bit for bit. Entities pair by their place in id
 * order, and references to entities (hosts, children, targets) compare by that place, since
 * a store read from a file numbers its entities anew.
 * @param most stop after this many findings
 */
std::vector<std::string> differences(const kelvor::ScenarioStore& expected, const kelvor::ScenarioStore& actual,
                                     std::size_t most = 20);

/**
 * As above, for entities of one store paired by their places in two lists, as a copy is
 * compared with its source: hosts and children compare by their places in each list (children
 * as a set), while a reference to an entity outside actual's list compares as the place that
 * entity has in expected's, so that a copy that still aims at its source's target matches.
 */
std::vector<std::string> differences(const kelvor::ScenarioStore& store, const std::vector<UniqueID_t>& expected,
                                     const std::vector<UniqueID_t>& actual, std::size_t most = 20);

/// @return the scenario file the store would be saved as (positions in LLA)
std::string scenarioText(const kelvor::ScenarioStore& store);

/// @return a file's bytes, empty when it cannot be read
std::string fileContents(const std::string& path);

/// Saves store to path, reads the file into a new store and compares. @return the reader's errors, then the differences
std::vector<std::string> saveAndReadBack(const kelvor::ScenarioStore& store, const std::string& path);

} // namespace ScenarioChecks
