#include "TestRegistry.h"
#include "app/Date.h"
#include "app/Format.h"
#include "app/TextHelpers.h"

#include <QTest>
#include <cmath>

// Dates and date-times: reading ISO text and day serials, month arithmetic, order, and the
// date formats of the screen, the SQL text and the printed titles.
class DateTest : public QObject {
    Q_OBJECT
private slots:
    void fromText_data();
    void fromText();
    void addMonths_data();
    void addMonths();
    void serial_data();
    void serial();
    void order();
    void format_data();
    void format();
    void parseDateByMask_data();
    void parseDateByMask();
};

namespace {

// One row of a data table, its cells in column order.
template <typename... Cells> void row(const char* name, const Cells&... cells) {
    (QTest::newRow(name) << ... << cells);
}

} // namespace

void DateTest::fromText_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("date");     // Date::fromIso; "" for a null date
    QTest::addColumn<QString>("dateTime"); // DateTime::fromIso
    QTest::addColumn<QString>("typed");    // parseDateText, for dates typed in
    row("date", "2012-01-31", "2012-01-31", "2012-01-31", "2012-01-31");
    row("leap day", "2012-02-29", "2012-02-29", "2012-02-29", "2012-02-29");
    row("seconds", "2012-01-31 10:20:30", "2012-01-31", "2012-01-31 10:20:30", "2012-01-31");
    row("minutes", "2012-01-31 10:20", "2012-01-31", "2012-01-31 10:20:00", "2012-01-31");
    row("T", "2012-01-31T10:20:30", "2012-01-31", "2012-01-31 10:20:30", "2012-01-31");
    row("fraction", "2012-01-31 10:20:30.250", "2012-01-31", "2012-01-31 10:20:30", "2012-01-31");
    row("midnight written as date", "2012-01-31 00:00:00", "2012-01-31", "2012-01-31", "2012-01-31");
    row("no leap day", "2011-02-29", "", "", "");
    row("day 30 of February", "2012-02-30", "", "", "");
    row("month 13", "2012-13-01", "", "", "");
    row("short month", "2012-1-31", "", "", "");
    row("signed month", "2012-+1-05", "", "", "");
    row("trailing junk", "2012-01-31x", "", "", "");
    row("empty", "", "", "", "");
    // Only the date-time reading looks at the time.
    row("one second digit", "2012-01-31 10:20:3", "2012-01-31", "", "2012-01-31");
    row("hour 24", "2012-01-31 24:00", "2012-01-31", "", "2012-01-31");
    row("minute 60", "2012-01-31 10:60", "2012-01-31", "", "2012-01-31");
    row("junk after seconds", "2012-01-31 10:20:30x", "2012-01-31", "", "2012-01-31");
    // Typed in: day first with one or two digits, or the month by name, blanks around.
    row("screen", "31/01/2012", "", "", "2012-01-31");
    row("screen single digits", "1/2/2012", "", "", "2012-02-01");
    row("screen with blanks", "  31/01/2012 ", "", "", "2012-01-31");
    row("sql", "2012 Jan 31", "", "", "2012-01-31");
    row("sql full name", "2012 february 29", "", "", "2012-02-29");
    row("no such day", "30/02/2012", "", "", "");
    row("no leap day by name", "2011 Feb 29", "", "", "");
    row("unknown month", "2012 Jnu 31", "", "", "");
    row("month thirteen", "01/13/2012", "", "", "");
    row("two digit year", "31/01/12", "", "", "");
}

void DateTest::fromText() {
    QFETCH(QString, text);
    QFETCH(QString, date);
    QFETCH(QString, dateTime);
    QFETCH(QString, typed);
    QCOMPARE(Date::fromIso(text).isValid(), !date.isEmpty());
    QCOMPARE(Date::fromIso(text).toIso(), date);
    QCOMPARE(DateTime::fromIso(text).isValid(), !dateTime.isEmpty());
    QCOMPARE(DateTime::fromIso(text).toIso(), dateTime);
    QCOMPARE(parseDateText(text).isValid(), !typed.isEmpty());
    QCOMPARE(parseDateText(text).toIso(), typed);
}

void DateTest::addMonths_data() {
    QTest::addColumn<QString>("from");
    QTest::addColumn<int>("months");
    QTest::addColumn<QString>("expected");
    row("into a leap February", "2012-01-31", 1, "2012-02-29");
    row("on to March, not through February", "2012-01-31", 2, "2012-03-31");
    row("into April", "2012-01-31", 3, "2012-04-30");
    row("common February", "2012-01-31", 13, "2013-02-28");
    row("back a year", "2012-01-31", -11, "2011-02-28");
    row("back over the year end", "2012-01-15", -1, "2011-12-15");
    row("leap day a year on", "2012-02-29", 12, "2013-02-28");
    // One month at a time the 31st is lost in February and not won back.
    row("from a clamped day", "2012-02-29", 1, "2012-03-29");
    row("null date", "", 1, "");
}

void DateTest::addMonths() {
    QFETCH(QString, from);
    QFETCH(int, months);
    QFETCH(QString, expected);
    QCOMPARE(Date::fromIso(from).addMonths(months).toIso(), expected);
}

