#pragma once

#include <QItemDelegate>

namespace QtSep
{

/**
 * @brief An item delegate that passes an edit on only when the text changed. Opening a cell
 * and leaving it unchanged would otherwise parse the formatted text again, lose precision and
 * mark the cell as edited.
 */
class AvoidNoopEditsDelegate : public QItemDelegate
{
  Q_OBJECT
public:
  explicit AvoidNoopEditsDelegate(QObject* parent = nullptr);

  /// The base class's editor, which remembers the text shown as "origVal".
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  /// Writes to the model only when the editor's value differs from "origVal".
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
};

} // namespace QtSep
