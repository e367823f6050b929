#pragma once

#include <QString>

namespace kelQt
{

/**
 * The rich tool tip of a dialog field: the title in bold, with an optional suffix, and the
 * explanation indented below it when there is one.
 */
inline QString formatTooltip(const QString& title, const QString& text = QString(), const QString& titleSuffix = QString())
{
  if (text.isEmpty())
    return QString("<strong>%1%2</strong>").arg(title, titleSuffix);
  return QString("<strong>%1%2</strong><div style=\"margin-left: 1em; margin-right: 1em;\"><p>%3</p></div>")
      .arg(title, titleSuffix, text);
}

} // namespace kelQt
