#pragma once

#include <QCoreApplication>
#include <QString>

#include <vector>

namespace kelvor
{

/**
 * @brief The map themes the globe offers: those of Marble's installed data that draw without
 * a download. Atlas and Plain draw coasts, borders and waters as vectors, so they stay sharp
 * when the globe is zoomed to a scenario a few kilometres across; Blue Marble's imagery blurs
 * into large pixels there.
 */
class MapThemes
{
  Q_DECLARE_TR_FUNCTIONS(MapThemes)
public:
  struct Theme
  {
    QString id;   ///< Marble's theme id, as "earth/plain/plain.dgml"
    QString name; ///< the name the View menu shows
  };

  /// The setting of KELVOR Lite that keeps the user's choice.
  static const char* const SETTING;

  /// @return the offered themes whose files are installed: Atlas, Plain, Blue Marble.
  static std::vector<Theme> installed();
  /**
   * @param saved the theme id the user chose before, empty for none
   * @return saved when it is installed, else Plain, whose vectors stay sharpest at a
   * scenario's scale, else the first installed theme; empty when none is
   */
  static QString choose(const QString& saved);
};

} // namespace kelvor
