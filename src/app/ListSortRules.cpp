#include "app/ListSortRules.h"

#include "app/Money.h"

#include <QStringList>

ListColumnKind listColumnKind(const QString& tag) {
    const QString t = tag.trimmed().toLower();
    if (t == QLatin1String("d"))
        return ListColumnKind::Date;
    if (t == QLatin1String("n"))
        return ListColumnKind::Number;
    return ListColumnKind::Text;
}

std::optional<QDateTime> listCellDate(const QString& text) {
    const QStringList parts = text.simplified().split(QLatin1Char(' '));
    if (parts.isEmpty() || parts.size() > 2)
        return std::nullopt;
    const QDate date = QDate::fromString(parts[0], QStringLiteral("d/M/yyyy"));
    if (!date.isValid())
        return std::nullopt;
    QTime time(0, 0);
    if (parts.size() == 2) {
        time = QTime::fromString(parts[1], QStringLiteral("H:mm:ss"));
        if (!time.isValid())
            time = QTime::fromString(parts[1], QStringLiteral("H:mm"));
        if (!time.isValid())
            return std::nullopt;
    }
    return QDateTime(date, time);
}

std::optional<Money> listCellNumber(const QString& text) {
    QString t = text.trimmed();
    bool negative = false;
    if (t.startsWith(QLatin1Char('(')) && t.endsWith(QLatin1Char(')'))) {
        negative = true;
        t = t.mid(1, t.size() - 2);
    }
    t.remove(QChar(0x00A3)).remove(QLatin1Char(',')).remove(QLatin1Char('%')).remove(QLatin1Char(' '));
    if (t.startsWith(QLatin1Char('-'))) {
        negative = !negative;
        t.remove(0, 1);
    }
    if (t.isEmpty() || t.startsWith(QLatin1Char('-')) || t.startsWith(QLatin1Char('+')))
        return std::nullopt;
    const std::optional<Money> value = Money::parse(t);
    if (!value)
        return std::nullopt;
    return negative ? -*value : *value;
}

namespace {

int compareText(const QString& a, const QString& b) {
    const int c = a.compare(b, Qt::CaseInsensitive);
    return c != 0 ? c : a.compare(b);
}

template <typename T>
int compareParsed(const std::optional<T>& x, const std::optional<T>& y, const QString& a, const QString& b) {
    if (x && y)
        return *x < *y ? -1 : (*y < *x ? 1 : 0);
    if (x)
        return 1;
    if (y)
        return -1;
    return compareText(a, b);
}

} // namespace

int compareListCells(const QString& a, const QString& b, ListColumnKind kind) {
    switch (kind) {
    case ListColumnKind::Date:
        return compareParsed(listCellDate(a), listCellDate(b), a, b);
    case ListColumnKind::Number:
        return compareParsed(listCellNumber(a), listCellNumber(b), a, b);
    case ListColumnKind::Text:
        break;
    }
    return compareText(a, b);
}

QString headerWithoutSortMark(const QString& header) {
    QString text = header.trimmed();
    for (const QLatin1String mark : {QLatin1String(" ^"), QLatin1String(" v")})
        if (text.endsWith(mark))
            text = text.chopped(mark.size()).trimmed();
    return text;
}

QString headerWithSortMark(const QString& header, bool ascending) {
    return headerWithoutSortMark(header) + (ascending ? QStringLiteral(" ^") : QStringLiteral(" v"));
}
