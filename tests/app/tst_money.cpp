#include "TestRegistry.h"
#include "app/Money.h"

#include <QTest>
#include <limits>

class MoneyTest : public QObject {
    Q_OBJECT
private slots:
    void fromDoubleRoundsHalfToEven_data();
    void fromDoubleRoundsHalfToEven();
    void fromDoubleOutOfRange();
    void parse_data();
    void parse();
    void plainText();
};

void MoneyTest::fromDoubleRoundsHalfToEven_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<qint64>("raw");
    QTest::newRow("half to even zero") << 0.00005 << qint64(0);
    QTest::newRow("half to even two") << 0.00015 << qint64(2);
    QTest::newRow("half stays two") << 0.00025 << qint64(2);
    QTest::newRow("negative half to even") << -1.00005 << qint64(-10000);
    QTest::newRow("negative half up in size") << -0.00015 << qint64(-2);
    QTest::newRow("negative half to zero") << -0.00005 << qint64(0);
    // 1234.56785 is stored a hair below the half; it still counts as the half.
    QTest::newRow("binary noise at the half") << 1234.56785 << qint64(12345678);
    QTest::newRow("below half") << 0.12344 << qint64(1234);
    QTest::newRow("above half") << 0.12346 << qint64(1235);
    QTest::newRow("exact") << 2.5 << qint64(25000);
}

void MoneyTest::fromDoubleRoundsHalfToEven() {
    QFETCH(double, value);
    QFETCH(qint64, raw);
    QCOMPARE(Money::fromDouble(value).raw(), raw);
}

void MoneyTest::fromDoubleOutOfRange() {
    QCOMPARE(Money::fromDouble(1e20).raw(), std::numeric_limits<qint64>::max());
    QCOMPARE(Money::fromDouble(-1e20).raw(), std::numeric_limits<qint64>::min());
    QCOMPARE(Money::fromDouble(std::numeric_limits<double>::quiet_NaN()).raw(), qint64(0));
}

void MoneyTest::parse_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<qint64>("raw");
    QTest::newRow("decimal") << QStringLiteral("12.5") << true << qint64(125000);
    QTest::newRow("negative") << QStringLiteral("-12.5") << true << qint64(-125000);
    QTest::newRow("plus") << QStringLiteral("+3") << true << qint64(30000);
    QTest::newRow("one ten-thousandth") << QStringLiteral("0.0001") << true << qint64(1);
    QTest::newRow("four decimals") << QStringLiteral("1234.5678") << true << qint64(12345678);
    QTest::newRow("point last") << QStringLiteral("1.") << true << qint64(10000);
    QTest::newRow("point first") << QStringLiteral(".5") << true << qint64(5000);
    QTest::newRow("blanks around") << QStringLiteral("  7.25 ") << true << qint64(72500);
    QTest::newRow("fifth decimal half, odd") << QStringLiteral("1.23455") << true << qint64(12346);
    QTest::newRow("fifth decimal half, even") << QStringLiteral("1.23445") << true << qint64(12344);
    QTest::newRow("just above half") << QStringLiteral("1.234450001") << true << qint64(12345);
    QTest::newRow("half to zero") << QStringLiteral("0.00005") << true << qint64(0);
    QTest::newRow("negative half") << QStringLiteral("-0.00015") << true << qint64(-2);
    QTest::newRow("above half far out") << QStringLiteral("0.000050000000000000000001") << true << qint64(1);
    QTest::newRow("near the top") << QStringLiteral("922337203685476.9999") << true
                                  << qint64(9223372036854769999);
    QTest::newRow("too large") << QStringLiteral("922337203685478") << false << qint64(0);
    QTest::newRow("far too large") << QStringLiteral("99999999999999999999") << false << qint64(0);
    QTest::newRow("empty") << QString() << false << qint64(0);
    QTest::newRow("blank") << QStringLiteral(" ") << false << qint64(0);
    QTest::newRow("sign only") << QStringLiteral("-") << false << qint64(0);
    QTest::newRow("point only") << QStringLiteral(".") << false << qint64(0);
    QTest::newRow("grouped") << QStringLiteral("1,234.50") << false << qint64(0);
    QTest::newRow("pound") << QStringLiteral("£1") << false << qint64(0);
    QTest::newRow("two points") << QStringLiteral("1.2.3") << false << qint64(0);
    QTest::newRow("exponent") << QStringLiteral("1e5") << false << qint64(0);
    QTest::newRow("inner blank") << QStringLiteral("1 2") << false << qint64(0);
    QTest::newRow("two signs") << QStringLiteral("--1") << false << qint64(0);
}

void MoneyTest::parse() {
    QFETCH(QString, text);
    QFETCH(bool, ok);
    QFETCH(qint64, raw);
    const std::optional<Money> m = Money::parse(text);
    QCOMPARE(m.has_value(), ok);
    if (ok)
        QCOMPARE(m->raw(), raw);
}

void MoneyTest::plainText() {
    QCOMPARE(Money::fromRaw(-12345000).toPlainString(), QStringLiteral("-1234.5000"));
    QCOMPARE(Money::fromRaw(5).toPlainString(), QStringLiteral("0.0005"));
    QCOMPARE(Money::fromRaw(-5).toPlainString(), QStringLiteral("-0.0005"));
    QCOMPARE(Money::parse(Money::fromRaw(-987654321).toPlainString())->raw(), qint64(-987654321));
}

VANTREL_TEST(MoneyTest);
#include "tst_money.moc"
