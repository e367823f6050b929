#pragma once

#include "datasources/DataSource.h"

#include <QObject>

#include <memory>

class QFrame;
class QHBoxLayout;

namespace kelCore
{
class UnitContext;
class UnitContextFormatter;
}

namespace QtSep
{

/**
 * @brief The source of whatever entity is edited: it holds the concrete source of the entity's
 * kind and makes a new one only when the kind changes, so that going from one beam to another
 * keeps the beam source and its controls. An entity of a kind without a source, or none, is
 * edited through a NullDataSource.
 */
class EntityDataSourceProxy : public QObject, public DataSource
{
  Q_OBJECT
public:
  /// @param formatter,context the tab's units, borrowed by every source made; they outlive the proxy
  EntityDataSourceProxy(const kelCore::UnitContextFormatter& formatter, const kelCore::UnitContext& context,
                        QObject* parent = nullptr);
  ~EntityDataSourceProxy() override;

  void setUniqueId(unsigned long id, bool load) override;
  unsigned long uniqueId() const override { return source_->uniqueId(); }
  int rowCount() const override { return source_->rowCount(); }
  int columnCount() const override { return source_->columnCount(); }
  double time(int row) const override { return source_->time(row); }
  QVariant data(int row, int column, Role role) const override { return source_->data(row, column, role); }
  std::string columnName(int column) const override { return source_->columnName(column); }
  bool isValid() const override { return source_->isValid(); }
  bool canDeleteRow() const override { return source_->canDeleteRow(); }
  bool isDirty() const override { return source_->isDirty(); }
  bool isDirty(int row, int column) const override { return source_->isDirty(row, column); }
  void commitChanges(bool refresh) override { source_->commitChanges(refresh); }
  void deleteRows(const std::vector<int>& rows) override { source_->deleteRows(rows); }
  int setData(int row, int column, const QVariant& value) override { return source_->setData(row, column, value); }
  int revert(int row, int column) override { return source_->revert(row, column); }
  bool isColumnEditable(int column) const override { return source_->isColumnEditable(column); }
  int moveRow(int from, int to) override { return source_->moveRow(from, to); }
  int getCopyDestination(int row) const override { return source_->getCopyDestination(row); }
  void copyRow(int row, int destination) override { source_->copyRow(row, destination); }
  bool isAddedRow(int row) const override { return source_->isAddedRow(row); }
  /// @return the frame that holds the current source's own controls; never null
  QWidget* widget() override;
  bool handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event) override
  {
    return source_->handleMouseEvent(type, event);
  }
  void applyUnitsChange() override { source_->applyUnitsChange(); }

  /// @return the concrete source of the current kind; never null
  DataSource& currentSource() const { return *source_; }

signals:
  /// A fence in the 3-D view picked these point times, ascending.
  void selectedTimes(std::vector<double> times);

private:
  /// Takes the current source's controls out of the frame; the source keeps owning them.
  void clearLayout_();
  /// @return a new source for entities of the kind of id
  std::unique_ptr<DataSource> makeSource_(unsigned long id);

  const kelCore::UnitContextFormatter& formatter_;
  const kelCore::UnitContext& context_;
  std::unique_ptr<DataSource> source_;
  QFrame* frame_;
  QHBoxLayout* layout_;
};

} // namespace QtSep
