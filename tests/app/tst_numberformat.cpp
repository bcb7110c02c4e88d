#include "TestRegistry.h"
#include "app/Format.h"
#include "app/Startup.h"

#include <QTest>
#include <limits>

// Expected texts are worked out by hand from the format rules: half away from zero,
// the minus sign before any literal, no minus on a value that rounds to zero.
class NumberFormatTest : public QObject {
    Q_OBJECT
private slots:
    void money_data();
    void money();
    void number_data();
    void number();
    void integer_data();
    void integer();
    void poundsUsesTheScreenFormat();
    void versionText_data();
    void versionText();
};

void NumberFormatTest::money_data() {
    QTest::addColumn<qint64>("raw");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected");
    const qint64 max = std::numeric_limits<qint64>::max();
    const qint64 min = std::numeric_limits<qint64>::min();
    const QString screen = QStringLiteral("£###,##0.00");
    QTest::newRow("screen negative") << qint64(-12345000) << screen << QStringLiteral("-£1,234.50");
    QTest::newRow("screen zero") << qint64(0) << screen << QStringLiteral("£0.00");
    QTest::newRow("screen large") << qint64(12345678910) << screen << QStringLiteral("£1,234,567.89");
    QTest::newRow("screen half up") << qint64(50) << screen << QStringLiteral("£0.01");
    QTest::newRow("screen half away below zero") << qint64(-50) << screen << QStringLiteral("-£0.01");
    QTest::newRow("screen rounds to zero") << qint64(-49) << screen << QStringLiteral("£0.00");
    QTest::newRow("screen carry into a group") << qint64(9999950) << screen << QStringLiteral("£1,000.00");
    QTest::newRow("screen third decimal") << qint64(123456) << screen << QStringLiteral("£12.35");
    QTest::newRow("screen largest") << max << screen << QStringLiteral("£922,337,203,685,477.58");
    QTest::newRow("screen smallest") << min << screen << QStringLiteral("-£922,337,203,685,477.58");

    const QString whole = QStringLiteral("£#,###,###,##0");
    QTest::newRow("whole zero") << qint64(0) << whole << QStringLiteral("£0");
    QTest::newRow("whole negative half") << qint64(-12345000) << whole << QStringLiteral("-£1,235");
    QTest::newRow("whole below half") << qint64(12344999) << whole << QStringLiteral("£1,234");
    QTest::newRow("whole large") << qint64(123456789015000) << whole << QStringLiteral("£12,345,678,902");
    QTest::newRow("whole more digits than places")
        << qint64(1234567890123450000) << whole << QStringLiteral("£123,456,789,012,345");

    const QString pence = QStringLiteral("£#,###,###,##0.00");
    QTest::newRow("pence negative") << qint64(-5000) << pence << QStringLiteral("-£0.50");
    QTest::newRow("pence zero") << qint64(0) << pence << QStringLiteral("£0.00");
    QTest::newRow("pence large") << qint64(12345678901260) << pence << QStringLiteral("£1,234,567,890.13");

    const QString plain = QStringLiteral("£#########0.00");
    QTest::newRow("plain negative") << qint64(-12345678910) << plain << QStringLiteral("-£1234567.89");
    QTest::newRow("plain zero") << qint64(0) << plain << QStringLiteral("£0.00");
    QTest::newRow("plain large") << qint64(1234567890123450) << plain << QStringLiteral("£123456789012.35");

    QTest::newRow("empty format") << qint64(125000) << QString() << QStringLiteral("12.5");
    QTest::newRow("empty format negative") << qint64(-10000) << QString() << QStringLiteral("-1");
}

void NumberFormatTest::money() {
    QFETCH(qint64, raw);
    QFETCH(QString, format);
    QFETCH(QString, expected);
    QCOMPARE(formatMoney(Money::fromRaw(raw), format), expected);
}

