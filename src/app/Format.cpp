#include "app/Format.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <vector>

namespace {

// ---------------------------------------------------------------- numbers

// A magnitude as decimal digits with the point after `integerLength` of them
// (negative or beyond the digits: zeros are implied).
struct DecimalDigits {
    bool negative = false;
    std::string digits;
    int integerLength = 0;
};

DecimalDigits fromUnsigned(bool negative, std::uint64_t magnitude, int decimals) {
    DecimalDigits d;
    d.negative = negative;
    d.digits = std::to_string(magnitude);
    d.integerLength = int(d.digits.size()) - decimals;
    return d;
}

std::uint64_t magnitudeOf(std::int64_t value) {
    // Through unsigned arithmetic so the most negative value has a magnitude too.
    return value < 0 ? std::uint64_t(0) - std::uint64_t(value) : std::uint64_t(value);
}

struct NumberToken {
    enum Kind { Required, Optional, Point, Literal } kind;
    QString text; // for literals
};

struct NumberPattern {
    std::vector<NumberToken> tokens;
    bool grouping = false;
    int percents = 0;
    bool hasPlaceholders = false;
};

bool isPlaceholder(const NumberToken& t) {
    return t.kind == NumberToken::Required || t.kind == NumberToken::Optional;
}

NumberPattern parseNumberPattern(const QString& format) {
    NumberPattern p;
    std::vector<int> commas; // token positions of commas, decided once all is read
    bool afterPoint = false;
    auto literal = [&p](const QString& text) { p.tokens.push_back({NumberToken::Literal, text}); };
    for (int i = 0; i < format.size(); ++i) {
        const QChar c = format[i];
        if (c == QLatin1Char('0') || c == QLatin1Char('#')) {
            p.tokens.push_back({c == QLatin1Char('0') ? NumberToken::Required : NumberToken::Optional, {}});
            p.hasPlaceholders = true;
        } else if (c == QLatin1Char('.') && !afterPoint) {
            p.tokens.push_back({NumberToken::Point, {}});
            afterPoint = true;
        } else if (c == QLatin1Char(',') && !afterPoint) {
            commas.push_back(int(p.tokens.size()));
            literal(QStringLiteral(","));
        } else if (c == QLatin1Char('%')) {
            ++p.percents;
            literal(QStringLiteral("%"));
        } else if (c == QLatin1Char('\\') && i + 1 < format.size()) {
            literal(format.mid(++i, 1));
        } else if (c == QLatin1Char('"')) {
            const int end = format.indexOf(QLatin1Char('"'), i + 1);
            const int stop = end < 0 ? int(format.size()) : end;
            literal(format.mid(i + 1, stop - i - 1));
            i = stop;
        } else {
            literal(QString(c));
        }
    }
    // A comma with a digit placeholder on each side asks for grouping and is not written;
    // the groups are always of three, wherever the commas stand.
    for (auto it = commas.rbegin(); it != commas.rend(); ++it) {
        const int at = *it;
        bool before = false, after = false;
        for (int j = 0; j < at; ++j)
            before = before || isPlaceholder(p.tokens[j]);
        for (int j = at + 1; j < int(p.tokens.size()) && p.tokens[j].kind != NumberToken::Point; ++j)
            after = after || isPlaceholder(p.tokens[j]);
        if (before && after) {
            p.grouping = true;
            p.tokens.erase(p.tokens.begin() + at);
        }
    }
    return p;
}

// Splits into integer and fraction digits, rounded half away from zero to `decimals`.
// The integer digits have no leading zeros (empty for zero).
void roundToDecimals(const DecimalDigits& d, int decimals, std::string* integerDigits,
                     std::string* fractionDigits) {
    std::string whole, frac;
    if (d.integerLength <= 0) {
        frac = std::string(std::size_t(-d.integerLength), '0') + d.digits;
    } else if (d.integerLength >= int(d.digits.size())) {
        whole = d.digits + std::string(std::size_t(d.integerLength) - d.digits.size(), '0');
    } else {
        whole = d.digits.substr(0, std::size_t(d.integerLength));
        frac = d.digits.substr(std::size_t(d.integerLength));
    }
    const bool roundUp = int(frac.size()) > decimals && frac[std::size_t(decimals)] >= '5';
    frac.resize(std::size_t(decimals), '0');
    std::string all = whole + frac;
    if (roundUp) {
        int i = int(all.size()) - 1;
        for (; i >= 0 && all[std::size_t(i)] == '9'; --i)
            all[std::size_t(i)] = '0';
        if (i >= 0)
            ++all[std::size_t(i)];
        else
            all.insert(all.begin(), '1');
    }
    *fractionDigits = all.substr(all.size() - std::size_t(decimals));
    std::string integer = all.substr(0, all.size() - std::size_t(decimals));
    const std::size_t firstNonZero = integer.find_first_not_of('0');
    *integerDigits = firstNonZero == std::string::npos ? std::string() : integer.substr(firstNonZero);
}

QString plainNumber(const DecimalDigits& d) {
    // The shortest plain text: no grouping, no trailing fraction zeros.
    std::string whole, frac;
    roundToDecimals(d, std::max(0, int(d.digits.size()) - d.integerLength), &whole, &frac);
    while (!frac.empty() && frac.back() == '0')
        frac.pop_back();
    const bool zero = whole.empty() && frac.empty();
    QString out = (d.negative && !zero) ? QStringLiteral("-") : QString();
    out += whole.empty() ? QStringLiteral("0") : QString::fromStdString(whole);
    if (!frac.empty())
        out += QLatin1Char('.') + QString::fromStdString(frac);
    return out;
}

QString applyPattern(DecimalDigits value, const QString& format) {
    if (format.isEmpty())
        return plainNumber(value);
    const NumberPattern p = parseNumberPattern(format);
    value.integerLength += 2 * p.percents;

    auto pointAt = std::find_if(p.tokens.begin(), p.tokens.end(),
                                [](const NumberToken& t) { return t.kind == NumberToken::Point; });
    const bool hasPoint = pointAt != p.tokens.end();
    if (!p.hasPlaceholders && !hasPoint) {
        QString out;
        for (const NumberToken& t : p.tokens)
            out += t.text;
        return out;
    }
    const std::vector<NumberToken> integerPart(p.tokens.begin(), pointAt);
    const std::vector<NumberToken> fractionPart(hasPoint ? pointAt + 1 : pointAt, p.tokens.end());
    const int decimals = int(std::count_if(fractionPart.begin(), fractionPart.end(), isPlaceholder));
    const int places = int(std::count_if(integerPart.begin(), integerPart.end(), isPlaceholder));

    std::string whole, frac;
    roundToDecimals(value, decimals, &whole, &frac);
    const bool zero = whole.empty() && frac.find_first_not_of('0') == std::string::npos;

    // Zeros fill up to the leftmost "0" placeholder.
    int minDigits = 0;
    for (int j = 0, k = 0; j < int(integerPart.size()); ++j) {
        if (!isPlaceholder(integerPart[std::size_t(j)]))
            continue;
        if (integerPart[std::size_t(j)].kind == NumberToken::Required) {
            minDigits = places - k;
            break;
        }
        ++k;
    }
    if (int(whole.size()) < minDigits)
        whole.insert(0, std::size_t(minDigits) - whole.size(), '0');

    QString out = (value.negative && !zero) ? QStringLiteral("-") : QString();
    const int length = int(whole.size());
    auto emitDigit = [&](int index) {
        out += QLatin1Char(whole[std::size_t(index)]);
        const int fromRight = length - 1 - index;
        if (p.grouping && fromRight > 0 && fromRight % 3 == 0)
            out += QLatin1Char(',');
    };
    int placeholder = 0;
    for (const NumberToken& t : integerPart) {
        if (!isPlaceholder(t)) {
            out += t.text;
            continue;
        }
        const int fromRight = places - 1 - placeholder;
        if (placeholder == 0) // the first placeholder takes every digit the format has no room for
            for (int i = 0; i < length - places; ++i)
                emitDigit(i);
        if (fromRight < length)
            emitDigit(length - 1 - fromRight);
        ++placeholder;
    }
    if (places == 0)
        for (int i = 0; i < length; ++i)
            emitDigit(i);
    if (!hasPoint)
        return out;

    out += QLatin1Char('.');
    // Optional places at the right end drop their zeros.
    int kept = decimals;
    for (auto it = fractionPart.rbegin(); it != fractionPart.rend() && kept > 0; ++it) {
        if (!isPlaceholder(*it))
            continue;
        if (it->kind == NumberToken::Required || frac[std::size_t(kept - 1)] != '0')
            break;
        --kept;
    }
    int index = 0;
    for (const NumberToken& t : fractionPart) {
        if (!isPlaceholder(t)) {
            out += t.text;
            continue;
        }
        if (index < kept)
            out += QLatin1Char(frac[std::size_t(index)]);
        ++index;
    }
    return out;
}

// ---------------------------------------------------------------- dates

const std::array<const char*, 12> MonthNames = {"January",   "February", "March",    "April",
                                                "May",       "June",     "July",     "August",
                                                "September", "October",  "November", "December"};
const std::array<const char*, 7> DayNames = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                             "Thursday", "Friday", "Saturday"};

