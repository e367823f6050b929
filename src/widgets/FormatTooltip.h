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

/**
 * Names a new form control and gives it its tool tip, for forms built in code.
 * @param name the object name tests and style sheets find it by @param toolTip empty for none
 * @return the control
 */
template <typename Widget>
Widget* namedWithTooltip(Widget* widget, const char* name, const QString& toolTip = QString())
{
  widget->setObjectName(name);
  if (!toolTip.isEmpty())
    widget->setToolTip(toolTip);
  return widget;
}

} // namespace kelQt
