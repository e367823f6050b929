#include "validation/ValidateScenarioWidget.h"

#include "validation/ValidateScenario.h"
#include "widgets/FormatTooltip.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace QtSep
{

ValidateScenarioWidget::ValidateScenarioWidget(QWidget* parent)
  : TabWidget(parent),
    validateButton_(new QPushButton("Validate")),
    fixAllButton_(new QPushButton("Fix All")),
    issuesTree_(new QTreeWidget)
{
  validateButton_->setObjectName("validatePushButton");
  validateButton_->setToolTip(kelQt::formatTooltip("Validate Scenario", "Check the in memory scenario for common errors."));
  fixAllButton_->setObjectName("fixAllPushButton");
  fixAllButton_->setToolTip(kelQt::formatTooltip(
    "Fix All Errors", "Automatically fix all fixable errors using the first solution listed for the error."));
  issuesTree_->setObjectName("issuesTreeWidget");
  issuesTree_->setRootIsDecorated(false);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(validateButton_);
  buttons->addWidget(fixAllButton_);
  buttons->addStretch(1);
  auto* column = new QVBoxLayout(this);
  column->addLayout(buttons);
  column->addWidget(issuesTree_);
  connect(validateButton_, &QPushButton::clicked, this, &ValidateScenarioWidget::validate);
  connect(fixAllButton_, &QPushButton::clicked, this, &ValidateScenarioWidget::fixAll_);
  updateEnable_();
}

ValidateScenarioWidget::~ValidateScenarioWidget() = default;

void ValidateScenarioWidget::validate()
{
  validator_ = std::make_unique<ValidateScenario>();
  changed_ = false;
  validator_->validate();
  std::vector<ValidateScenario::Issue*> issues;
  validator_->getIssues(issues);
  issuesTree_->clear();
  if (issues.empty())
  {
    columnCount_ = 0;
    issuesTree_->setColumnCount(1);
    issuesTree_->setHeaderLabels({"Description"});
    new QTreeWidgetItem(issuesTree_, {"No issues found."});
    updateEnable_();
    return;
  }
  std::size_t most = 0;
  for (const auto* issue : issues)
    most = std::max(most, issue->numberOfSolutions());
  columnCount_ = 1 + static_cast<int>(most);
  QStringList header{"Description"};
  for (int s = 1; s < columnCount_; ++s)
    header << QString("Solution %1").arg(s);
  issuesTree_->setColumnCount(columnCount_);
  issuesTree_->setHeaderLabels(header);
  issuesTree_->header()->setDefaultAlignment(Qt::AlignCenter);
  for (int i = 0; i < static_cast<int>(issues.size()); ++i)
  {
    auto* row = new QTreeWidgetItem(issuesTree_, {QString::fromStdString(issues[i]->description())});
    std::vector<ValidateScenario::Solution*> solutions;
    issues[i]->getSolutions(solutions);
    for (int s = 1; s <= static_cast<int>(solutions.size()); ++s)
    {
      auto* button = new QPushButton(QString::fromStdString(solutions[s - 1]->title()));
      button->setToolTip(QString::fromStdString(solutions[s - 1]->toolTip()));
      const int value = i * columnCount_ + s;
      connect(button, &QPushButton::clicked, this, [this, value] { applySoluton_(value); });
      issuesTree_->setItemWidget(row, s, button);
    }
  }
  for (int c = 0; c < columnCount_; ++c)
    issuesTree_->resizeColumnToContents(c);
  updateEnable_();
}

QSize ValidateScenarioWidget::sizeHint() const
{
  int columns = 0;
  for (int c = 0; c < issuesTree_->columnCount(); ++c)
    columns += issuesTree_->columnWidth(c);
  const QMargins margins = layout()->contentsMargins();
  const int frame = 2 * issuesTree_->frameWidth();
  // Room for a vertical scroll bar, so that a long list does not cover the last column.
  const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const QSize base = TabWidget::sizeHint();
  return {std::max(base.width(), columns + frame + scrollBar + margins.left() + margins.right()), base.height()};
}

QPushButton* ValidateScenarioWidget::button_(int row, int solution) const
{
  QTreeWidgetItem* item = issuesTree_->topLevelItem(row);
  return item ? qobject_cast<QPushButton*>(issuesTree_->itemWidget(item, solution)) : nullptr;
}

void ValidateScenarioWidget::disableRow_(int row)
{
  for (int s = 1; s < columnCount_; ++s)
  {
    if (QPushButton* button = button_(row, s))
      button->setEnabled(false);
  }
}

void ValidateScenarioWidget::applySoluton_(int value)
{
  if (columnCount_ == 0 || !validator_)
    return;
  const int row = value / columnCount_;
  const int index = value % columnCount_ - 1;
  std::vector<ValidateScenario::Issue*> issues;
  validator_->getIssues(issues);
  if (row < 0 || row >= static_cast<int>(issues.size()))
    return;
  std::vector<ValidateScenario::Solution*> solutions;
  issues[row]->getSolutions(solutions);
  if (index < 0 || index >= static_cast<int>(solutions.size()))
    return;
  if (solutions[index]->apply() == 0)
  {
    changed_ = true;
    disableRow_(row);
  }
  else if (QPushButton* button = button_(row, index + 1))
    button->setEnabled(false);
  updateEnable_();
}

void ValidateScenarioWidget::fixAll_()
{
  if (!validator_)
    return;
  validator_->fixAll([this](std::size_t issue, std::size_t solution, bool applied) {
    const int row = static_cast<int>(issue);
    if (applied)
    {
      changed_ = true;
      disableRow_(row);
    }
    else if (QPushButton* button = button_(row, static_cast<int>(solution) + 1))
      button->setEnabled(false);
  });
  updateEnable_();
}

void ValidateScenarioWidget::updateEnable_()
{
  if (!validator_)
  {
    fixAllButton_->setEnabled(false);
    validateButton_->setEnabled(true);
    return;
  }
  fixAllButton_->setEnabled(validator_->anySolutionsAvaiable());
  validateButton_->setEnabled(changed_);
}

} // namespace QtSep
