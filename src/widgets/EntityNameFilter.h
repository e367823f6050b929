#pragma once

#include "widgets/EntityFilter.h"

#include <QModelIndex>
#include <QRegExp>

#include <memory>

namespace kelQt
{

class AbstractEntityTreeModel;
class EntityFilterLineEdit;
class RegExpImpl;

/**
 * Shows the entities whose names match a search pattern, and the hosts of such entities. A
 * pattern that is not valid leaves the last valid one in force.
 */
class EntityNameFilter : public EntityFilter
{
  Q_OBJECT
public:
  /// @param model the entities whose names are searched; not owned
  explicit EntityNameFilter(AbstractEntityTreeModel* model, QObject* parent = nullptr);
  ~EntityNameFilter() override;

  /// Follows the pattern of lineEdit from now on, and shows the present one in it. Not owned.
  void bindToWidget(EntityFilterLineEdit* lineEdit);

  /// Uses a new pattern; one that is not valid is ignored. Announces the change.
  void setRegExp(const QString& pattern, Qt::CaseSensitivity caseSensitivity, QRegExp::PatternSyntax syntax);

  bool acceptEntity(unsigned long id) const override;
  /// The name filter is edited in the tree's own search line, not in the filter dialog.
  QWidget* widget(QWidget*) const override { return nullptr; }
  void getFilterSettings(QMap<QString, QVariant>& settings) const override;
  void setFilterSettings(const QMap<QString, QVariant>& settings) override;

  /// Keys of the filter's settings.
  static const QString TEXT_KEY;
  static const QString CASE_KEY;
  static const QString SYNTAX_KEY;

private:
  bool acceptIndex_(const QModelIndex& index) const;

  AbstractEntityTreeModel* model_;
  EntityFilterLineEdit* lineEdit_ = nullptr;
  std::unique_ptr<RegExpImpl> regExp_;
};

} // namespace kelQt
