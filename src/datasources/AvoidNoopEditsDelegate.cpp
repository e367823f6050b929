#include "datasources/AvoidNoopEditsDelegate.h"

#include <QMetaProperty>
#include <QWidget>

namespace QtSep
{

namespace
{

const char* const ORIGINAL_VALUE = "origVal";

} // namespace

AvoidNoopEditsDelegate::AvoidNoopEditsDelegate(QObject* parent) : QItemDelegate(parent) {}

QWidget* AvoidNoopEditsDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                              const QModelIndex& index) const
{
  QWidget* editor = QItemDelegate::createEditor(parent, option, index);
  if (editor)
    editor->setProperty(ORIGINAL_VALUE, index.data(Qt::DisplayRole));
  return editor;
}

void AvoidNoopEditsDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
  const QVariant original = editor->property(ORIGINAL_VALUE);
  const QMetaProperty user = editor->metaObject()->userProperty();
  const QVariant now = user.isValid() ? user.read(editor) : QVariant();
  if (now != original)
    QItemDelegate::setModelData(editor, model, index);
}

} // namespace QtSep
