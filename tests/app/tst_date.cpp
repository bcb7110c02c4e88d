#include "TestRegistry.h"
#include "app/Date.h"

#include <QTest>

class DateTest : public QObject {
    Q_OBJECT
private slots:
    void fromIso_data();
    void fromIso();
    void constructorRejectsWhatDoesNotExist();
    void addMonths_data();
    void addMonths();
    void addMonthsStepByStepKeepsTheClampedDay();
    void serial_data();
    void serial();
    void comparisons();
    void dateTimeFromIso_data();
    void dateTimeFromIso();
    void dateTimeFromSerial_data();
    void dateTimeFromSerial();
};

void DateTest::fromIso_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("iso"); // "" for a null date
    QTest::newRow("date") << QStringLiteral("2012-01-31") << QStringLiteral("2012-01-31");
    QTest::newRow("leap day") << QStringLiteral("2012-02-29") << QStringLiteral("2012-02-29");
    QTest::newRow("time ignored") << QStringLiteral("2012-01-31 10:00:00") << QStringLiteral("2012-01-31");
    QTest::newRow("no leap day") << QStringLiteral("2011-02-29") << QString();
    QTest::newRow("day 30 of February") << QStringLiteral("2012-02-30") << QString();
    QTest::newRow("month 13") << QStringLiteral("2012-13-01") << QString();
    QTest::newRow("short month") << QStringLiteral("2012-1-31") << QString();
    QTest::newRow("signed month") << QStringLiteral("2012-+1-05") << QString();
    QTest::newRow("blank in month") << QStringLiteral("2012- 1-05") << QString();
    QTest::newRow("day first") << QStringLiteral("31/01/2012") << QString();
    QTest::newRow("trailing junk") << QStringLiteral("2012-01-31x") << QString();
    QTest::newRow("empty") << QString() << QString();
}

void DateTest::fromIso() {
    QFETCH(QString, text);
    QFETCH(QString, iso);
    const Date d = Date::fromIso(text);
    QCOMPARE(d.isValid(), !iso.isEmpty());
    QCOMPARE(d.toIso(), iso);
}

void DateTest::constructorRejectsWhatDoesNotExist() {
    QVERIFY(Date(2012, 1, 31).isValid());
    QVERIFY(!Date(2012, 0, 1).isValid());
    QVERIFY(!Date(2012, 1, 0).isValid());
    QVERIFY(!Date(2012, 257, 1).isValid()); // would wrap to January in a byte
    QVERIFY(!Date(2012, 1, 257).isValid());
    QVERIFY(!Date(2012 + 65536, 1, 1).isValid());
}

void DateTest::addMonths_data() {
    QTest::addColumn<QString>("from");
    QTest::addColumn<int>("months");
    QTest::addColumn<QString>("expected");
    QTest::newRow("into a leap February")
        << QStringLiteral("2012-01-31") << 1 << QStringLiteral("2012-02-29");
    QTest::newRow("on to March") << QStringLiteral("2012-01-31") << 2 << QStringLiteral("2012-03-31");
    QTest::newRow("into April") << QStringLiteral("2012-01-31") << 3 << QStringLiteral("2012-04-30");
    QTest::newRow("common February") << QStringLiteral("2012-01-31") << 13 << QStringLiteral("2013-02-28");
    QTest::newRow("back a year") << QStringLiteral("2012-01-31") << -11 << QStringLiteral("2011-02-28");
    QTest::newRow("back over the year end")
        << QStringLiteral("2012-01-15") << -1 << QStringLiteral("2011-12-15");
    QTest::newRow("leap day a year on") << QStringLiteral("2012-02-29") << 12 << QStringLiteral("2013-02-28");
    QTest::newRow("none") << QStringLiteral("2012-01-31") << 0 << QStringLiteral("2012-01-31");
}

void DateTest::addMonths() {
    QFETCH(QString, from);
    QFETCH(int, months);
    QFETCH(QString, expected);
    QCOMPARE(Date::fromIso(from).addMonths(months).toIso(), expected);
}

void DateTest::addMonthsStepByStepKeepsTheClampedDay() {
    // One month at a time the 31st is lost in February and not won back.
    Date d = Date(2012, 1, 31);
    d = d.addMonths(1);
    QCOMPARE(d.toIso(), QStringLiteral("2012-02-29"));
    d = d.addMonths(1);
    QCOMPARE(d.toIso(), QStringLiteral("2012-03-29"));
    QVERIFY(!Date().addMonths(1).isValid());
}

