#pragma once

#include "widgets/BoundSetting.h"

class QComboBox;
class QSlider;
class QSpinBox;

namespace kelQt
{

/// A int setting bound to widgets in both directions.
class BoundIntegerSetting : public BoundSettingT<int>
{
  Q_OBJECT
public:
  /// @param parent owner @param settings the store @param variableName the name in the store
  BoundIntegerSetting(QObject* parent, Settings& settings, const QString& variableName);
  /// As above, writing metaData to the store; an absent value takes its default.
  BoundIntegerSetting(QObject* parent, Settings& settings, const QString& variableName, const Settings::MetaData& metaData);

  /// Binds a spin box; populateLimits applies the metadata's least and greatest values.
  void bindTo(QSpinBox* spinBox, bool populateToolTip = true, bool populateLimits = true);
  /// Binds a slider; populateLimits applies the metadata's least and greatest values.
  void bindTo(QSlider* slider, bool populateToolTip = true, bool populateLimits = true);
  /// Fills a combo box with the metadata's enumeration and binds its current item's number.
  void bindTo(QComboBox* comboBox, bool populateToolTip = true);

private:
  void populateCombo_(QComboBox* comboBox) const;

public slots:
  /// Caches value, writes it to the store and emits valueChanged, unless it is the value already.
  void setValue(int value);

signals:
  /// The value changed, by setValue or in the store.
  void valueChanged(int value);

protected:
  void updateValue_(const QVariant& value) override;
};

} // namespace kelQt
