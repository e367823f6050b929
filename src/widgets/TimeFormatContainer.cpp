#include "widgets/TimeFormatContainer.h"

#include "widgets/FormatTooltip.h"
#include "widgets/SegmentedSpinBox.h"
#include "widgets/SegmentedTexts.h"

#include <QHBoxLayout>

namespace kelQt
{

TimeFormatContainer::TimeFormatContainer(std::unique_ptr<SegmentedTexts> texts, const QString& title,
                                         const QString& description, QWidget* parent)
  : QWidget(parent),
    spinBox_(new SegmentedSpinBox(std::move(texts), this)),
    toolTipText_(
        formatTooltip(title, description + tr(" The arrow keys and the mouse wheel step the field under the cursor; "
                                              "right-click to choose another format.")))
{
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(spinBox_);
  setFocusProxy(spinBox_);
  spinBox_->setToolTip(toolTipText_);
  connect(spinBox_, &SegmentedSpinBox::timeEdited, this, &TimeFormatContainer::timeEdited);
  connect(spinBox_, &SegmentedSpinBox::timeChanged, this, &TimeFormatContainer::timeChanged);
}

TimeFormatContainer::~TimeFormatContainer() = default;

kelCore::TimeFormat TimeFormatContainer::timeFormat() const { return spinBox_->texts().format(); }

kelCore::TimeStamp TimeFormatContainer::timeStamp() const { return spinBox_->timeStamp(); }

void TimeFormatContainer::setTimeStamp(const kelCore::TimeStamp& stamp) { spinBox_->setTimeStamp(stamp); }

void TimeFormatContainer::setTimeRange(int referenceYear, const kelCore::TimeStamp& start,
                                       const kelCore::TimeStamp& end)
{
  spinBox_->setTimeRange(referenceYear, start, end);
}

void TimeFormatContainer::getEnforceLimits(bool& low, bool& high) const { spinBox_->getEnforceLimits(low, high); }

void TimeFormatContainer::setEnforceLimits(bool low, bool high) { spinBox_->setEnforceLimits(low, high); }

bool TimeFormatContainer::colorCode() const { return spinBox_->colorCode(); }

void TimeFormatContainer::setColorCode(bool on) { spinBox_->setColorCode(on); }

TimeZone TimeFormatContainer::timeZone() const { return spinBox_->timeZone(); }

void TimeFormatContainer::setTimeZone(TimeZone zone) { spinBox_->setTimeZone(zone); }

int TimeFormatContainer::precision() const { return spinBox_->precision(); }

void TimeFormatContainer::setPrecision(int digits) { spinBox_->setPrecision(digits); }

void TimeFormatContainer::disableToolTip() { spinBox_->setToolTip(QString()); }

} // namespace kelQt
