#pragma once

#include "plugin/TabWidget.h"

#include <QModelIndex>
#include <QPointer>

#include <memory>
#include <vector>

class Ui_PointEditorWidget;
class QItemSelection;

namespace kelCore
{
class UnitContextAdapter;
class UnitContextFormatter;
}
namespace kelQt
{
class EntityTreeComposite;
}

namespace QtSep
{

class DataSource;
class EntityDataModel;
class KeySortFilter;

/**
 * @brief The "Point Editor" tab: the data of the entity selected in the tree, in a sortable
 * table, edited in a scratch copy and applied to the scenario on Apply.
 *
 * The type chooser picks what is edited (points, category data, generic data, data tables);
 * each type has its own data source, made when the type is chosen. Unsaved edits are guarded
 * by questions when the type or the entity changes; a refresh of the entity from elsewhere, or
 * leaving the tab, drops them silently. The tab's units are read from the settings the units
 * dialog writes.
 */
class PointEditorWidget : public TabWidget
{
  Q_OBJECT
public:
  /// What the type chooser offers, in its order.
  enum EditType
  {
    POINT_DATA = 0,
    CATEGORY_DATA = 1,
    GENERIC_DATA = 2,
    DATA_TABLES = 3
  };

  /// @param tree the editor window's entity tree, whose selection is edited; it outlives the tab
  explicit PointEditorWidget(kelQt::EntityTreeComposite& tree, QWidget* parent = nullptr);
  ~PointEditorWidget() override;

  /// @return the edited entity, 0 for none
  unsigned long uniqueId() const;
  bool dirty() const override;
  int handleMouseEvent(PIGUI::PIMouseEventType_t type, const PIGUI::PIMouseEvent& event) override;
  void setTabActive(bool active) override;
  /// @param year the reference year times are shown in
  void setReferenceYear(int year);
  void listenToEvents(PIApplicationEvents_t event, void* data) override;
  void applyUnitsChange() override;

  /// The table's model, for the window's and the tests' sake.
  EntityDataModel& model() const { return *model_; }
  const Ui_PointEditorWidget& ui() const { return *ui_; }
  int editType() const { return editType_; }

public slots:
  /// Reads the edited entity anew, dropping unsaved edits; nothing while an Apply announces itself.
  void resetModel();

private slots:
  void setEditType_(int type);
  void setEntity_(const QList<unsigned long>& ids);
  void updateEnables_();
  void applyModel_();
  void addRow_();
  void deleteRows_();
  void findAtCurrentTime_();
  void updateView_(const QModelIndex& parent, int start, int end, const QModelIndex& destination, int row);
  void setSelectedTimes_(const std::vector<double>& times);
  void displayRightClickMenu_(const QPoint& pos);
  void revertField_();
  void revertLine_();
  void setScenarioTimeToRowTime_();

private:
  /// @return a new source of the type, connected to the tab
  std::unique_ptr<DataSource> makeSource_(int type);
  /// Takes the old source's controls out of the tab; the source keeps them.
  void clearCustomWidget_();
  /// @return whether a cell of the row other than index's column is edited
  bool isLineDirty_(const QModelIndex& index) const;
  /// Merges runs of consecutive rows into one range each.
  static QItemSelection convertIndexesToSelections_(const std::vector<std::pair<QModelIndex, QModelIndex>>& indexes);
  void connectTree_(bool on);
  void resizeColumns_();

  kelQt::EntityTreeComposite& tree_;
  std::unique_ptr<Ui_PointEditorWidget> ui_;
  std::unique_ptr<kelCore::UnitContextAdapter> units_;
  std::unique_ptr<kelCore::UnitContextFormatter> formatter_;
  std::unique_ptr<DataSource> source_;
  EntityDataModel* model_;
  KeySortFilter* filter_;
  bool tabActive_ = false;
  int editType_ = -1;
  QPersistentModelIndex rightClicked_;
  bool suppressReset_ = false;
};

} // namespace QtSep
