#include "TestRegistry.h"
#include "app/ListSortRules.h"
#include "app/Money.h"
#include "ui/ListViewHelpers.h"

#include <QHeaderView>
#include <QTest>
#include <QTreeWidget>

namespace {

QStringList column(const QTreeWidget& list, int c) {
    QStringList out;
    for (int i = 0; i < list.topLevelItemCount(); ++i)
        out << list.topLevelItem(i)->text(c);
    return out;
}

// A trend list as the trend management screen fills it.
void fill(QTreeWidget& list) {
    list.setColumnCount(3);
    list.setHeaderLabels(
        {QStringLiteral("Bill Date"), QStringLiteral("Total Bill Cost (£)"), QStringLiteral("Service")});
    setListColumnTag(&list, 0, QStringLiteral("d"));
    setListColumnTag(&list, 1, QStringLiteral("n"));
    const char* rows[][3] = {
        {"31/01/2012", "£1,234.500", "voice"},
        {"05/11/2011", "-£12.500", "Data"},
        {"28/02/2011", "£987.000", "broadband"},
        {"01/12/2011", "£10,000.000", "Voice mail"},
    };
    for (const auto& row : rows)
        list.addTopLevelItem(new QTreeWidgetItem(
            QStringList{QString::fromUtf8(row[0]), QString::fromUtf8(row[1]), QString::fromUtf8(row[2])}));
}

} // namespace

class ListSortTest : public QObject {
    Q_OBJECT
private slots:
    void cellsCompareByWhatTheyHold_data();
    void cellsCompareByWhatTheyHold();
    void numbersReadFromDisplayText_data();
    void numbersReadFromDisplayText();
    void headerMarks();
    void datesSortAscendingThenDescending();
    void anotherColumnStartsAscendingAndTheOldMarkGoes();
    void textColumnsSortAsText();
    void selectionSurvivesTheSort();
    void headerClickSorts();
    void columnsFitTheirWidestText();
};

void ListSortTest::cellsCompareByWhatTheyHold_data() {
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<QString>("tag");
    QTest::addColumn<int>("order"); // -1 a first, 0 same, 1 b first
    QTest::newRow("dates across years") << "05/01/2012"
                                        << "31/12/2011"
                                        << "d" << 1;
    QTest::newRow("dates by month, not day") << "31/01/2012"
                                             << "01/02/2012"
                                             << "d" << -1;
    QTest::newRow("date with time") << "01/02/2012 09:30"
                                    << "01/02/2012 14:05"
                                    << "d" << -1;
    QTest::newRow("equal dates") << "01/02/2012"
                                 << "1/2/2012"
                                 << "d" << 0;
    QTest::newRow("no date sorts first") << ""
                                         << "01/02/2012"
                                         << "d" << -1;
    QTest::newRow("amounts by value") << "£9.99"
                                      << "£10.00"
                                      << "n" << -1;
    QTest::newRow("thousands") << "£1,234.50"
                               << "£987.00"
                               << "n" << 1;
    QTest::newRow("negative amount") << "-£12.50"
                                     << "£1.00"
                                     << "n" << -1;
    QTest::newRow("two negatives") << "-£12.50"
                                   << "-£2.50"
                                   << "n" << -1;
    QTest::newRow("percentages") << "-12.5%"
                                 << "3.0%"
                                 << "n" << -1;
    QTest::newRow("percent by value") << "100.0%"
                                      << "20.0%"
                                      << "n" << 1;
    QTest::newRow("dash sorts first") << "-"
                                      << "-£100.00"
                                      << "n" << -1;
    QTest::newRow("text ignores case") << "apple"
                                       << "Banana"
                                       << "" << -1;
    QTest::newRow("text with digits as text") << "10"
                                              << "9"
                                              << "" << -1;
}

void ListSortTest::cellsCompareByWhatTheyHold() {
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(QString, tag);
    QFETCH(int, order);
    const int c = compareListCells(a, b, listColumnKind(tag));
    QCOMPARE(c < 0 ? -1 : (c > 0 ? 1 : 0), order);
    const int reverse = compareListCells(b, a, listColumnKind(tag));
    QCOMPARE(reverse < 0 ? -1 : (reverse > 0 ? 1 : 0), -order);
}

void ListSortTest::numbersReadFromDisplayText_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("tenThousandths");
    QTest::newRow("pounds") << "£1,234.50" << qint64(12345000);
    QTest::newRow("minus first") << "-£1,234.50" << qint64(-12345000);
    QTest::newRow("minus after the sign") << "£-0.05" << qint64(-500);
    QTest::newRow("three decimals") << "£10,000.125" << qint64(100001250);
    QTest::newRow("percentage") << "-12.5%" << qint64(-125000);
    QTest::newRow("brackets") << "(£3.00)" << qint64(-30000);
}

void ListSortTest::numbersReadFromDisplayText() {
    QFETCH(QString, text);
    QFETCH(qint64, tenThousandths);
    const std::optional<Money> value = listCellNumber(text);
    QVERIFY(value);
    QCOMPARE(value->raw(), tenThousandths);
}

