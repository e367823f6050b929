#pragma once

namespace UTILS
{

/// The layouts of time text that the parser recognises; getTimeMatchString names each.
enum TimeFormatMatch_t : int
{
  MATCH_JDAY_12HOUR_YEAR = 0,           ///< "JJJ HH:MM:SS [AM|PM] yyyy"
  MATCH_ISO_DATE_TIME,                  ///< "YYYY-MON-DAY HH:MM:SS.sss"
  MATCH_SECONDS,                        ///< "SS.sss"
  MATCH_MINUTES_SECONDS,                ///< "MM:SS.sss"
  MATCH_HOURS_MINUTES_SECONDS,          ///< "HH:MM:SS.sss"
  MATCH_JDAY_YEAR_TIME,                 ///< "JJJ yyyy HH:MM:SS.sss"
  MATCH_MONTH_DAY_YEAR_TIME,            ///< "MNT MD yyyy HH:MM:SS.sss"
  MATCH_DAY_MONTH_YEAR_TIME,            ///< "MD MNT yyyy HH:MM:SS.sss"
  MATCH_JDAY_TIME_YEAR,                 ///< "JJJ HH:MM:SS.sss yyyy"
  MATCH_MONTH_DAY_TIME_YEAR,            ///< "MNT MD HH:MM:SS.sss yyyy"
  MATCH_JDAY_TIME,                      ///< "JJJ HH:MM:SS.sss"
  MATCH_WEEKDAY_MONTH_DAY_TIME_YEAR,    ///< "WKD MNT MD HH:MM:SS.sss yyyy"
  MATCH_WEEKDAY_MONTH_DAY_TIME,         ///< "WKD MNT MD HH:MM:SS.sss"
  MATCH_NEGATIVE_SECONDS,               ///< "-SS.sss"
  MATCH_DATE_TIME_GROUP,                ///< "MDHHMM:SS.sss Z MNTYY"
  MATCH_ZULU_WITH_COLON,                ///< "HH:MMz MDMNTYYYY"
  MATCH_ZULU,                           ///< "HHMMz MDMNTYYYY"
  MATCH_DAY_MONTH,                      ///< "MD-MNT"
  MATCH_NONE                            ///< "NO MATCH"
};

} // namespace UTILS