void DateTest::serial_data() {
    QTest::addColumn<QString>("iso");
    QTest::addColumn<qlonglong>("serial");
    QTest::newRow("epoch") << QStringLiteral("1899-12-30") << 0LL;
    QTest::newRow("next day") << QStringLiteral("1899-12-31") << 1LL;
    QTest::newRow("1900 begins") << QStringLiteral("1900-01-01") << 2LL;
    QTest::newRow("1900 is no leap year") << QStringLiteral("1900-03-01") << 61LL;
    QTest::newRow("before the epoch") << QStringLiteral("1899-12-29") << -1LL;
    QTest::newRow("2012") << QStringLiteral("2012-01-31") << 40939LL;
}

void DateTest::serial() {
    QFETCH(QString, iso);
    QFETCH(qlonglong, serial);
    const Date d = Date::fromIso(iso);
    QCOMPARE(d.serial(), serial);
    QCOMPARE(Date::fromSerial(serial), d);
}

void DateTest::comparisons() {
    const Date jan31(2012, 1, 31), feb1(2012, 2, 1), null;
    QVERIFY(jan31 < feb1);
    QVERIFY(feb1 > jan31);
    QVERIFY(jan31 == Date::fromIso(QStringLiteral("2012-01-31")));
    QVERIFY(jan31 != feb1);
    QVERIFY(null < jan31); // a null date sorts first
    QVERIFY(null == Date());
    QVERIFY(null != jan31);
    QCOMPARE(jan31.daysTo(feb1), 1LL);
    QCOMPARE(feb1.addDays(-1), jan31);

    const DateTime morning(jan31, 9, 0, 0), evening(jan31, 18, 0, 0);
    QVERIFY(morning < evening);
    QVERIFY(DateTime(jan31) < morning);
    QVERIFY(evening < DateTime(feb1));
}

void DateTest::dateTimeFromIso_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("iso"); // "" for a null value
    QTest::newRow("seconds") << QStringLiteral("2012-01-31 10:20:30")
                             << QStringLiteral("2012-01-31 10:20:30");
    QTest::newRow("minutes") << QStringLiteral("2012-01-31 10:20") << QStringLiteral("2012-01-31 10:20:00");
    QTest::newRow("T") << QStringLiteral("2012-01-31T10:20:30") << QStringLiteral("2012-01-31 10:20:30");
    QTest::newRow("fraction") << QStringLiteral("2012-01-31 10:20:30.250")
                              << QStringLiteral("2012-01-31 10:20:30");
    QTest::newRow("date only") << QStringLiteral("2012-01-31") << QStringLiteral("2012-01-31");
    QTest::newRow("midnight written as date")
        << QStringLiteral("2012-01-31 00:00:00") << QStringLiteral("2012-01-31");
    QTest::newRow("one second digit") << QStringLiteral("2012-01-31 10:20:3") << QString();
    QTest::newRow("colon without seconds") << QStringLiteral("2012-01-31 10:20:") << QString();
    QTest::newRow("hour 24") << QStringLiteral("2012-01-31 24:00") << QString();
    QTest::newRow("minute 60") << QStringLiteral("2012-01-31 10:60") << QString();
    QTest::newRow("junk after seconds") << QStringLiteral("2012-01-31 10:20:30x") << QString();
}

void DateTest::dateTimeFromIso() {
    QFETCH(QString, text);
    QFETCH(QString, iso);
    const DateTime v = DateTime::fromIso(text);
    QCOMPARE(v.isValid(), !iso.isEmpty());
    QCOMPARE(v.toIso(), iso);
}

void DateTest::dateTimeFromSerial_data() {
    QTest::addColumn<double>("serial");
    QTest::addColumn<QString>("iso");
    // Before the epoch the fraction is still the time forward from the day's start.
    QTest::newRow("negative with time") << -1.25 << QStringLiteral("1899-12-29 06:00:00");
    QTest::newRow("negative half day") << -0.5 << QStringLiteral("1899-12-30 12:00:00");
    QTest::newRow("negative whole") << -2.0 << QStringLiteral("1899-12-28");
    QTest::newRow("negative rounds to the day") << -1.9999999999 << QStringLiteral("1899-12-28");
    QTest::newRow("positive") << 40939.75 << QStringLiteral("2012-01-31 18:00:00");
    QTest::newRow("rounds to the next day") << 1.9999999999 << QStringLiteral("1900-01-01");
    QTest::newRow("epoch") << 0.0 << QStringLiteral("1899-12-30");
}

void DateTest::dateTimeFromSerial() {
    QFETCH(double, serial);
    QFETCH(QString, iso);
    QCOMPARE(DateTime::fromSerial(serial).toIso(), iso);
}

VANTREL_TEST(DateTest);
#include "tst_date.moc"
