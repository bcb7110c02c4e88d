#include "TestRegistry.h"
#include "app/TextHelpers.h"

#include <QTest>

class TextHelpersTest : public QObject {
    Q_OBJECT
private slots:
    void parseDateByMask_data();
    void parseDateByMask();
    void moneyFormat_data();
    void moneyFormat();
    void stripPound_data();
    void stripPound();
    void splitWords_data();
    void splitWords();
    void listLookups();
    void sortStrings();
    void joinPath_data();
    void joinPath();
    void wrapWords_data();
    void wrapWords();
};

void TextHelpersTest::parseDateByMask_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("expected");
    const QString screen = QStringLiteral("dd/mm/yyyy");
    QTest::newRow("screen to sql") << QStringLiteral("31/01/2012") << screen << QStringLiteral("yyyy mmm dd")
                                   << QStringLiteral("2012 Jan 31");
    QTest::newRow("memory to screen")
        << QStringLiteral("20120131") << QStringLiteral("yyyymmdd") << screen << QStringLiteral("31/01/2012");
    QTest::newRow("screen to memory")
        << QStringLiteral("05/12/2011") << screen << QStringLiteral("yyyymmdd") << QStringLiteral("20111205");
    QTest::newRow("upper-case mask") << QStringLiteral("31/01/2012") << QStringLiteral("DD/MM/YYYY")
                                     << QStringLiteral("yyyymmdd") << QStringLiteral("20120131");
    QTest::newRow("with time") << QStringLiteral("31/01/2012 14:35") << QStringLiteral("dd/mm/yyyy hh:nn")
                               << QStringLiteral("dd-mm-yyyy hh:mm") << QStringLiteral("31-01-2012 14:35");
    QTest::newRow("iso date time") << QStringLiteral("2012-01-31 10:20:30")
                                   << QStringLiteral("yyyy-mm-dd hh:nn:ss") << QStringLiteral("hh:nn:ss")
                                   << QStringLiteral("10:20:30");
    QTest::newRow("text shorter: time counts 0")
        << QStringLiteral("31/01/2012") << QStringLiteral("dd/mm/yyyy hh:nn")
        << QStringLiteral("dd/mm/yyyy hh:mm") << QStringLiteral("31/01/2012 00:00");
    QTest::newRow("text shorter: year counts 0")
        << QStringLiteral("3101") << QStringLiteral("ddmmyyyy") << screen << QStringLiteral("31/01/2000");
    QTest::newRow("two-digit year, 2000s") << QStringLiteral("31/01/12") << QStringLiteral("dd/mm/yy")
                                           << QStringLiteral("yyyymmdd") << QStringLiteral("20120131");
    QTest::newRow("two-digit year, 1900s") << QStringLiteral("31/01/75") << QStringLiteral("dd/mm/yy")
                                           << QStringLiteral("yyyymmdd") << QStringLiteral("19750131");
    QTest::newRow("text shorter: month 0") << QStringLiteral("31") << screen << screen << QString();
    QTest::newRow("day 0") << QStringLiteral("00/01/2012") << screen << screen << QString();
    QTest::newRow("no such day") << QStringLiteral("30/02/2012") << screen << screen << QString();
    QTest::newRow("hour 24") << QStringLiteral("31/01/2012 24:00") << QStringLiteral("dd/mm/yyyy hh:nn")
                             << screen << QString();
    QTest::newRow("empty") << QString() << screen << screen << QString();
}

void TextHelpersTest::parseDateByMask() {
    QFETCH(QString, text);
    QFETCH(QString, mask);
    QFETCH(QString, format);
    QFETCH(QString, expected);
    QCOMPARE(ParseDateByMask(text, mask, format), expected);
}

void TextHelpersTest::moneyFormat_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("noThousands");
    QTest::addColumn<QString>("expected");
    QTest::newRow("whole, grouped") << 0 << false << QStringLiteral("£#,###,###,##0");
    QTest::newRow("pence, grouped") << 1 << false << QStringLiteral("£#,###,###,##0.00");
    QTest::newRow("whole, plain") << 0 << true << QStringLiteral("£#########0");
    QTest::newRow("pence, plain") << 1 << true << QStringLiteral("£#########0.00");
    QTest::newRow("other kind is whole") << 2 << false << QStringLiteral("£#,###,###,##0");
}

void TextHelpersTest::moneyFormat() {
    QFETCH(int, kind);
    QFETCH(bool, noThousands);
    QFETCH(QString, expected);
    QCOMPARE(GetMoneyFormat(kind, noThousands), expected);
}

void TextHelpersTest::stripPound_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("pound") << QStringLiteral("£12.50") << QStringLiteral("12.50");
    QTest::newRow("pound minus") << QStringLiteral("£-12.50") << QStringLiteral("-12.50");
    QTest::newRow("minus first stays") << QStringLiteral("-£12.50") << QStringLiteral("-£12.50");
    QTest::newRow("no pound") << QStringLiteral("12.50") << QStringLiteral("12.50");
    QTest::newRow("pound alone") << QStringLiteral("£") << QString();
    QTest::newRow("pound minus alone") << QStringLiteral("£-") << QStringLiteral("-");
    QTest::newRow("empty") << QString() << QString();
}

void TextHelpersTest::stripPound() {
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(StripPound(text), expected);
}

