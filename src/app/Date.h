#pragma once
// Calendar dates and date-times. Stored as ISO text ("YYYY-MM-DD", with
// " HH:MM:SS" where a time exists); shown day-month-year.
#include <QString>
#include <chrono>
#include <compare>
#include <optional>

class QDate;
class QDateTime;

class Date {
public:
    Date() = default; // the null date
    Date(int year, unsigned month, unsigned day);
    explicit Date(std::chrono::year_month_day ymd);

    static Date fromQDate(const QDate& d);
    // "YYYY-MM-DD" (a trailing time is ignored); anything else gives a null date.
    static Date fromIso(const QString& text);
    // Days since 1899-12-30, the epoch of the host product's date doubles.
    static Date fromSerial(long long days);
    static Date today();

    bool isValid() const { return valid_; }
    int year() const { return int(ymd_.year()); }
    unsigned month() const { return unsigned(ymd_.month()); }
    unsigned day() const { return unsigned(ymd_.day()); }
    std::chrono::year_month_day ymd() const { return ymd_; }

    QString toIso() const;
    QDate toQDate() const;
    long long serial() const; // days since 1899-12-30
    Date addDays(long long days) const;
    // Same day in the month `months` later, clamped to that month's last day.
    Date addMonths(int months) const;
    long long daysTo(const Date& other) const { return other.serial() - serial(); }

    bool operator==(const Date& o) const { return valid_ == o.valid_ && (!valid_ || ymd_ == o.ymd_); }
    std::strong_ordering operator<=>(const Date& o) const;

private:
    std::chrono::year_month_day ymd_{};
    bool valid_ = false;
};

class DateTime {
public:
    DateTime() = default;
    DateTime(Date date, int hour = 0, int minute = 0, int second = 0);
    static DateTime fromQDateTime(const QDateTime& dt);
    // "YYYY-MM-DD" or "YYYY-MM-DD HH:MM:SS"; anything else gives a null value.
    static DateTime fromIso(const QString& text);
    // Fractional days since 1899-12-30 (negative values count the time forward from the day).
    static DateTime fromSerial(double days);
    static DateTime now();

    bool isValid() const { return date_.isValid(); }
    const Date& date() const { return date_; }
    int hour() const { return seconds_ / 3600; }
    int minute() const { return seconds_ / 60 % 60; }
    int second() const { return seconds_ % 60; }
    int secondsOfDay() const { return seconds_; }
    bool hasTime() const { return seconds_ != 0; }
    // ISO text; the time is written only when it is not midnight.
    QString toIso() const;

    bool operator==(const DateTime&) const = default;
    std::strong_ordering operator<=>(const DateTime& o) const;

private:
    Date date_;
    int seconds_ = 0;
};
