#include "TestRegistry.h"
#include "TrendFixture.h"
#include "reports/ReportFrame.h"
#include "reports/clsStack.h"

#include <QTest>

class ReportFrameTest : public QObject {
    Q_OBJECT
private slots:
    void stackStartsEmptyAndClearLeavesOneEmptyElement();
    void stackPopsInReverseOrderAndKeepsTheLastElement();
    void stackPushAfterEmptyingStartsAFreshArray();
    void stackKeepsReportParametersWhole();
    void chargeViewFromRowCaption_data();
    void chargeViewFromRowCaption();
    void chartScale_data();
    void chartScale();
    void scaledLabels();
    void builderCallQuotesTextOnly();
    void filterNumbersPerLevel_data();
    void filterNumbersPerLevel();
};

void ReportFrameTest::stackStartsEmptyAndClearLeavesOneEmptyElement() {
    clsStack stack;
    QCOMPARE(stack.Count(), 0);
    QVERIFY(!stack.Pop().isValid());
    stack.Push(7);
    stack.Clear();
    QCOMPARE(stack.Count(), 0);
    QCOMPARE(stack.items().size(), 1);
    QVERIFY(!stack.items().first().isValid());
}

void ReportFrameTest::stackPopsInReverseOrderAndKeepsTheLastElement() {
    clsStack stack;
    stack.Clear();
    stack.Push(QStringLiteral("a"));
    stack.Push(QStringLiteral("b"));
    stack.Push(QStringLiteral("c"));
    QCOMPARE(stack.Count(), 3);
    QCOMPARE(stack.Pop().toString(), QStringLiteral("c"));
    QCOMPARE(stack.Count(), 2);
    QCOMPARE(stack.Pop().toString(), QStringLiteral("b"));
    QCOMPARE(stack.Pop().toString(), QStringLiteral("a"));
    // The last pop leaves its element in the array; only the count says the stack is empty.
    QCOMPARE(stack.Count(), 0);
    QCOMPARE(stack.items(), QVariantList{QStringLiteral("a")});
    QVERIFY(!stack.Pop().isValid());
    QCOMPARE(stack.items(), QVariantList{QStringLiteral("a")});
}

void ReportFrameTest::stackPushAfterEmptyingStartsAFreshArray() {
    clsStack stack;
    stack.Push(1);
    stack.Pop();
    stack.Push(2);
    QCOMPARE(stack.Count(), 1);
    QCOMPARE(stack.items(), QVariantList{2});
    stack.Push(3);
    QCOMPARE(stack.items(), (QVariantList{2, 3}));
}

void ReportFrameTest::stackKeepsReportParametersWhole() {
    clsStack stack;
    const ReportParams params = individualChargesParams(2, QStringLiteral("St John's"), 3);
    stack.Push(params);
    const ReportParams back = stack.Pop().toList();
    QCOMPARE(back, params);
    QCOMPARE(reportNumberOf(back), 2);
}

void ReportFrameTest::chargeViewFromRowCaption_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("view");
    QTest::newRow("usage row") << QStringLiteral("Usage Charges (£)") << 1;
    QTest::newRow("use, lower case") << QStringLiteral("use") << 1;
    QTest::newRow("recurring") << QStringLiteral("Recurring Charges (£)") << 2;
    QTest::newRow("one off") << QStringLiteral("One Off Charges and Credits (£)") << 3;
    QTest::newRow("adjustments") << QStringLiteral("Adjustment Charges (£)") << 4;
    QTest::newRow("totals") << QStringLiteral("Totals (£)") << 0;
    QTest::newRow("too short") << QStringLiteral("us") << 0;
    QTest::newRow("empty") << QString() << 0;
}

void ReportFrameTest::chargeViewFromRowCaption() {
    QFETCH(QString, name);
    QFETCH(int, view);
    QCOMPARE(GetChargeView(name), view);
}

void ReportFrameTest::chartScale_data() {
    QTest::addColumn<qint64>("raw");
    QTest::addColumn<qint64>("scale");
    QTest::newRow("nothing") << qint64(0) << qint64(1);
    QTest::newRow("four digits") << qint64(99999999) << qint64(1); // 9,999.9999
    QTest::newRow("five digits") << qint64(100000000) << qint64(10);
    QTest::newRow("1,234,567.00") << qint64(12345670000) << qint64(1000);
    QTest::newRow("nine digits") << qint64(1234567891234) << qint64(100000);
}

void ReportFrameTest::chartScale() {
    QFETCH(qint64, raw);
    QFETCH(qint64, scale);
    QCOMPARE(ChartScale(Money::fromRaw(raw)), scale);
}

void ReportFrameTest::scaledLabels() {
    QCOMPARE(scaledLabel(QStringLiteral("Usage Charges"), 1000), QStringLiteral("Usage Charges / 1000"));
    QCOMPARE(scaledLabel(QStringLiteral("Usage Charges"), 1), QStringLiteral("Usage Charges"));
    QCOMPARE(scaledValue(Money::fromRaw(12345670000), 1000), 1234.567);
}

void ReportFrameTest::builderCallQuotesTextOnly() {
    QCOMPARE(builderCall(QStringLiteral("TrendReport_IndividualCharges"), {2, QStringLiteral("North"), 1}),
             QStringLiteral("TrendReport_IndividualCharges(2, \"North\", 1)"));
    QCOMPARE(builderCall(QStringLiteral("TrendReport_TotalCharges"), {0, QString()}),
             QStringLiteral("TrendReport_TotalCharges(0, \"\")"));
}

void ReportFrameTest::filterNumbersPerLevel_data() {
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QStringList>("numbers");
    QTest::newRow("level 1") << 1 << QStringLiteral("Sales") << QStringList{"0100", "0200"};
    QTest::newRow("level 2 with a quote") << 2 << QStringLiteral("St John's") << QStringList{"0200"};
    QTest::newRow("no cost centre: null and empty") << 2 << QString() << QStringList{"0100", "0300"};
    QTest::newRow("level 5") << 5 << QStringLiteral("Desk 9") << QStringList{"0300"};
    QTest::newRow("one number") << 6 << QStringLiteral("0300") << QStringList{"0300"};
    QTest::newRow("unknown centre") << 1 << QStringLiteral("Nowhere") << QStringList{};
    QTest::newRow("no such level") << 7 << QStringLiteral("Sales") << QStringList{};
}

void ReportFrameTest::filterNumbersPerLevel() {
    QFETCH(int, level);
    QFETCH(QString, value);
    QFETCH(QStringList, numbers);
    TrendFixture f;
    f.number(QStringLiteral("0100"), {"Sales", QVariant()});
    f.number(QStringLiteral("0200"), {"Sales", "St John's"});
    f.number(QStringLiteral("0300"), {"Finance", "", "", "", "Desk 9"});
    QStringList found = FilterServiceNumbers(f.ctx, level, value);
    found.sort();
    QCOMPARE(found, numbers);
}

VANTREL_TEST(ReportFrameTest);
#include "tst_reportframe.moc"
