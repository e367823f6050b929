#pragma once

#include <QAbstractItemView>
#include <QList>
#include <QMap>
#include <QMetaType>
#include <QVariant>
#include <QWidget>

#include <array>
#include <memory>
#include <vector>

class QAction;
class QDataStream;
class QMenu;
class QToolButton;
class QTreeView;

namespace Ui
{
class EntityTreeComposite;
}

namespace kelQt
{

class AbstractEntityTreeModel;
class EntityFilter;
class EntityNameFilter;
class EntityTreeWidget;
class FilterDialog;
class Settings;

/**
 * The widget in which the user sees and picks entities: a filterable, sortable tree with a
 * name search, a count of what is shown, a dialog of entity filters and four buttons that keep
 * filter configurations in settings.
 */
class EntityTreeComposite : public QWidget
{
  Q_OBJECT
public:
  /// A saved set of filter settings with the user's description of it.
  struct FilterConfiguration
  {
    QString description;
    QMap<QString, QVariant> configuration;
  };

  /// Number of filter configuration buttons.
  static const int NUM_FILTER_BUTTONS = 4;

  explicit EntityTreeComposite(QWidget* parent = nullptr);
  ~EntityTreeComposite() override;

  /// Shows the entities of model; set once. @param model not owned; it outlives the composite
  void setModel(AbstractEntityTreeModel* model);
  QTreeView* view() const;

  /// @return the selected entities, in the order of the view.
  QList<unsigned long> selectedItems() const;
  void setSelected(unsigned long id);
  /// Selects the entities in one change of the selection.
  void setSelected(const QList<unsigned long>& ids);
  void clearSelection();
  /// Scrolls the view so that the entity shows. @param hint where in the view it should stand
  void scrollTo(unsigned long id, QAbstractItemView::ScrollHint hint = QAbstractItemView::EnsureVisible);
  void setSelectionMode(QAbstractItemView::SelectionMode mode);
  QAbstractItemView::SelectionMode selectionMode() const;
  /// @param id an entity that shows whatever the filters say; 0 for none
  void setAlwaysShow(unsigned long id);
  unsigned long alwaysShow() const;

  /// Adds a filter to the tree and its editor to the filter dialog. Takes ownership.
  void addEntityFilter(EntityFilter* filter);
  /// Collects the settings of every filter, the name filter first. @param settings filled in
  void getFilterSettings(QMap<QString, QVariant>& settings) const;
  /// Hands the settings to every filter; each takes the keys it knows.
  void setFilterSettings(const QMap<QString, QVariant>& settings);

  /// Adds an action of the owner to the context menu. @param action not owned
  void addExternalAction(QAction* action);
  void removeExternalActions();
  /// Puts a widget of the owner in the row of the filter buttons. Takes ownership.
  void addButton(QWidget* button);

  void setShowCenterInMenu(bool show);
  /// @param show true to offer expanding, collapsing and the tree or list choice in the menu
  void setShowTreeOptionsInMenu(bool show);
  void setTreeViewActionEnabled(bool enabled);
  /// @param useTree true for entities under their hosts, false for a flat list
  void setTreeView(bool useTree);
  void setExpandsOnDoubleClick(bool expands);
  /// @param use whether centring is possible now @param reason why not, shown in the menu text; empty for none
  void setUseCenterAction(bool use, const QString& reason = QString());
  void setUseEntityIcons(bool useIcons);
  /// Margins around the composite, in pixels.
  void setMargins(int left, int top, int right, int bottom);

  /// Keeps the tree or list choice and the four filter configurations in settings, and shows
  /// the filter configuration buttons.
  void setSettings(std::shared_ptr<Settings> settings);
  /// Declares the settings the composite keeps, with their defaults.
  static void initializeSettings(Settings& settings);
  /// @param index 0 to 3 @return the settings name of a filter configuration button
  static QString filterConfigurationKey(int index);

  /// Stores the present filter settings under a button. @param index 0 to 3
  void saveFilterConfiguration(int index, const QString& description);
  /// Applies the filter settings stored under a button; nothing when none are stored.
  void loadFilterConfiguration(int index);
  /// Forgets the filter settings stored under a button.
  void clearFilterConfiguration(int index);

  /// Builds the context menu for the present selection and lets the owner add to it.
  /// @param parent the menu's parent @return the menu, owned by the caller
  QMenu* createContextMenu(QWidget* parent);

signals:
  void itemsSelected(const QList<unsigned long>& ids);
  void itemDoubleClicked(unsigned long id);
  void centerOnEntityRequested(unsigned long id);
  void centerOnSelectionRequested(const QList<unsigned long>& ids);
  void filterSettingsChanged(const QMap<QString, QVariant>& settings);
  /// The context menu is about to show; the owner may add to it.
  void rightClickMenuRequested(QMenu* menu);
  void treeViewChanged(bool useTree);

private:
  /// The load, save and clear actions of one filter configuration button.
  struct ButtonActions
  {
    QAction* load = nullptr;
    QAction* save = nullptr;
    QAction* clear = nullptr;
  };

  void initFilterButtons_();
  QToolButton* filterConfigButton_(int index) const;
  void saveFilterConfig_(int index);
  void loadFilterConfig_(int index);
  void showFilterConfiguration_(int index, const FilterConfiguration& configuration);
  FilterConfiguration storedConfiguration_(int index) const;
  void showFilterDialog_();
  void showContextMenu_(const QPoint& position);
  void copySelection_();
  void centerOnSelection_();
  void setNumFilteredItemsLabel_(int filtered, int total);
  void emitFilterSettings_();

  std::unique_ptr<Ui::EntityTreeComposite> ui_;
  // Goes before the view it controls, which it detaches from its proxy.
  std::unique_ptr<EntityTreeWidget> treeWidget_;
  AbstractEntityTreeModel* model_ = nullptr;
  EntityNameFilter* nameFilter_ = nullptr;
  std::vector<EntityFilter*> filters_;
  FilterDialog* filterDialog_ = nullptr;
  std::array<ButtonActions, NUM_FILTER_BUTTONS> buttonActions_;
  std::shared_ptr<Settings> settings_;
  QAction* centerAction_;
  QAction* toggleTreeViewAction_;
  QList<QAction*> externalActions_;
  bool showCenterInMenu_ = false;
  bool showTreeOptionsInMenu_ = false;
};

/// Writes a filter configuration for settings and the clipboard.
QDataStream& operator<<(QDataStream& out, const EntityTreeComposite::FilterConfiguration& configuration);
/// Reads what operator<< wrote.
QDataStream& operator>>(QDataStream& in, EntityTreeComposite::FilterConfiguration& configuration);

} // namespace kelQt

Q_DECLARE_METATYPE(kelQt::EntityTreeComposite::FilterConfiguration)