QString twoDigits(int n) {
    return QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
}

int runLength(const QString& format, int from, QChar letter, int maxLength) {
    int n = 0;
    while (from + n < format.size() && n < maxLength && format[from + n].toLower() == letter)
        ++n;
    return n;
}

} // namespace

QString formatMoney(Money value, const QString& format) {
    return applyPattern(fromUnsigned(value.raw() < 0, magnitudeOf(value.raw()), 4), format);
}

QString formatNumber(double value, const QString& format) {
    if (!std::isfinite(value))
        return QString();
    // 15 significant digits: "d.dddddddddddddde±x".
    std::array<char, 40> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                      std::chars_format::scientific, 14);
    const std::string text(buffer.data(), result.ptr);
    const std::size_t e = text.find('e');
    DecimalDigits d;
    d.negative = std::signbit(value);
    d.digits = text.substr(0, 1) + text.substr(2, e - 2);
    d.integerLength = std::stoi(text.substr(e + 1)) + 1;
    return applyPattern(d, format);
}

QString formatPounds(Money value) {
    return formatMoney(value, QStringLiteral("£###,##0.00"));
}

QString formatDate(const Date& date, const QString& format) {
    return formatDateTime(DateTime(date), format);
}

QString formatDateTime(const DateTime& value, const QString& format) {
    if (!value.isValid())
        return QString();
    const Date& date = value.date();
    QString out;
    bool afterHour = false; // the last field written was the hour: m and mm mean minutes
    for (int i = 0; i < format.size();) {
        const QChar c = format[i].toLower();
        int n = 1;
        if (c == QLatin1Char('d')) {
            n = runLength(format, i, c, 4);
            if (n <= 2)
                out += n == 1 ? QString::number(date.day()) : twoDigits(int(date.day()));
            else {
                const unsigned weekday = std::chrono::weekday(std::chrono::sys_days(date.ymd())).c_encoding();
                const QString name = QString::fromLatin1(DayNames[weekday]);
                out += n == 3 ? name.left(3) : name;
            }
            afterHour = false;
        } else if (c == QLatin1Char('m')) {
            n = runLength(format, i, c, 4);
            if (afterHour && n <= 2) {
                out += n == 1 ? QString::number(value.minute()) : twoDigits(value.minute());
            } else if (n <= 2) {
                out += n == 1 ? QString::number(date.month()) : twoDigits(int(date.month()));
            } else {
                const QString name = QString::fromLatin1(MonthNames[date.month() - 1]);
                out += n == 3 ? name.left(3) : name;
            }
            afterHour = false;
        } else if (c == QLatin1Char('y')) {
            n = runLength(format, i, c, 4);
            if (n == 1) {
                const Date newYear(date.year(), 1, 1);
                out += QString::number(newYear.daysTo(date) + 1);
            } else if (n == 2 || n == 3) {
                n = 2;
                out += twoDigits(((date.year() % 100) + 100) % 100);
            } else {
                out += QStringLiteral("%1").arg(date.year(), 4, 10, QLatin1Char('0'));
            }
            afterHour = false;
        } else if (c == QLatin1Char('h') || c == QLatin1Char('n') || c == QLatin1Char('s')) {
            n = runLength(format, i, c, 2);
            const int field = c == QLatin1Char('h')   ? value.hour()
                              : c == QLatin1Char('n') ? value.minute()
                                                      : value.second();
            out += n == 1 ? QString::number(field) : twoDigits(field);
            afterHour = c == QLatin1Char('h');
        } else if (c == QLatin1Char('\\') && i + 1 < format.size()) {
            out += format[i + 1];
            n = 2;
        } else if (c == QLatin1Char('"')) {
            const int end = format.indexOf(QLatin1Char('"'), i + 1);
            const int stop = end < 0 ? int(format.size()) : end;
            out += format.mid(i + 1, stop - i - 1);
            n = stop - i + 1;
        } else {
            out += format[i];
        }
        i += n;
    }
    return out;
}

Date parseDateText(const QString& input) {
    const QString text = input.trimmed();
    static const QRegularExpression dayFirst(QStringLiteral("^(\\d{1,2})/(\\d{1,2})/(\\d{4})$"));
    static const QRegularExpression monthName(QStringLiteral("^(\\d{4})\\s+([A-Za-z]+)\\s+(\\d{1,2})$"));
    if (const auto m = dayFirst.match(text); m.hasMatch())
        return Date(m.captured(3).toInt(), m.captured(2).toUInt(), m.captured(1).toUInt());
    if (const auto m = monthName.match(text); m.hasMatch()) {
        const QString name = m.captured(2);
        for (unsigned i = 0; i < MonthNames.size(); ++i) {
            const QString full = QString::fromLatin1(MonthNames[i]);
            if (name.compare(full, Qt::CaseInsensitive) == 0 ||
                name.compare(full.left(3), Qt::CaseInsensitive) == 0)
                return Date(m.captured(1).toInt(), i + 1, m.captured(3).toUInt());
        }
        return Date();
    }
    return Date::fromIso(text);
}
