#pragma once

#include "widgets/BoundSetting.h"

class QAbstractButton;
class QAction;

namespace kelQt
{

/// A bool setting bound to widgets in both directions.
class BoundBooleanSetting : public BoundSettingT<bool>
{
  Q_OBJECT
public:
  /// @param parent owner @param settings the store @param variableName the name in the store
  BoundBooleanSetting(QObject* parent, Settings& settings, const QString& variableName);
  /// As above, writing metaData to the store; an absent value takes its default.
  BoundBooleanSetting(QObject* parent, Settings& settings, const QString& variableName, const Settings::MetaData& metaData);

  /// Binds a check box or button: checked state and value follow each other.
  void bindTo(QAbstractButton* button, bool populateToolTip = true);
  /// Binds a checkable action; populateToolTip gives it the metadata's tool tip.
  void bindTo(QAction* action, bool populateToolTip = true);

public slots:
  /// Caches value, writes it to the store and emits valueChanged, unless it is the value already.
  void setValue(bool value);

signals:
  /// The value changed, by setValue or in the store.
  void valueChanged(bool value);

protected:
  void updateValue_(const QVariant& value) override;
};

} // namespace kelQt
