#include "TestRegistry.h"
#include "app/Format.h"

#include <QTest>

class DateFormatTest : public QObject {
    Q_OBJECT
private slots:
    void format_data();
    void format();
    void nullDateIsEmpty();
    void parse_data();
    void parse();
};

void DateFormatTest::format_data() {
    QTest::addColumn<QString>("iso");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected");
    const QString jan31 = QStringLiteral("2012-01-31 09:05:07"); // a Tuesday
    QTest::newRow("screen") << jan31 << QStringLiteral("dd/mm/yyyy") << QStringLiteral("31/01/2012");
    QTest::newRow("day month name") << jan31 << QStringLiteral("dd mmm yyyy")
                                    << QStringLiteral("31 Jan 2012");
    QTest::newRow("sql") << jan31 << QStringLiteral("yyyy mmm dd") << QStringLiteral("2012 Jan 31");
    QTest::newRow("memory") << jan31 << QStringLiteral("yyyymmdd") << QStringLiteral("20120131");
    QTest::newRow("print title") << jan31 << QStringLiteral("dd-mm-yyyy hh:mm")
                                 << QStringLiteral("31-01-2012 09:05");
    QTest::newRow("log line") << jan31 << QStringLiteral("dd/mm/yyyy hh:mm")
                              << QStringLiteral("31/01/2012 09:05");
    QTest::newRow("midnight") << QStringLiteral("2012-01-31") << QStringLiteral("dd/mm/yyyy hh:mm")
                              << QStringLiteral("31/01/2012 00:00");
    QTest::newRow("short parts") << QStringLiteral("2003-07-04") << QStringLiteral("d/m/yy")
                                 << QStringLiteral("4/7/03");
    QTest::newRow("time") << jan31 << QStringLiteral("hh:nn:ss") << QStringLiteral("09:05:07");
    QTest::newRow("time short") << jan31 << QStringLiteral("h:n:s") << QStringLiteral("9:5:7");
    QTest::newRow("month after date then minutes")
        << jan31 << QStringLiteral("mm/dd hh:mm") << QStringLiteral("01/31 09:05");
    QTest::newRow("upper case") << jan31 << QStringLiteral("DD/MM/YYYY") << QStringLiteral("31/01/2012");
    QTest::newRow("names") << jan31 << QStringLiteral("dddd d mmmm yyyy")
                           << QStringLiteral("Tuesday 31 January 2012");
    QTest::newRow("short day name") << jan31 << QStringLiteral("ddd") << QStringLiteral("Tue");
    QTest::newRow("leap day") << QStringLiteral("2012-02-29") << QStringLiteral("dd mmm yyyy")
                              << QStringLiteral("29 Feb 2012");
    QTest::newRow("december name") << QStringLiteral("2011-12-05") << QStringLiteral("yyyy mmm dd")
                                   << QStringLiteral("2011 Dec 05");
    QTest::newRow("day of year") << jan31 << QStringLiteral("y") << QStringLiteral("31");
    QTest::newRow("day of leap year end")
        << QStringLiteral("2012-12-31") << QStringLiteral("y") << QStringLiteral("366");
    QTest::newRow("escaped letter") << jan31 << QStringLiteral("\\d dd") << QStringLiteral("d 31");
    QTest::newRow("quoted text") << jan31 << QStringLiteral("\"day\" dd") << QStringLiteral("day 31");
    QTest::newRow("sortable") << jan31 << QStringLiteral("yyyymmddhhnnss")
                              << QStringLiteral("20120131090507");
    QTest::newRow("sortable list column")
        << jan31 << QStringLiteral("yyyymmddHHMMSS") << QStringLiteral("20120131090507");
}

void DateFormatTest::format() {
    QFETCH(QString, iso);
    QFETCH(QString, format);
    QFETCH(QString, expected);
    const DateTime value = DateTime::fromIso(iso);
    QVERIFY(value.isValid());
    QCOMPARE(formatDateTime(value, format), expected);
    if (!value.hasTime())
        QCOMPARE(formatDate(value.date(), format), expected);
}

void DateFormatTest::nullDateIsEmpty() {
    QCOMPARE(formatDate(Date(), QStringLiteral("dd/mm/yyyy")), QString());
    QCOMPARE(formatDateTime(DateTime(), QStringLiteral("dd/mm/yyyy hh:mm")), QString());
}

void DateFormatTest::parse_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("iso"); // "" for a null date
    QTest::newRow("screen") << QStringLiteral("31/01/2012") << QStringLiteral("2012-01-31");
    QTest::newRow("screen single digits") << QStringLiteral("1/2/2012") << QStringLiteral("2012-02-01");
    QTest::newRow("screen with blanks") << QStringLiteral("  31/01/2012 ") << QStringLiteral("2012-01-31");
    QTest::newRow("sql") << QStringLiteral("2012 Jan 31") << QStringLiteral("2012-01-31");
    QTest::newRow("sql upper case") << QStringLiteral("2012 DEC 05") << QStringLiteral("2012-12-05");
    QTest::newRow("sql full name") << QStringLiteral("2012 february 29") << QStringLiteral("2012-02-29");
    QTest::newRow("iso") << QStringLiteral("2012-01-31") << QStringLiteral("2012-01-31");
    QTest::newRow("iso with time") << QStringLiteral("2012-01-31 10:20:30") << QStringLiteral("2012-01-31");
    QTest::newRow("no such day") << QStringLiteral("30/02/2012") << QString();
    QTest::newRow("no leap day") << QStringLiteral("2011 Feb 29") << QString();
    QTest::newRow("unknown month") << QStringLiteral("2012 Jnu 31") << QString();
    QTest::newRow("month thirteen") << QStringLiteral("01/13/2012") << QString();
    QTest::newRow("dashes day first") << QStringLiteral("31-01-2012") << QString();
    QTest::newRow("two digit year") << QStringLiteral("31/01/12") << QString();
    QTest::newRow("slashes year first") << QStringLiteral("2012/01/31") << QString();
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("words") << QStringLiteral("yesterday") << QString();
}

void DateFormatTest::parse() {
    QFETCH(QString, text);
    QFETCH(QString, iso);
    const Date d = parseDateText(text);
    QCOMPARE(d.isValid(), !iso.isEmpty());
    QCOMPARE(d.toIso(), iso);
}

VANTREL_TEST(DateFormatTest);
#include "tst_dateformat.moc"