void NumberFormatTest::number_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected");
    const QString three = QStringLiteral("#,###,##0.000");
    QTest::newRow("three large") << 1234567.891 << three << QStringLiteral("1,234,567.891");
    QTest::newRow("three zero") << 0.0 << three << QStringLiteral("0.000");
    QTest::newRow("three negative half") << -0.0005 << three << QStringLiteral("-0.001");
    // 15 significant digits of 1234567891234.5678 are 1234567891234.57.
    QTest::newRow("three beyond 15 digits")
        << 1234567891234.5678 << three << QStringLiteral("1,234,567,891,234.570");

    const QString two = QStringLiteral("#0.00");
    QTest::newRow("two 2.675") << 2.675 << two << QStringLiteral("2.68");
    QTest::newRow("two 1.005") << 1.005 << two << QStringLiteral("1.01");
    QTest::newRow("two -2.675") << -2.675 << two << QStringLiteral("-2.68");
    QTest::newRow("two small positive") << 0.004 << two << QStringLiteral("0.00");
    QTest::newRow("two small negative") << -0.004 << two << QStringLiteral("0.00");
    QTest::newRow("two negative zero") << -0.0 << two << QStringLiteral("0.00");
    QTest::newRow("two large") << 123456789.125 << two << QStringLiteral("123456789.13");

    const QString grouped = QStringLiteral("###,###0.00");
    QTest::newRow("grouped large") << 1234567.891 << grouped << QStringLiteral("1,234,567.89");
    QTest::newRow("grouped zero") << 0.0 << grouped << QStringLiteral("0.00");
    QTest::newRow("grouped negative") << -1234.5 << grouped << QStringLiteral("-1,234.50");
    QTest::newRow("grouped below one") << 0.5 << grouped << QStringLiteral("0.50");
    QTest::newRow("grouped very large") << 1e12 << grouped << QStringLiteral("1,000,000,000,000.00");

    const QString tenth = QStringLiteral("00.0%");
    QTest::newRow("tenth 0.05") << 0.05 << tenth << QStringLiteral("05.0%");
    QTest::newRow("tenth zero") << 0.0 << tenth << QStringLiteral("00.0%");
    QTest::newRow("tenth negative") << -0.05 << tenth << QStringLiteral("-05.0%");
    QTest::newRow("tenth large") << 12.3456 << tenth << QStringLiteral("1234.6%");
    QTest::newRow("tenth rounds to zero") << -0.00049 << tenth << QStringLiteral("00.0%");
    QTest::newRow("tenth negative half") << -0.0005 << tenth << QStringLiteral("-00.1%");

    const QString percent = QStringLiteral("0.00%");
    QTest::newRow("percent -0.125") << -0.125 << percent << QStringLiteral("-12.50%");
    QTest::newRow("percent zero") << 0.0 << percent << QStringLiteral("0.00%");
    QTest::newRow("percent one") << 1.0 << percent << QStringLiteral("100.00%");
    QTest::newRow("percent half up") << 0.123456 << percent << QStringLiteral("12.35%");
    QTest::newRow("percent large") << 250.0 << percent << QStringLiteral("25000.00%");

    const QString four = QStringLiteral("0.0000");
    QTest::newRow("four rounds") << 1.23456 << four << QStringLiteral("1.2346");
    QTest::newRow("four rounds to zero") << -0.00004 << four << QStringLiteral("0.0000");
    QTest::newRow("four negative half") << -0.00005 << four << QStringLiteral("-0.0001");
    QTest::newRow("four zero") << 0.0 << four << QStringLiteral("0.0000");
    QTest::newRow("four large") << 98765432.1 << four << QStringLiteral("98765432.1000");

    QTest::newRow("00 half") << 2.5 << QStringLiteral("00") << QStringLiteral("03");
    QTest::newRow("00 negative below half") << -0.4 << QStringLiteral("00") << QStringLiteral("00");
    QTest::newRow("0000 fraction") << 12.49 << QStringLiteral("0000") << QStringLiteral("0012");

    // Less common rules of the same function.
    QTest::newRow("optional decimals") << 1.5 << QStringLiteral("0.##") << QStringLiteral("1.5");
    QTest::newRow("optional decimals whole") << 1.0 << QStringLiteral("0.##") << QStringLiteral("1.");
    QTest::newRow("no integer place") << 0.5 << QStringLiteral(".00") << QStringLiteral(".50");
    QTest::newRow("no integer place large") << 12.5 << QStringLiteral(".00") << QStringLiteral("12.50");
    QTest::newRow("quoted literal") << 1234.0 << QStringLiteral("#,##0 \"units\"")
                                    << QStringLiteral("1,234 units");
    QTest::newRow("escaped placeholder") << 5.0 << QStringLiteral("\\#0") << QStringLiteral("#5");
    QTest::newRow("empty format") << 2.5 << QString() << QStringLiteral("2.5");
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << two << QString();
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << two << QString();
}

void NumberFormatTest::number() {
    QFETCH(double, value);
    QFETCH(QString, format);
    QFETCH(QString, expected);
    QCOMPARE(formatNumber(value, format), expected);
}

void NumberFormatTest::integer_data() {
    QTest::addColumn<qint64>("value");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected");
    QTest::newRow("00 one digit") << qint64(3) << QStringLiteral("00") << QStringLiteral("03");
    QTest::newRow("00 zero") << qint64(0) << QStringLiteral("00") << QStringLiteral("00");
    QTest::newRow("00 wider") << qint64(123) << QStringLiteral("00") << QStringLiteral("123");
    QTest::newRow("00 negative") << qint64(-7) << QStringLiteral("00") << QStringLiteral("-07");
    QTest::newRow("0000 zero") << qint64(0) << QStringLiteral("0000") << QStringLiteral("0000");
    QTest::newRow("0000 two digits") << qint64(12) << QStringLiteral("0000") << QStringLiteral("0012");
    QTest::newRow("0000 wider") << qint64(123456) << QStringLiteral("0000") << QStringLiteral("123456");
    QTest::newRow("0000 negative") << qint64(-1) << QStringLiteral("0000") << QStringLiteral("-0001");
    QTest::newRow("0000 smallest") << std::numeric_limits<qint64>::min() << QStringLiteral("0000")
                                   << QStringLiteral("-9223372036854775808");
    QTest::newRow("grouped") << qint64(-1234567) << QStringLiteral("#,##0") << QStringLiteral("-1,234,567");
    QTest::newRow("percent") << qint64(3) << QStringLiteral("0%") << QStringLiteral("300%");
}

void NumberFormatTest::integer() {
    QFETCH(qint64, value);
    QFETCH(QString, format);
    QFETCH(QString, expected);
    QCOMPARE(formatInteger(value, format), expected);
}

void NumberFormatTest::poundsUsesTheScreenFormat() {
    QCOMPARE(formatPounds(Money::fromRaw(-12345000)), QStringLiteral("-£1,234.50"));
    QCOMPARE(formatPounds(Money()), QStringLiteral("£0.00"));
}

void NumberFormatTest::versionText_data() {
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<int>("revision");
    QTest::addColumn<QString>("expected");
    QTest::newRow("6.3.0") << 6 << 3 << 0 << QStringLiteral("6.03.0000");
    QTest::newRow("1.12.345") << 1 << 12 << 345 << QStringLiteral("1.12.0345");
}

void NumberFormatTest::versionText() {
    QFETCH(int, major);
    QFETCH(int, minor);
    QFETCH(int, revision);
    QFETCH(QString, expected);
    QCOMPARE(buildVersion(major, minor, revision), expected);
}

VANTREL_TEST(NumberFormatTest);
#include "tst_numberformat.moc"
