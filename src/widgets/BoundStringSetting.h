#pragma once

#include "widgets/BoundSetting.h"

class QLineEdit;

namespace kelQt { class FileSelectorWidget; }

namespace kelQt
{

/// A QString setting bound to widgets in both directions.
class BoundStringSetting : public BoundSettingT<QString>
{
  Q_OBJECT
public:
  /// @param parent owner @param settings the store @param variableName the name in the store
  BoundStringSetting(QObject* parent, Settings& settings, const QString& variableName);
  /// As above, writing metaData to the store; an absent value takes its default.
  BoundStringSetting(QObject* parent, Settings& settings, const QString& variableName, const Settings::MetaData& metaData);

  /// Binds a line edit: what the user types is written as it is typed.
  void bindTo(QLineEdit* lineEdit, bool populateToolTip = true);
  /// Binds a file selector.
  void bindTo(FileSelectorWidget* selector, bool populateToolTip = true);

public slots:
  /// Caches value, writes it to the store and emits valueChanged, unless it is the value already.
  void setValue(const QString& value);

signals:
  /// The value changed, by setValue or in the store.
  void valueChanged(const QString& value);

protected:
  void updateValue_(const QVariant& value) override;
};

} // namespace kelQt
