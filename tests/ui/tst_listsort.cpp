#include "TestRegistry.h"
#include "app/ListSortRules.h"
#include "ui/ListViewHelpers.h"

#include <QHeaderView>
#include <QTest>
#include <QTreeWidget>

namespace {

// A trend list as the trend management screen fills it.
void fill(QTreeWidget& list) {
    list.setHeaderLabels({"Bill Date", "Total Bill Cost (£)", "Service"});
    setListColumnTag(&list, 0, QStringLiteral("d"));
    setListColumnTag(&list, 1, QStringLiteral("n"));
    const char* rows[][3] = {{"31/01/2012", "£1,234.500", "voice"},
                             {"05/11/2011", "-£12.500", "Data"},
                             {"28/02/2011", "£987.000", "broadband"},
                             {"01/12/2011", "£10,000.000", "Voice mail"}};
    for (const auto& row : rows)
        list.addTopLevelItem(new QTreeWidgetItem(
            QStringList{QString::fromUtf8(row[0]), QString::fromUtf8(row[1]), QString::fromUtf8(row[2])}));
}

int sign(int c) {
    return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

} // namespace

class ListSortTest : public QObject {
    Q_OBJECT
private slots:
    void cellsCompareByWhatTheyHold_data();
    void cellsCompareByWhatTheyHold();
    void headerClicksSortTheRowsWhole_data();
    void headerClicksSortTheRowsWhole();
    void columnsFitTheirWidestText();
};

void ListSortTest::cellsCompareByWhatTheyHold_data() {
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<QString>("tag");
    QTest::addColumn<int>("order"); // -1 a first, 0 same, 1 b first
    const struct {
        const char *name, *a, *b, *tag;
        int order;
    } rows[] = {
        {"dates across years", "05/01/2012", "31/12/2011", "d", 1},
        {"dates by month, not day", "31/01/2012", "01/02/2012", "d", -1},
        {"date with time", "01/02/2012 09:30", "01/02/2012 14:05", "d", -1},
        {"equal dates", "01/02/2012", "1/2/2012", "d", 0},
        {"no date sorts first", "", "01/02/2012", "d", -1},
        {"amounts by value", "£9.99", "£10.00", "n", -1},
        {"thousands", "£1,234.50", "£987.00", "n", 1},
        {"two negatives", "-£12.50", "-£2.50", "n", -1},
        {"percentages", "-12.5%", "3.0%", "n", -1},
        {"percent by value", "100.0%", "20.0%", "n", 1},
        {"minus after the pound sign", "£-0.05", "£0.00", "n", -1},
        {"three decimals", "£10,000.125", "£10,000.12", "n", 1},
        {"brackets are negative", "(£3.00)", "-£2.99", "n", -1},
        {"dash sorts first", "-", "-£100.00", "n", -1},
        {"text ignores case", "apple", "Banana", "", -1},
        {"text with digits as text", "10", "9", "", -1},
    };
    for (const auto& r : rows)
        QTest::newRow(r.name) << QString::fromUtf8(r.a) << QString::fromUtf8(r.b) << QString::fromUtf8(r.tag)
                              << r.order;
}

void ListSortTest::cellsCompareByWhatTheyHold() {
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(QString, tag);
    QFETCH(int, order);
    QCOMPARE(sign(compareListCells(a, b, listColumnKind(tag))), order);
    QCOMPARE(sign(compareListCells(b, a, listColumnKind(tag))), -order);
}

void ListSortTest::headerClicksSortTheRowsWhole_data() {
    QTest::addColumn<QList<int>>("clicks");
    QTest::addColumn<QString>("order"); // the rows as filled, top to bottom after the clicks
    QTest::addColumn<QString>("marks"); // the mark each header ends in, '-' for none
    QTest::newRow("dates ascending") << QList<int>{0} << "2130"
                                     << "^--";
    QTest::newRow("again: descending") << QList<int>{0, 0} << "0312"
                                       << "v--";
    // Another column starts ascending and the old mark goes.
    QTest::newRow("amounts by value") << QList<int>{0, 0, 1} << "1203"
                                      << "-^-";
    QTest::newRow("amounts descending") << QList<int>{1, 1} << "3021"
                                        << "-v-";
    QTest::newRow("text ignores case") << QList<int>{2} << "2103"
                                       << "--^";
}

void ListSortTest::headerClicksSortTheRowsWhole() {
    QFETCH(QList<int>, clicks);
    QFETCH(QString, order);
    QFETCH(QString, marks);
    QTreeWidget list;
    fill(list);
    QStringList filled, expected, headers;
    for (int i = 0; i < 4; ++i)
        filled << list.topLevelItem(i)->text(0) + list.topLevelItem(i)->text(2);
    for (QChar row : order)
        expected << filled[row.digitValue()];
    for (int c = 0; c < 3; ++c)
        headers << (marks[c] == '-' ? list.headerItem()->text(c)
                                    : list.headerItem()->text(c) + ' ' + marks[c]);
    sortListOnHeaderClick(&list);
    QTreeWidgetItem* chosen = list.topLevelItem(2);
    list.setCurrentItem(chosen);
    for (int column : clicks)
        emit list.header()->sectionClicked(column);
    QStringList shown, shownHeaders;
    for (int i = 0; i < 4; ++i)
        shown << list.topLevelItem(i)->text(0) + list.topLevelItem(i)->text(2);
    for (int c = 0; c < 3; ++c)
        shownHeaders << list.headerItem()->text(c);
    QCOMPARE(shown, expected);
    QCOMPARE(shownHeaders, headers);
    // A "v" ending a word is no mark.
    QCOMPARE(headerWithoutSortMark(QStringLiteral("Dev")), QStringLiteral("Dev"));
    // The selection moves with its row, and the header still takes clicks.
    QCOMPARE(list.currentItem(), chosen);
    QVERIFY(chosen->isSelected());
    QVERIFY(list.header()->sectionsClickable());
}

void ListSortTest::columnsFitTheirWidestText() {
    QTreeWidget list;
    fill(list);
    const QString longest = QStringLiteral("A service description far longer than its column heading");
    list.addTopLevelItem(new QTreeWidgetItem(QStringList{"01/01/2010", "£1.00", longest}));
    list.show();
    for (int c = 0; c < 3; ++c)
        list.setColumnWidth(c, 10);
    FitListViewColumns(&list);
    QVERIFY(list.columnWidth(2) >= list.fontMetrics().horizontalAdvance(longest));
    QVERIFY(list.columnWidth(1) >=
            list.fontMetrics().horizontalAdvance(QStringLiteral("Total Bill Cost (£)")));
}

VANTREL_TEST(ListSortTest);
#include "tst_listsort.moc"
