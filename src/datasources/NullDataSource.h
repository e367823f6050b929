#pragma once

#include "datasources/DataSource.h"

namespace QtSep
{

/// The source that stands in when there is nothing to edit: no rows, no columns, always valid and never dirty.
class NullDataSource : public DataSource
{
public:
  void setUniqueId(unsigned long, bool) override {}
  unsigned long uniqueId() const override { return 0; }
  int rowCount() const override { return 0; }
  int columnCount() const override { return 0; }
  double time(int) const override { return 0.0; }
  QVariant data(int, int, Role) const override { return QVariant(); }
  std::string columnName(int) const override { return std::string(); }
  bool isValid() const override { return true; }
  bool canDeleteRow() const override { return false; }
  bool isDirty() const override { return false; }
  bool isDirty(int, int) const override { return false; }
  void commitChanges(bool) override {}
  void deleteRows(const std::vector<int>&) override {}
  int setData(int, int, const QVariant&) override { return 1; }
  int revert(int, int) override { return 1; }
  bool isColumnEditable(int) const override { return false; }
  int moveRow(int, int) override { return 1; }
  int getCopyDestination(int) const override { return 0; }
  void copyRow(int, int) override {}
  bool isAddedRow(int) const override { return false; }
  QWidget* widget() override { return nullptr; }
  bool handleMouseEvent(PIGUI::PIMouseEventType_t, const PIGUI::PIMouseEvent&) override { return false; }
  void applyUnitsChange() override {}
};

} // namespace QtSep
