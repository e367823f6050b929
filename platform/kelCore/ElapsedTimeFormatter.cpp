#include "kelCore/ElapsedTimeFormatter.h"

#include "kelCore/TextScanner.h"
#include "kelCore/TimeTextParts.h"

namespace kelCore
{

namespace
{

int fieldCount(TimeFormat format)
{
  return format == TimeFormat::HOURS ? 3 : (format == TimeFormat::MINUTES ? 2 : 1);
}

// "S.s", "M:SS.s" or "H:MM:SS.s" without its sign, as seconds.
bool readSpan(TextScanner& in, int fields, double& total)
{
  if (fields == 1)
    return in.decimal(total);
  long long lead = 0;
  if (!in.digits(1, 18, lead) || !in.literal(':'))
    return false;
  int minute = 0;
  if (fields == 3 && (!in.digits(1, 2, minute) || minute > 59 || !in.literal(':')))
    return false;
  double second = 0.0;
  if (!in.seconds(second))
    return false;
  total = fields == 3 ? lead * 3600.0 + minute * 60.0 + second : lead * 60.0 + second;
  return true;
}

} // namespace

std::string ElapsedTimeFormatter::toString(const TimeStamp& stamp, int referenceYear, unsigned short precision) const
{
  return elapsedText(stamp.secondsSinceRefYear(referenceYear).Double(), fieldCount(format_), precision);
}

int ElapsedTimeFormatter::fromString(const std::string& text, TimeStamp& stamp, int referenceYear) const
{
  TextScanner in(text);
  const bool negative = in.literal('-');
  double total = 0.0;
  if (!readSpan(in, fieldCount(format_), total) || !in.atEnd())
    return 1;
  stamp = TimeStamp(referenceYear, negative ? -total : total);
  return 0;
}

} // namespace kelCore
