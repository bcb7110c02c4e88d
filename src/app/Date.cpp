#include "app/Date.h"

#include <QDate>
#include <QDateTime>
#include <cmath>

using namespace std::chrono;

namespace {

// 1899-12-30, day 0 of the host product's date serials.
const sys_days SerialEpoch = sys_days(year{1899} / December / 30);

// Exactly `len` ASCII digits: no sign, no blank.
bool parseInts(const QString& text, int from, int len, int* out) {
    if (from + len > text.size())
        return false;
    int value = 0;
    for (int i = from; i < from + len; ++i) {
        const QChar c = text[i];
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
        value = value * 10 + (c.unicode() - '0');
    }
    *out = value;
    return true;
}

} // namespace

Date::Date(int y, unsigned m, unsigned d)
    : ymd_(std::chrono::year{y} / std::chrono::month{m} / std::chrono::day{d}) {
    // year keeps 16 bits, month and day a byte: month 257 would otherwise pass as January.
    valid_ = y >= -32767 && y <= 32767 && m <= 12 && d <= 31 && ymd_.ok();
}

Date::Date(year_month_day ymd)
    : ymd_(ymd)
    , valid_(ymd.ok()) {}

Date Date::fromQDate(const QDate& d) {
    return d.isValid() ? Date(d.year(), d.month(), d.day()) : Date();
}

Date Date::fromIso(const QString& text) {
    if (text.size() < 10 || text[4] != QLatin1Char('-') || text[7] != QLatin1Char('-'))
        return Date();
    int y = 0, m = 0, d = 0;
    if (!parseInts(text, 0, 4, &y) || !parseInts(text, 5, 2, &m) || !parseInts(text, 8, 2, &d))
        return Date();
    if (text.size() > 10 && text[10] != QLatin1Char(' ') && text[10] != QLatin1Char('T'))
        return Date();
    return Date(y, unsigned(m), unsigned(d));
}

Date Date::fromSerial(long long days) {
    return Date(year_month_day(SerialEpoch + sys_days::duration(days)));
}

Date Date::today() {
    return fromQDate(QDate::currentDate());
}

QString Date::toIso() const {
    if (!valid_)
        return QString();
    return QStringLiteral("%1-%2-%3")
        .arg(year(), 4, 10, QLatin1Char('0'))
        .arg(month(), 2, 10, QLatin1Char('0'))
        .arg(day(), 2, 10, QLatin1Char('0'));
}

QDate Date::toQDate() const {
    return valid_ ? QDate(year(), int(month()), int(day())) : QDate();
}

long long Date::serial() const {
    return (sys_days(ymd_) - SerialEpoch).count();
}

Date Date::addDays(long long days) const {
    if (!valid_)
        return Date();
    return Date(year_month_day(sys_days(ymd_) + sys_days::duration(days)));
}

Date Date::addMonths(int months) const {
    if (!valid_)
        return Date();
    year_month_day moved = ymd_ + std::chrono::months(months);
    if (!moved.ok())
        moved = moved.year() / moved.month() / std::chrono::last;
    return Date(moved);
}

std::strong_ordering Date::operator<=>(const Date& o) const {
    if (valid_ != o.valid_)
        return valid_ ? std::strong_ordering::greater : std::strong_ordering::less;
    if (!valid_)
        return std::strong_ordering::equal;
    return sys_days(ymd_) <=> sys_days(o.ymd_);
}

DateTime::DateTime(Date date, int hour, int minute, int second)
    : date_(date)
    , seconds_(date.isValid() ? hour * 3600 + minute * 60 + second : 0) {}

DateTime DateTime::fromQDateTime(const QDateTime& dt) {
    if (!dt.isValid())
        return DateTime();
    const QTime t = dt.time();
    return DateTime(Date::fromQDate(dt.date()), t.hour(), t.minute(), t.second());
}

DateTime DateTime::fromIso(const QString& text) {
    const Date d = Date::fromIso(text);
    if (!d.isValid())
        return DateTime();
    if (text.size() == 10)
        return DateTime(d);
    int h = 0, m = 0, s = 0;
    if (text.size() < 16 || !parseInts(text, 11, 2, &h) || text[13] != QLatin1Char(':') ||
        !parseInts(text, 14, 2, &m))
        return DateTime();
    // Seconds are optional; fractions of a second after them are ignored.
    if (text.size() > 16 &&
        (text.size() < 19 || text[16] != QLatin1Char(':') || !parseInts(text, 17, 2, &s) ||
         (text.size() > 19 && text[19] != QLatin1Char('.'))))
        return DateTime();
    if (h > 23 || m > 59 || s > 59)
        return DateTime();
    return DateTime(d, h, m, s);
}

DateTime DateTime::fromSerial(double days) {
    // The host product stores the time as the fraction's absolute value, also before 1899-12-30.
    const double whole = std::trunc(days);
    const double frac = std::fabs(days - whole);
    long long seconds = std::llround(frac * 86400.0);
    long long dayNumber = static_cast<long long>(whole);
    if (seconds >= 86400) {
        seconds -= 86400;
        dayNumber += days < 0 ? -1 : 1;
    }
    return DateTime(Date::fromSerial(dayNumber), int(seconds / 3600), int(seconds / 60 % 60),
                    int(seconds % 60));
}

DateTime DateTime::now() {
    return fromQDateTime(QDateTime::currentDateTime());
}

QString DateTime::toIso() const {
    if (!isValid())
        return QString();
    if (seconds_ == 0)
        return date_.toIso();
    return QStringLiteral("%1 %2:%3:%4")
        .arg(date_.toIso())
        .arg(hour(), 2, 10, QLatin1Char('0'))
        .arg(minute(), 2, 10, QLatin1Char('0'))
        .arg(second(), 2, 10, QLatin1Char('0'));
}

std::strong_ordering DateTime::operator<=>(const DateTime& o) const {
    if (auto c = date_ <=> o.date_; c != 0)
        return c;
    return seconds_ <=> o.seconds_;
}
