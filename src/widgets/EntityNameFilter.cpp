#include "widgets/EntityNameFilter.h"

#include "widgets/AbstractEntityTreeModel.h"
#include "widgets/EntityFilterLineEdit.h"
#include "widgets/RegExpFilterFactoryImpl.h"

namespace kelQt
{

const QString EntityNameFilter::TEXT_KEY = "EntityNameFilterText";
const QString EntityNameFilter::CASE_KEY = "EntityNameFilterCaseSensitive";
const QString EntityNameFilter::SYNTAX_KEY = "EntityNameFilterSyntax";

EntityNameFilter::EntityNameFilter(AbstractEntityTreeModel* model, QObject* parent)
  : EntityFilter(parent),
    model_(model),
    regExp_(RegExpFilterFactoryImpl::createRegExpFilter(QString(), Qt::CaseInsensitive, QRegExp::RegExp))
{
}

EntityNameFilter::~EntityNameFilter() = default;

void EntityNameFilter::bindToWidget(EntityFilterLineEdit* lineEdit)
{
  lineEdit_ = lineEdit;
  lineEdit_->setCaseSensitivity(regExp_->caseSensitivity());
  lineEdit_->setPatternSyntax(regExp_->patternSyntax());
  lineEdit_->setText(regExp_->pattern());
  connect(lineEdit_, &EntityFilterLineEdit::changed, this, &EntityNameFilter::setRegExp);
}

void EntityNameFilter::setRegExp(const QString& pattern, Qt::CaseSensitivity caseSensitivity,
  QRegExp::PatternSyntax syntax)
{
  std::unique_ptr<RegExpImpl> next(RegExpFilterFactoryImpl::createRegExpFilter(pattern, caseSensitivity, syntax));
  if (!next->isValid())
    return;
  regExp_ = std::move(next);
  emit filterUpdated();
}

bool EntityNameFilter::acceptEntity(unsigned long id) const
{
  return acceptIndex_(model_->indexOf(id));
}

bool EntityNameFilter::acceptIndex_(const QModelIndex& index) const
{
  if (!index.isValid())
    return false;
  if (regExp_->match(index.data(Qt::DisplayRole).toString()))
    return true;
  const int children = model_->rowCount(index);
  for (int row = 0; row < children; ++row)
  {
    if (acceptIndex_(model_->index(row, 0, index)))
      return true;
  }
  return false;
}

void EntityNameFilter::getFilterSettings(QMap<QString, QVariant>& settings) const
{
  settings[TEXT_KEY] = regExp_->pattern();
  settings[CASE_KEY] = regExp_->caseSensitivity() == Qt::CaseSensitive;
  settings[SYNTAX_KEY] = int(regExp_->patternSyntax());
}

void EntityNameFilter::setFilterSettings(const QMap<QString, QVariant>& settings)
{
  if (!settings.contains(TEXT_KEY))
    return;
  const Qt::CaseSensitivity caseSensitivity = settings.value(CASE_KEY).toBool() ? Qt::CaseSensitive : Qt::CaseInsensitive;
  const auto syntax = static_cast<QRegExp::PatternSyntax>(settings.value(SYNTAX_KEY, int(QRegExp::RegExp)).toInt());
  if (lineEdit_)
  {
    // The line edit reports each change back through setRegExp.
    lineEdit_->setCaseSensitivity(caseSensitivity);
    lineEdit_->setPatternSyntax(syntax);
    lineEdit_->setText(settings.value(TEXT_KEY).toString());
    return;
  }
  setRegExp(settings.value(TEXT_KEY).toString(), caseSensitivity, syntax);
}

} // namespace kelQt
