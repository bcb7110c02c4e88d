#pragma once
// The format texts of the program ("£###,##0.00", "00.0%", "dd/mm/yyyy", "yyyy mmm dd", ...),
// read the way the classic BASIC Format function reads them.
//
// Numbers: "0" a required digit, "#" an optional digit, "." the decimal point, "," between
// digit placeholders turns on grouping by three, "%" multiplies by 100 and is written; a
// character after "\" and text in double quotes are written as they stand, as is any other
// character. A negative value is written with "-" before everything else ("-£1,234.50").
// Rounding to the format's decimals is half away from zero; a value that rounds to zero has
// no minus sign. An empty format writes the plain number.
//
// Dates: d dd ddd dddd, m mm mmm mmmm (English names), y (day of the year) yy yyyy, h hh,
// n nn, s ss, in any case; m or mm after an hour means minutes. Other characters are written
// as they stand.
#include "app/Date.h"
#include "app/Money.h"

#include <QString>
#include <cstdint>

// Exact: works on the ten-thousandths, never through a double.
QString formatMoney(Money value, const QString& format);
// Rounds on the value's 15-significant-digit decimal form, so 2.675 with "0.00" is "2.68".
// A value that is not finite gives "".
QString formatNumber(double value, const QString& format);
// "" for a null date.
QString formatDate(const Date& date, const QString& format);
QString formatDateTime(const DateTime& value, const QString& format);
// formatMoney(value, "£###,##0.00").
QString formatPounds(Money value);

// Reads "dd/mm/yyyy" (one or two digits for day and month), "yyyy mmm dd" (English month
// name, short or full, any case) and ISO "yyyy-mm-dd" (a time after it is ignored), with
// blanks around allowed; any other text, or a day that does not exist, gives a null date.
Date parseDateText(const QString& text);
