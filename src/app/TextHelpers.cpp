#include "app/TextHelpers.h"

#include "app/Date.h"
#include "app/Format.h"

#include <algorithm>

namespace {

const QChar Pound(0x00A3);

int partValue(const QString& digits) {
    // "0" in front, so a part without digits is 0; more digits than an int holds is no value.
    bool ok = false;
    const int value = (QStringLiteral("0") + digits).toInt(&ok);
    return ok ? value : -1;
}

} // namespace

QString ParseDateByMask(const QString& text, const QString& mask, const QString& format) {
    QString day, month, year, hour, minute, second;
    const int length = int(std::min(text.size(), mask.size()));
    for (int i = 0; i < length; ++i) {
        const QChar c = text[i];
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            continue;
        switch (mask[i].toUpper().unicode()) {
        case 'D':
            day += c;
            break;
        case 'M':
            month += c;
            break;
        case 'Y':
            year += c;
            break;
        case 'H':
            hour += c;
            break;
        case 'N':
            minute += c;
            break;
        case 'S':
            second += c;
            break;
        default:
            break;
        }
    }
    const int d = partValue(day), m = partValue(month), h = partValue(hour), n = partValue(minute),
              s = partValue(second);
    int y = partValue(year);
    if (y >= 0 && y < 30)
        y += 2000;
    else if (y >= 30 && y < 100)
        y += 1900;
    if (d < 1 || d > 31 || m < 1 || m > 12 || y < 0 || h < 0 || h > 23 || n < 0 || n > 59 || s < 0 || s > 59)
        return QString();
    const Date date(y, unsigned(m), unsigned(d));
    if (!date.isValid())
        return QString();
    return formatDateTime(DateTime(date, h, n, s), format);
}

QString GetMoneyFormat(int kind, bool noThousands) {
    QString format = Pound + QStringLiteral("#,###,###,##0");
    if (kind == 1)
        format += QStringLiteral(".00");
    if (noThousands)
        format.remove(QLatin1Char(','));
    return format;
}

QString StripPound(const QString& text) {
    if (!text.startsWith(Pound))
        return text;
    if (text.size() > 1 && text[1] == QLatin1Char('-'))
        return QLatin1Char('-') + text.mid(2);
    return text.mid(1);
}

QStringList SplitWords(const QString& text) {
    return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

bool ListContains(const QStringList& list, const QString& value) {
    return list.contains(value, Qt::CaseSensitive);
}

int FindInList(const QStringList& list, const QString& value) {
    return int(list.indexOf(value));
}

QStringList SortStrings(QStringList list) {
    std::stable_sort(list.begin(), list.end(), [](const QString& a, const QString& b) {
        return QString::compare(a, b, Qt::CaseInsensitive) < 0;
    });
    return list;
}

QString JoinPath(const QString& a, const QString& b) {
    QString head = a;
    while (head.endsWith(QLatin1Char('/')))
        head.chop(1);
    qsizetype start = 0;
    while (start < b.size() && b[start] == QLatin1Char('/'))
        ++start;
    return head + QLatin1Char('/') + b.mid(start);
}

QStringList WrapWords(const QString& text, int limit) {
    QString rest = text.trimmed();
    if (limit < 1)
        return {rest};
    QStringList lines;
    while (rest.size() > limit) {
        const qsizetype blank = rest.lastIndexOf(QLatin1Char(' '), limit - 1);
        const qsizetype cut = blank > 0 ? blank : limit + 1;
        lines << rest.left(cut).trimmed();
        rest = rest.mid(blank > 0 ? cut + 1 : cut).trimmed();
    }
    if (!rest.isEmpty() || lines.isEmpty())
        lines << rest;
    return lines;
}