void TextHelpersTest::splitWords_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("three") << QStringLiteral("line rental charges")
                           << QStringList{QStringLiteral("line"), QStringLiteral("rental"),
                                          QStringLiteral("charges")};
    QTest::newRow("extra blanks") << QStringLiteral("  a   b ")
                                  << QStringList{QStringLiteral("a"), QStringLiteral("b")};
    QTest::newRow("one") << QStringLiteral("word") << QStringList{QStringLiteral("word")};
    QTest::newRow("empty") << QString() << QStringList();
}

void TextHelpersTest::splitWords() {
    QFETCH(QString, text);
    QFETCH(QStringList, expected);
    QCOMPARE(SplitWords(text), expected);
}

void TextHelpersTest::listLookups() {
    const QStringList list{QStringLiteral("P00031"), QStringLiteral("rental"), QStringLiteral("P00031")};
    QVERIFY(ListContains(list, QStringLiteral("rental")));
    QVERIFY(!ListContains(list, QStringLiteral("Rental")));
    QVERIFY(!ListContains(list, QStringLiteral("P0003")));
    QVERIFY(!ListContains(QStringList(), QString()));
    QCOMPARE(FindInList(list, QStringLiteral("P00031")), 0);
    QCOMPARE(FindInList(list, QStringLiteral("rental")), 1);
    QCOMPARE(FindInList(list, QStringLiteral("RENTAL")), -1);
}

void TextHelpersTest::sortStrings() {
    QCOMPARE(SortStrings({QStringLiteral("banana"), QStringLiteral("Apple"), QStringLiteral("cherry"),
                          QStringLiteral("apple")}),
             (QStringList{QStringLiteral("Apple"), QStringLiteral("apple"), QStringLiteral("banana"),
                          QStringLiteral("cherry")}));
    QCOMPARE(
        SortStrings({QStringLiteral("20120131"), QStringLiteral("20111231"), QStringLiteral("20120101")}),
        (QStringList{QStringLiteral("20111231"), QStringLiteral("20120101"), QStringLiteral("20120131")}));
}

void TextHelpersTest::joinPath_data() {
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << QStringLiteral("/srv/app") << QStringLiteral("trend.mdb")
                           << QStringLiteral("/srv/app/trend.mdb");
    QTest::newRow("slash after a") << QStringLiteral("/srv/app/") << QStringLiteral("trend.mdb")
                                   << QStringLiteral("/srv/app/trend.mdb");
    QTest::newRow("slash before b") << QStringLiteral("/srv/app") << QStringLiteral("/trend.mdb")
                                    << QStringLiteral("/srv/app/trend.mdb");
    QTest::newRow("both") << QStringLiteral("/srv/app/") << QStringLiteral("/System/trend.bak")
                          << QStringLiteral("/srv/app/System/trend.bak");
    QTest::newRow("empty a") << QString() << QStringLiteral("x") << QStringLiteral("/x");
}

void TextHelpersTest::joinPath() {
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(QString, expected);
    QCOMPARE(JoinPath(a, b), expected);
}

void TextHelpersTest::wrapWords_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("limit");
    QTest::addColumn<QStringList>("expected");
    const QString a29(29, QLatin1Char('a'));
    const QString a30(30, QLatin1Char('a'));
    const QString a31(31, QLatin1Char('a'));
    QTest::newRow("short") << QStringLiteral("Line rental") << 30
                           << QStringList{QStringLiteral("Line rental")};
    QTest::newRow("exactly the limit") << a30 << 30 << QStringList{a30};
    QTest::newRow("blank at the limit")
        << a29 + QStringLiteral(" bbbb") << 30 << QStringList{a29, QStringLiteral("bbbb")};
    // The blank just past the limit is not seen; the hard cut at 31 takes it and it is trimmed.
    QTest::newRow("blank one past the limit")
        << a30 + QStringLiteral(" bb") << 30 << QStringList{a30, QStringLiteral("bb")};
    QTest::newRow("long word then blank")
        << a31 + QStringLiteral(" bb") << 30 << QStringList{a31, QStringLiteral("bb")};
    QTest::newRow("no blank") << QString(70, QLatin1Char('x')) << 30
                              << QStringList{QString(31, QLatin1Char('x')), QString(31, QLatin1Char('x')),
                                             QString(8, QLatin1Char('x'))};
    QTest::newRow("two lines") << QStringLiteral("Mobile calls to other networks in the evening period") << 30
                               << QStringList{QStringLiteral("Mobile calls to other"),
                                              QStringLiteral("networks in the evening period")};
    QTest::newRow("several lines") << QStringLiteral("one two three four five six") << 10
                                   << QStringList{QStringLiteral("one two"), QStringLiteral("three"),
                                                  QStringLiteral("four five"), QStringLiteral("six")};
    QTest::newRow("trimmed first") << QStringLiteral("   padded   ") << 30
                                   << QStringList{QStringLiteral("padded")};
    QTest::newRow("empty") << QString() << 30 << QStringList{QString()};
}

void TextHelpersTest::wrapWords() {
    QFETCH(QString, text);
    QFETCH(int, limit);
    QFETCH(QStringList, expected);
    QCOMPARE(WrapWords(text, limit), expected);
}

VANTREL_TEST(TextHelpersTest);
#include "tst_texthelpers.moc"
