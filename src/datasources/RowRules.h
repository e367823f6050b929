#pragma once

#include <algorithm>
#include <vector>

namespace QtSep
{

/**
 * The row rules every editable table shares, on a deque of its rows: moving a row as a model
 * moves it, where a copy goes, and deleting a list of rows.
 */
namespace RowRules
{

/**
 * Moves a row. @param to the destination as beginMoveRows takes it: the row ends before `to`,
 * so for from < to at to - 1. @return 0, or 1 when from is to or out of range
 */
template <typename Rows>
int moveRow(Rows& rows, int from, int to)
{
  if (from == to || from < 0 || from >= static_cast<int>(rows.size()))
    return 1;
  auto moved = std::move(rows[from]);
  rows.erase(rows.begin() + from);
  if (from < to)
    --to;
  rows.insert(rows.begin() + std::clamp(to, 0, static_cast<int>(rows.size())), std::move(moved));
  return 0;
}

/// @return where a copy of row goes: after it, at the end when no row is chosen, 0 in an empty table
template <typename Rows>
int copyDestination(const Rows& rows, int row)
{
  const int count = static_cast<int>(rows.size());
  if (count == 0)
    return 0;
  return row >= 0 && row < count ? row + 1 : count;
}

/**
 * Deletes rows, walking the ascending list from its end: entries out of range, and repeats of
 * a row already deleted, are passed over. @param erasing told of each row before it goes
 * @return whether any row was deleted
 */
template <typename Rows, typename Erasing>
bool deleteRows(Rows& rows, const std::vector<int>& list, Erasing erasing)
{
  int lastDeleted = static_cast<int>(rows.size());
  bool any = false;
  for (auto it = list.rbegin(); it != list.rend(); ++it)
  {
    const int row = *it;
    if (row < 0 || row >= static_cast<int>(rows.size()) || row >= lastDeleted)
      continue;
    erasing(rows[row]);
    rows.erase(rows.begin() + row);
    lastDeleted = row;
    any = true;
  }
  return any;
}

} // namespace RowRules

} // namespace QtSep
