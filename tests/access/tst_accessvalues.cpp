#include "TestRegistry.h"
#include "data/AccessColumn.h"

#include <QTest>

class AccessValuesTest : public QObject {
    Q_OBJECT
private slots:
    void dates_data();
    void dates();
    void singles_data();
    void singles();
};

void AccessValuesTest::dates_data() {
    QTest::addColumn<double>("serial");
    QTest::addColumn<QString>("iso"); // empty: no date

    QTest::newRow("epoch") << 0.0 << "1899-12-30";
    QTest::newRow("noon of the epoch") << 0.5 << "1899-12-30 12:00:00";
    QTest::newRow("a time of day") << 44532.650103831016 << "2021-12-02 15:36:09"; // 56168.97 s
    QTest::newRow("a second before midnight") << 1.0 + 86399.0 / 86400.0 << "1899-12-31 23:59:59";
    // Before the epoch the whole part counts the days back and the fraction the time forward.
    QTest::newRow("a day back, 06:00") << -1.25 << "1899-12-29 06:00:00";
    QTest::newRow("two days back, 18:00") << -2.75 << "1899-12-28 18:00:00";
    QTest::newRow("first allowed day") << -657434.0 << "0100-01-01";
    QTest::newRow("last allowed day") << 2958465.0 << "9999-12-31";
    QTest::newRow("last allowed second") << 2958465.0 + 86399.0 / 86400.0 << "9999-12-31 23:59:59";
    QTest::newRow("after the year 9999") << 2958466.0 << "";
    QTest::newRow("before the year 100") << -657435.0 << "";
    QTest::newRow("not a number") << std::nan("") << "";
    QTest::newRow("infinite") << HUGE_VAL << "";
}

void AccessValuesTest::dates() {
    QFETCH(double, serial);
    QFETCH(QString, iso);
    QCOMPARE(isoFromAccessSerial(serial), iso);
}

void AccessValuesTest::singles_data() {
    QTest::addColumn<float>("single");
    QTest::addColumn<double>("expected");
    QTest::newRow("0.15") << 0.15f << 0.15;
    QTest::newRow("0.175") << 0.175f << 0.175;
    QTest::newRow("17.5") << 17.5f << 17.5;
    QTest::newRow("-0.05") << -0.05f << -0.05;
    QTest::newRow("1234567") << 1234567.0f << 1234567.0;
    QTest::newRow("0") << 0.0f << 0.0;
}

void AccessValuesTest::singles() {
    QFETCH(float, single);
    QFETCH(double, expected);
    QCOMPARE(realFromSingle(single), expected);
}

VANTREL_TEST(AccessValuesTest);
#include "tst_accessvalues.moc"
