#pragma once

#include <QList>
#include <QObject>
#include <QString>

namespace kelQt
{
class EntityTreeComposite;
}

namespace PluginUtils
{

/**
 * Points the host's camera at what the user asks to centre on in an entity tree, and keeps the
 * tree's "Center On Selection" entry enabled only when the selection can be centred on: an
 * entity that is drawn and alive at the time the views show.
 */
class QtCenterEntity : public QObject
{
  Q_OBJECT
public:
  /// @param composite the tree whose requests are served; not owned, it outlives this object
  QtCenterEntity(kelQt::EntityTreeComposite& composite, QObject* parent = nullptr);

  /// @return the reason the selection cannot be centred on; empty when it can
  QString centerRefusal(const QList<unsigned long>& ids) const;

private:
  void centerOnEntity_(unsigned long id);
  void centerOnSelection_(const QList<unsigned long>& ids);
  void updateCenterEnable_();
  /**
   * @param start out: the entity's first time, seconds since the reference year
   * @param end out: its last time @return true when drawn and alive at the visible clock time
   */
  bool isActive_(unsigned long id, double& start, double& end) const;
  bool isDrawn_(unsigned long id) const;

  kelQt::EntityTreeComposite& composite_;
};

} // namespace PluginUtils