void ListSortTest::headerMarks() {
    QCOMPARE(headerWithSortMark(QStringLiteral("Bill Date"), true), QStringLiteral("Bill Date ^"));
    QCOMPARE(headerWithSortMark(QStringLiteral("Bill Date ^"), false), QStringLiteral("Bill Date v"));
    QCOMPARE(headerWithoutSortMark(QStringLiteral("Bill Date v")), QStringLiteral("Bill Date"));
    // A "v" inside the words is no mark.
    QCOMPARE(headerWithoutSortMark(QStringLiteral("Service Level")), QStringLiteral("Service Level"));
    QCOMPARE(headerWithoutSortMark(QStringLiteral("Dev")), QStringLiteral("Dev"));
}

void ListSortTest::datesSortAscendingThenDescending() {
    QTreeWidget list;
    fill(list);
    SortListByColumn(&list, 0);
    QCOMPARE(column(list, 0), (QStringList{"28/02/2011", "05/11/2011", "01/12/2011", "31/01/2012"}));
    QCOMPARE(list.headerItem()->text(0), QStringLiteral("Bill Date ^"));
    QCOMPARE(listSortColumn(&list), 0);
    QVERIFY(listSortAscending(&list));

    SortListByColumn(&list, 0);
    QCOMPARE(column(list, 0), (QStringList{"31/01/2012", "01/12/2011", "05/11/2011", "28/02/2011"}));
    QCOMPARE(list.headerItem()->text(0), QStringLiteral("Bill Date v"));
    QVERIFY(!listSortAscending(&list));
}

void ListSortTest::anotherColumnStartsAscendingAndTheOldMarkGoes() {
    QTreeWidget list;
    fill(list);
    SortListByColumn(&list, 0);
    SortListByColumn(&list, 0); // descending on dates
    SortListByColumn(&list, 1);
    QCOMPARE(list.headerItem()->text(0), QStringLiteral("Bill Date"));
    QCOMPARE(list.headerItem()->text(1), QStringLiteral("Total Bill Cost (£) ^"));
    QCOMPARE(column(list, 1), (QStringList{"-£12.500", "£987.000", "£1,234.500", "£10,000.000"}));
    // The rows move whole.
    QCOMPARE(column(list, 0), (QStringList{"05/11/2011", "28/02/2011", "31/01/2012", "01/12/2011"}));
    SortListByColumn(&list, 1);
    QCOMPARE(column(list, 1), (QStringList{"£10,000.000", "£1,234.500", "£987.000", "-£12.500"}));
    QCOMPARE(list.headerItem()->text(1), QStringLiteral("Total Bill Cost (£) v"));
}

void ListSortTest::textColumnsSortAsText() {
    QTreeWidget list;
    fill(list);
    SortListByColumn(&list, 2);
    QCOMPARE(column(list, 2), (QStringList{"broadband", "Data", "voice", "Voice mail"}));
    QCOMPARE(list.headerItem()->text(2), QStringLiteral("Service ^"));
    SortListByColumn(&list, 0);
    QCOMPARE(list.headerItem()->text(2), QStringLiteral("Service"));
}

void ListSortTest::selectionSurvivesTheSort() {
    QTreeWidget list;
    fill(list);
    QTreeWidgetItem* chosen = list.topLevelItem(2);
    list.setCurrentItem(chosen);
    SortListByColumn(&list, 0);
    QCOMPARE(list.currentItem(), chosen);
    QVERIFY(chosen->isSelected());
}

void ListSortTest::headerClickSorts() {
    QTreeWidget list;
    fill(list);
    sortListOnHeaderClick(&list);
    emit list.header()->sectionClicked(1);
    QCOMPARE(list.topLevelItem(0)->text(1), QStringLiteral("-£12.500"));
    emit list.header()->sectionClicked(1);
    QCOMPARE(list.topLevelItem(0)->text(1), QStringLiteral("£10,000.000"));
    // The header still takes clicks after the list has been sorted.
    QVERIFY(list.header()->sectionsClickable());
}

void ListSortTest::columnsFitTheirWidestText() {
    QTreeWidget list;
    fill(list);
    list.addTopLevelItem(new QTreeWidgetItem(
        QStringList{QStringLiteral("01/01/2010"), QStringLiteral("£1.00"),
                    QStringLiteral("A service description far longer than its column heading")}));
    list.show();
    for (int c = 0; c < 3; ++c)
        list.setColumnWidth(c, 10);
    FitListViewColumns(&list);
    const QFontMetrics fm(list.font());
    QVERIFY(list.columnWidth(2) >=
            fm.horizontalAdvance(QStringLiteral("A service description far longer than its column heading")));
    QVERIFY(list.columnWidth(1) >= fm.horizontalAdvance(QStringLiteral("Total Bill Cost (£)")));
}

VANTREL_TEST(ListSortTest);
#include "tst_listsort.moc"
