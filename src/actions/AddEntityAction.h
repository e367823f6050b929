#pragma once

#include "host/UniqueID.h"
#include "plugin/Action.h"

class QAction;
class QWidget;

namespace QtSep
{

class OptionDialog;

/**
 * The "Add Entity" sub-menu: a new entity of any kind under the right-clicked host, named by the
 * user and given first data so that it shows at once.
 */
class AddEntityAction : public Action
{
  Q_OBJECT
public:
  /// @param parent parent of the name dialogs
  explicit AddEntityAction(QWidget* parent);
  ~AddEntityAction() override;

  int weight() const override { return WEIGHT; }
  /// Not offered in the host's menus.
  void menuRequested(PIKELVOR::WhatWasClicked, const std::vector<EntityInfo>&, void*) override {}
  /// Offers the kinds the one selected entity can host.
  void menuRequested(const std::vector<EntityInfo>& entities, std::vector<MenuInfo*>& items) override;

  /// Names of the custom rendering shapes, by option number.
  enum Shape
  {
    VARIOUS_SHAPES = 0,
    CUSTOM_ELLIPSE,
    CUSTOM_RECTANGLE,
    CUSTOM_ELLIPSOID,
    CUSTOM_ELLIPSE_RELATIVE,
    CUSTOM_LINE,
    CUSTOM_LINE_ABSOLUTE,
    CUSTOM_LINE_TARGET
  };
  /// Name of the data table a new custom rendering gets.
  static const char* const RENDERING_TABLE;

  static const int WEIGHT = 260;

signals:
  /// An entity was made, 0 when making it failed.
  void entityAdded(UniqueID_t id);

private slots:
  void addPlatform_();
  void addBeam_();
  void addGate_();
  void addLaser_();
  void addLob_();
  void addProjector_();
  void addCustomRendering_();

private:
  QAction* makeAction_(const char* text, void (AddEntityAction::*slot)());
  /// Runs the name dialog. @param dialog filled in by the caller @return false when not accepted or nothing is selected
  bool ask_(OptionDialog& dialog) const;
  void added_(UniqueID_t id);
  UniqueID_t host_() const;
  static bool isTargetBeam_(UniqueID_t id);

  QWidget* parent_;
  QAction* platform_;
  QAction* beam_;
  QAction* gate_;
  QAction* laser_;
  QAction* lob_;
  QAction* projector_;
  QAction* customRendering_;
  std::vector<EntityInfo> entities_;
};

} // namespace QtSep