void DateTest::serial_data() {
    QTest::addColumn<double>("serial"); // days since 1899-12-30
    QTest::addColumn<QString>("iso");
    row("epoch", 0.0, "1899-12-30");
    row("1900 begins", 2.0, "1900-01-01");
    row("1900 is no leap year", 61.0, "1900-03-01");
    row("before the epoch", -1.0, "1899-12-29");
    row("with a time", 40939.75, "2012-01-31 18:00:00");
    // Before the epoch the fraction is still the time forward from the day's start.
    row("negative with time", -1.25, "1899-12-29 06:00:00");
    row("negative half day", -0.5, "1899-12-30 12:00:00");
    row("negative rounds to the day", -1.9999999999, "1899-12-28");
    row("rounds to the next day", 1.9999999999, "1900-01-01");
}

void DateTest::serial() {
    QFETCH(double, serial);
    QFETCH(QString, iso);
    QCOMPARE(DateTime::fromSerial(serial).toIso(), iso);
    if (serial == std::floor(serial)) { // a whole day: the date alone, both ways
        QCOMPARE(Date::fromIso(iso).serial(), qlonglong(serial));
        QCOMPARE(Date::fromSerial(qlonglong(serial)), Date::fromIso(iso));
    }
}

void DateTest::order() {
    const Date jan31(2012, 1, 31), feb1(2012, 2, 1), null;
    QVERIFY(null < jan31 && jan31 < feb1); // a null date sorts first
    QCOMPARE(jan31.daysTo(feb1), 1LL);
    QCOMPARE(feb1.addDays(-1), jan31);
    QVERIFY(DateTime(jan31) < DateTime(jan31, 9, 0, 0) && DateTime(jan31, 18, 0, 0) < DateTime(feb1));
    // Parts out of range make no date, even where a byte would wrap them into range.
    for (const Date& d : {Date(2012, 0, 1), Date(2012, 1, 0), Date(2012, 257, 1), Date(2012, 1, 257),
                          Date(2012 + 65536, 1, 1)})
        QVERIFY(!d.isValid());
}

void DateTest::format_data() {
    QTest::addColumn<QString>("iso");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected");
    const char* jan31 = "2012-01-31 09:05:07"; // a Tuesday
    row("screen", jan31, "dd/mm/yyyy", "31/01/2012");
    row("sql", jan31, "yyyy mmm dd", "2012 Jan 31");
    row("memory", jan31, "yyyymmdd", "20120131");
    // m and mm after an hour are minutes.
    row("print title", jan31, "dd-mm-yyyy hh:mm", "31-01-2012 09:05");
    row("sortable list column", jan31, "yyyymmddHHMMSS", "20120131090507");
    row("midnight", "2012-01-31", "dd/mm/yyyy hh:mm", "31/01/2012 00:00");
    row("short parts", "2003-07-04", "d/m/yy", "4/7/03");
    row("time", jan31, "hh:nn:ss", "09:05:07");
    row("names", jan31, "dddd d mmmm yyyy", "Tuesday 31 January 2012");
    row("short names", "2011-12-05", "ddd mmm", "Mon Dec");
    row("day of leap year end", "2012-12-31", "y", "366");
    row("escaped letter", jan31, "\\d dd", "d 31");
    row("quoted text", jan31, "\"day\" dd", "day 31");
    row("null date", "", "dd/mm/yyyy", "");
}

void DateTest::format() {
    QFETCH(QString, iso);
    QFETCH(QString, format);
    QFETCH(QString, expected);
    const DateTime value = DateTime::fromIso(iso);
    QCOMPARE(formatDateTime(value, format), expected);
    if (!value.hasTime())
        QCOMPARE(formatDate(value.date(), format), expected);
}

void DateTest::parseDateByMask_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected"); // "" for no date
    const char* screen = "dd/mm/yyyy";
    row("screen to sql", "31/01/2012", screen, "yyyy mmm dd", "2012 Jan 31");
    row("memory to screen", "20120131", "yyyymmdd", screen, "31/01/2012");
    row("upper-case mask", "05/12/2011", "DD/MM/YYYY", "yyyymmdd", "20111205");
    row("with time", "31/01/2012 14:35", "dd/mm/yyyy hh:nn", "dd-mm-yyyy hh:mm", "31-01-2012 14:35");
    // A part the text is too short for counts 0; a missing year reads as 2000.
    row("text shorter: time counts 0", "31/01/2012", "dd/mm/yyyy hh:nn", "dd/mm/yyyy hh:mm",
        "31/01/2012 00:00");
    row("text shorter: year counts 0", "3101", "ddmmyyyy", screen, "31/01/2000");
    row("text shorter: month 0", "31", screen, screen, "");
    row("two-digit year, 2000s", "31/01/29", "dd/mm/yy", "yyyymmdd", "20290131");
    row("two-digit year, 1900s", "31/01/30", "dd/mm/yy", "yyyymmdd", "19300131");
    row("day 0", "00/01/2012", screen, screen, "");
    row("no such day", "30/02/2012", screen, screen, "");
    row("hour 24", "31/01/2012 24:00", "dd/mm/yyyy hh:nn", screen, "");
    row("empty", "", screen, screen, "");
}

void DateTest::parseDateByMask() {
    QFETCH(QString, text);
    QFETCH(QString, mask);
    QFETCH(QString, format);
    QFETCH(QString, expected);
    QCOMPARE(ParseDateByMask(text, mask, format), expected);
}

VANTREL_TEST(DateTest);
#include "tst_date.moc"
