#include "TestRegistry.h"
#include "app/Format.h"
#include "app/Money.h"

#include <QTest>
#include <limits>

// Amounts in ten-thousandths: rounding into them, reading them, and writing them and other
// numbers through a format. Expected texts are worked out by hand from the format rules: half
// away from zero, the minus sign before any literal, no minus on a value that rounds to zero.
class MoneyTest : public QObject {
    Q_OBJECT
private slots:
    void fromDoubleRoundsHalfToEven_data();
    void fromDoubleRoundsHalfToEven();
    void parse_data();
    void parse();
    void formatMoney_data();
    void formatMoney();
    void formatNumber_data();
    void formatNumber();
};

namespace {

// One row of a data table, its cells in column order.
template <typename... Cells> void row(const char* name, const Cells&... cells) {
    (QTest::newRow(name) << ... << cells);
}

} // namespace

void MoneyTest::fromDoubleRoundsHalfToEven_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<qint64>("raw");
    row("half to even zero", 0.00005, 0LL);
    row("half to even two", 0.00015, 2LL);
    row("half stays two", 0.00025, 2LL);
    row("negative half to even", -1.00005, -10000LL);
    row("negative half up in size", -0.00015, -2LL);
    // 1234.56785 is stored a hair below the half; it still counts as the half.
    row("binary noise at the half", 1234.56785, 12345678LL);
    row("below half", 0.12344, 1234LL);
    row("above half", 0.12346, 1235LL);
    // Beyond the range: the nearest end; not a number: zero.
    row("too large", 1e20, std::numeric_limits<qint64>::max());
    row("too small", -1e20, std::numeric_limits<qint64>::min());
    row("not a number", std::numeric_limits<double>::quiet_NaN(), 0LL);
}

void MoneyTest::fromDoubleRoundsHalfToEven() {
    QFETCH(double, value);
    QFETCH(qint64, raw);
    QCOMPARE(Money::fromDouble(value).raw(), raw);
}

void MoneyTest::parse_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<qint64>("raw");
    row("decimal", "12.5", true, 125000LL);
    row("negative", "-12.5", true, -125000LL);
    row("plus", "+3", true, 30000LL);
    row("four decimals", "1234.5678", true, 12345678LL);
    row("point last", "1.", true, 10000LL);
    row("point first", ".5", true, 5000LL);
    row("blanks around", "  7.25 ", true, 72500LL);
    // A fifth decimal rounds half to even, as fromDouble does.
    row("fifth decimal half, odd", "1.23455", true, 12346LL);
    row("fifth decimal half, even", "1.23445", true, 12344LL);
    row("just above half", "1.234450001", true, 12345LL);
    row("negative half", "-0.00015", true, -2LL);
    row("above half far out", "0.000050000000000000000001", true, 1LL);
    row("near the top", "922337203685476.9999", true, 9223372036854769999LL);
    row("too large", "922337203685478", false, 0LL);
    row("far too large", "99999999999999999999", false, 0LL);
    row("empty", "", false, 0LL);
    row("sign only", "-", false, 0LL);
    row("point only", ".", false, 0LL);
    row("grouped", "1,234.50", false, 0LL);
    row("pound", "£1", false, 0LL);
    row("two points", "1.2.3", false, 0LL);
    row("exponent", "1e5", false, 0LL);
    row("inner blank", "1 2", false, 0LL);
    row("two signs", "--1", false, 0LL);
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

void MoneyTest::formatMoney_data() {
    QTest::addColumn<qint64>("raw");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected");
    const char* screen = "£###,##0.00";
    row("screen negative", -12345000LL, screen, "-£1,234.50");
    row("screen large", 12345678910LL, screen, "£1,234,567.89");
    row("screen half up", 50LL, screen, "£0.01");
    row("screen half away below zero", -50LL, screen, "-£0.01");
    row("screen rounds to zero", -49LL, screen, "£0.00");
    row("screen carry into a group", 9999950LL, screen, "£1,000.00");
    row("screen largest", std::numeric_limits<qint64>::max(), screen, "£922,337,203,685,477.58");
    row("screen smallest", std::numeric_limits<qint64>::min(), screen, "-£922,337,203,685,477.58");
    const char* whole = "£#,###,###,##0";
    row("whole negative half", -12345000LL, whole, "-£1,235");
    row("whole more digits than places", 1234567890123450000LL, whole, "£123,456,789,012,345");
    row("plain negative", -12345678910LL, "£#########0.00", "-£1234567.89");
    row("empty format", 125000LL, "", "12.5");
    row("empty format negative", -10000LL, "", "-1");
}

void MoneyTest::formatMoney() {
    QFETCH(qint64, raw);
    QFETCH(QString, format);
    QFETCH(QString, expected);
    QCOMPARE(::formatMoney(Money::fromRaw(raw), format), expected);
    if (format == QStringLiteral("£###,##0.00")) // the screen format has a function of its own
        QCOMPARE(formatPounds(Money::fromRaw(raw)), expected);
}

void MoneyTest::formatNumber_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected");
    const char* three = "#,###,##0.000";
    row("three negative half", -0.0005, three, "-0.001");
    // 15 significant digits of 1234567891234.5678 are 1234567891234.57.
    row("three beyond 15 digits", 1234567891234.5678, three, "1,234,567,891,234.570");
    // Rounding on the 15-digit decimal form: 2.675 is stored as 2.67499999...
    row("two 2.675", 2.675, "#0.00", "2.68");
    row("two 1.005", 1.005, "#0.00", "1.01");
    row("two small negative", -0.004, "#0.00", "0.00");
    row("two negative zero", -0.0, "#0.00", "0.00");
    // Groups of three wherever the comma stands.
    row("grouped", 1234567.891, "###,###0.00", "1,234,567.89");
    row("tenth 0.05", 0.05, "00.0%", "05.0%");
    row("tenth more digits than places", 12.3456, "00.0%", "1234.6%");
    row("percent -0.125", -0.125, "0.00%", "-12.50%");
    row("percent half up", 0.123456, "0.00%", "12.35%");
    row("four large", 98765432.1, "0.0000", "98765432.1000");
    row("half away, not to even", 2.5, "00", "03");
    row("optional decimals", 1.5, "0.##", "1.5");
    row("optional decimals whole", 1.0, "0.##", "1.");
    row("no integer place", 0.5, ".00", ".50");
    row("no integer place large", 12.5, ".00", "12.50");
    row("quoted literal", 1234.0, "#,##0 \"units\"", "1,234 units");
    row("escaped placeholder", 5.0, "\\#0", "#5");
    row("empty format", 2.5, "", "2.5");
    row("not a number", std::numeric_limits<double>::quiet_NaN(), "#0.00", "");
}

void MoneyTest::formatNumber() {
    QFETCH(double, value);
    QFETCH(QString, format);
    QFETCH(QString, expected);
    QCOMPARE(::formatNumber(value, format), expected);
}

VANTREL_TEST(MoneyTest);
#include "tst_money.moc"
