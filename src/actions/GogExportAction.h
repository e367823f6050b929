#pragma once

#include "actions/GogExportDialog.h"
#include "plugin/CommandAction.h"

#include <cstdint>
#include <ostream>

namespace QtSep
{

/// "Export to GOG...": writes the selected platforms' tracks as overlay or plot sections to a file.
class GogExportAction : public CommandAction
{
  Q_OBJECT
public:
  /// @param parent parent of the dialog
  explicit GogExportAction(QWidget* parent);

  /// Asks for the options and writes the kept selection. @return 1
  int onCmdGogExport(PIObject* sender, void* data);

  /**
   * Writes one platform's track over the clock's span, a section per run of one colour.
   * @param number the platform's number in the file, after "linecolor color"
   * @param colour the default colour; black with no value means none
   * @param offset added to the x values of the x-y plots (seconds or yards)
   */
  static void exportToGog_(std::ostream& out, std::uint64_t id, int number, GogExportDialog::ExportType type,
                           GogExportDialog::LineStyle style, int width, const QColor& colour, double offset,
                           bool useTrackColor, bool useDepthBuffer);

  static const int WEIGHT = 235;

protected:
  /// Platforms only.
  bool accepts_(const std::vector<EntityInfo>& entities) const override;
  int run_() override;
};

} // namespace QtSep
