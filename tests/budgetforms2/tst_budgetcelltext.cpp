// What may be typed into a budget figure, and what a cell's text is worth when it is left.
#include "TestRegistry.h"
#include "budget/BudgetCellText.h"

#include <QTest>

Q_DECLARE_METATYPE(BudgetCellKey)

class BudgetCellTextTest : public QObject {
    Q_OBJECT
private slots:
    void typedCharacters_data();
    void typedCharacters();
    void minusTurnsTheSignRound_data();
    void minusTurnsTheSignRound();
    void valueWhenLeft_data();
    void valueWhenLeft();
    void editTextIsThePlainAmount();
};

void BudgetCellTextTest::typedCharacters_data() {
    QTest::addColumn<QString>("remaining");
    QTest::addColumn<QString>("key");
    QTest::addColumn<BudgetCellKey>("expected");
    QTest::newRow("digit") << "12"
                           << "7" << BudgetCellKey::Accept;
    QTest::newRow("first point") << "12"
                                 << "." << BudgetCellKey::Accept;
    QTest::newRow("second point") << "12.5"
                                  << "." << BudgetCellKey::Drop;
    QTest::newRow("point into empty cell") << ""
                                           << "." << BudgetCellKey::Accept;
    QTest::newRow("minus") << "12.5"
                           << "-" << BudgetCellKey::ToggleMinus;
    QTest::newRow("letter") << "12"
                            << "a" << BudgetCellKey::Drop;
    QTest::newRow("pound sign") << "12"
                                << "£" << BudgetCellKey::Drop;
    QTest::newRow("comma") << "1"
                           << "," << BudgetCellKey::Drop;
    QTest::newRow("plus") << "1"
                          << "+" << BudgetCellKey::Drop;
    QTest::newRow("blank") << "1"
                           << " " << BudgetCellKey::Drop;
    QTest::newRow("backspace") << "12"
                               << "\b" << BudgetCellKey::Accept;
    QTest::newRow("paste (ctrl-v)") << "12" << QString(QChar(22)) << BudgetCellKey::Accept;
}

void BudgetCellTextTest::typedCharacters() {
    QFETCH(QString, remaining);
    QFETCH(QString, key);
    QFETCH(BudgetCellKey, expected);
    QCOMPARE(budgetCellKey(remaining, key.front()), expected);
}

void BudgetCellTextTest::minusTurnsTheSignRound_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("positive") << "12.5"
                              << "-12.5";
    QTest::newRow("negative") << "-12.5"
                              << "12.5";
    QTest::newRow("empty") << ""
                           << "-";
    QTest::newRow("lone minus") << "-"
                                << "";
}

void BudgetCellTextTest::minusTurnsTheSignRound() {
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(toggleLeadingMinus(text), expected);
    QCOMPARE(toggleLeadingMinus(toggleLeadingMinus(text)), text);
}

void BudgetCellTextTest::valueWhenLeft_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("tenThousandths");
    QTest::newRow("plain") << "12.5" << qint64(125000);
    QTest::newRow("negative") << "-12.5" << qint64(-125000);
    QTest::newRow("four decimals") << "0.1234" << qint64(1234);
    QTest::newRow("pound and comma with pence") << "£1,234.50" << qint64(12345000);
    QTest::newRow("pound and comma around 1234") << "£1,234" << qint64(12340000);
    QTest::newRow("minus before pound") << "-£1,234.50" << qint64(-12345000);
    QTest::newRow("trailing point") << "12." << qint64(120000);
    QTest::newRow("letters only") << "abc" << qint64(0);
    QTest::newRow("digits and letters") << "12abc" << qint64(0);
    QTest::newRow("two points") << "1.2.3" << qint64(0);
    QTest::newRow("empty") << "" << qint64(0);
    QTest::newRow("lone minus") << "-" << qint64(0);
    QTest::newRow("blanks around") << "  7.25 " << qint64(72500);
}

void BudgetCellTextTest::valueWhenLeft() {
    QFETCH(QString, text);
    QFETCH(qint64, tenThousandths);
    QCOMPARE(budgetCellValue(text).raw(), tenThousandths);
}

void BudgetCellTextTest::editTextIsThePlainAmount() {
    QCOMPARE(budgetCellEditText(Money::fromRaw(12345000)), QStringLiteral("1234.50"));
    QCOMPARE(budgetCellEditText(Money::fromRaw(-125000)), QStringLiteral("-12.50"));
    QCOMPARE(budgetCellEditText(Money()), QStringLiteral("0.00"));
}

VANTREL_TEST(BudgetCellTextTest);
#include "tst_budgetcelltext.moc"
