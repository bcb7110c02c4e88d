#include "budget/BudgetCellText.h"

#include "app/Format.h"

#include <QRegularExpression>

BudgetCellKey budgetCellKey(const QString& remaining, QChar key) {
    if (key.unicode() < 32)
        return BudgetCellKey::Accept;
    if (key == QLatin1Char('-'))
        return BudgetCellKey::ToggleMinus;
    if (key == QLatin1Char('.'))
        return remaining.contains(QLatin1Char('.')) ? BudgetCellKey::Drop : BudgetCellKey::Accept;
    if (key >= QLatin1Char('0') && key <= QLatin1Char('9'))
        return BudgetCellKey::Accept;
    return BudgetCellKey::Drop;
}

QString toggleLeadingMinus(const QString& text) {
    if (text.startsWith(QLatin1Char('-')))
        return text.mid(1);
    return QLatin1Char('-') + text;
}

bool isNumericCellText(const QString& text) {
    static const QRegularExpression amount(
        QStringLiteral("^\\s*[-+]?\\s*£?\\s*[-+]?(\\d[\\d,]*(\\.\\d*)?|\\.\\d+)\\s*$"));
    return amount.match(text).hasMatch();
}

Money budgetCellValue(const QString& text) {
    if (!isNumericCellText(text))
        return Money();
    QString rest = text.trimmed();
    while (!rest.isEmpty()) {
        if (const std::optional<Money> value = Money::parse(rest))
            return *value;
        QString bare = rest;
        bare.remove(QLatin1Char(','));
        bare.remove(QChar(0x00A3));
        if (bare != rest)
            rest = bare;
        else
            rest.chop(1);
    }
    return Money();
}

QString budgetCellEditText(Money value) {
    return formatMoney(value, QStringLiteral("0.00"));
}
