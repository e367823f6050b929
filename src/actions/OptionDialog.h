#pragma once

#include <QDialog>

#include <map>

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;

namespace QtSep
{

/// Asks for the name of a new entity and, for kinds with variants, which variant.
class OptionDialog : public QDialog
{
  Q_OBJECT
public:
  /// @param title the window title; "Option Dialog" when empty
  explicit OptionDialog(const QString& title, QWidget* parent = nullptr);

  /// Proposes base, "_" and the number of entities in the scenario, all selected.
  void setName(const QString& base);
  /// Shows the option row with label and the choices in key order, each with its number as data.
  void setOptions(const QString& label, const std::map<QString, int>& options);
  QString getName() const;
  /// @return the number of the chosen option
  int getOptionNumber() const;
  /// @return the text of the chosen option
  QString getOptionString() const;

private:
  void updateEnables_();

  QLineEdit* nameLineEdit_;
  QLabel* optionLabel_;
  QComboBox* optionComboBox_;
  QDialogButtonBox* buttonBox_;
};

} // namespace QtSep
