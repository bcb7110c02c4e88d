#include "TestRegistry.h"
#include "app/cColours_Orvane.h"

#include <QTest>
#include <functional>
#include <stdexcept>

using Family = std::function<ColourNumber(const cColours&, int)>;
Q_DECLARE_METATYPE(Family)
using Property = std::function<ColourNumber(const cColours_Orvane&)>;
Q_DECLARE_METATYPE(Property)

namespace {

// "#rrggbb" as the colour number red + 256 green + 65536 blue.
ColourNumber fromHex(const char* hex) {
    const QColor c(QString::fromLatin1(hex));
    return ColourNumber(c.red()) + 256u * ColourNumber(c.green()) + 65536u * ColourNumber(c.blue());
}

} // namespace

class ColoursTest : public QObject {
    Q_OBJECT
private slots:
    void paletteMembersHaveTheirNumbers_data();
    void paletteMembersHaveTheirNumbers();
    void channelsOfTheDarkestGrey();
    void colourByIndexNeedsNoMemberArithmetic();
    void membersOutsideTheFamilyAreRefused_data();
    void membersOutsideTheFamilyAreRefused();
    void namedColours_data();
    void namedColours();
    void seriesTable();
    void pieTableKeepsItsOverwrittenGrey();
    void numbersAndQColorsAgree();
};

void ColoursTest::paletteMembersHaveTheirNumbers_data() {
    QTest::addColumn<Family>("family");
    QTest::addColumn<int>("member");
    QTest::addColumn<int>("index");
    QTest::addColumn<uint>("number");
    const Family indigo = [](const cColours& c, int m) { return c.Indigo(m); };
    const Family pink = [](const cColours& c, int m) { return c.pink(m); };
    const Family coral = [](const cColours& c, int m) { return c.Coral(m); };
    const Family turquoise = [](const cColours& c, int m) { return c.Turquoise(m); };
    const Family grey = [](const cColours& c, int m) { return c.Grey(m); };
    const struct {
        const char* name;
        Family family;
        uint numbers[6];
    } rows[] = {
        {"Indigo", indigo, {16246255, 15515604, 13986969, 12725617, 11801685, 9044018}},
        {"pink", pink, {16770303, 16693247, 16744703, 14680284, 14025394, 9502846}},
        {"Coral", coral, {15658239, 13816063, 7437055, 4938495, 2636004, 1188538}},
        {"Turquoise", turquoise, {16578784, 16313524, 15520331, 15124510, 11702018, 7230976}},
        {"Grey", grey, {16250871, 15790320, 14277081, 11184810, 7039851, 2763306}},
    };
    int index = 0;
    for (const auto& row : rows)
        for (int member = 1; member <= 6; ++member, ++index)
            QTest::addRow("%s %d", row.name, member)
                << row.family << member << index << row.numbers[member - 1];
}

void ColoursTest::paletteMembersHaveTheirNumbers() {
    QFETCH(Family, family);
    QFETCH(int, member);
    QFETCH(int, index);
    QFETCH(uint, number);
    const cColours colours;
    QCOMPARE(family(colours, member), ColourNumber(number));
    QCOMPARE(colours.Colour(index), ColourNumber(number));
}

void ColoursTest::channelsOfTheDarkestGrey() {
    const cColours colours;
    QCOMPARE(colours.Red(29), 42);
    QCOMPARE(colours.Green(29), 42);
    QCOMPARE(colours.Blue(29), 42);
    QCOMPARE(colours.Red(4), 85);
    QCOMPARE(colours.Green(4), 20);
    QCOMPARE(colours.Blue(4), 180);
}

void ColoursTest::colourByIndexNeedsNoMemberArithmetic() {
    const cColours colours;
    QCOMPARE(colours.Colour(2), colours.Indigo(3));
    // The budget editor's four colours: one of each bright family.
    QCOMPARE(colours.Colour(8), colours.pink(3));
    QCOMPARE(colours.Colour(15), colours.Coral(4));
    QCOMPARE(colours.Colour(20), colours.Turquoise(3));
}

void ColoursTest::membersOutsideTheFamilyAreRefused_data() {
    QTest::addColumn<int>("member");
    QTest::newRow("zero") << 0;
    QTest::newRow("seven") << 7;
    QTest::newRow("negative") << -1;
}

void ColoursTest::membersOutsideTheFamilyAreRefused() {
    QFETCH(int, member);
    const cColours colours;
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, colours.Indigo(member));
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, colours.Grey(member));
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, colours.Colour(30));
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, colours.Red(-1));
}

void ColoursTest::namedColours_data() {
    QTest::addColumn<Property>("property");
    QTest::addColumn<QString>("hex");
    using P = Property;
    QTest::newRow("DarkButtonColour") << P([](auto& c) { return c.DarkButtonColour(); }) << "#d9d9d9";
    QTest::newRow("ProjectNameColour") << P([](auto& c) { return c.ProjectNameColour(); }) << "#ba2212";
    QTest::newRow("GridSortColour") << P([](auto& c) { return c.GridSortColour(); }) << "#e0f8fc";
    QTest::newRow("CoreColour_Indigo") << P([](auto& c) { return c.CoreColour_Indigo(); }) << "#5514b4";
    QTest::newRow("CoreColour_Coral") << P([](auto& c) { return c.CoreColour_Coral(); }) << "#ff5a4b";
    QTest::newRow("CoreColour_Turquoise") << P([](auto& c) { return c.CoreColour_Turquoise(); }) << "#1ec8e6";
    QTest::newRow("GridTotalsColour") << P([](auto& c) { return c.GridTotalsColour(); }) << "#b4ecf8";
    QTest::newRow("Usage") << P([](auto& c) { return c.Usage(); }) << "#712dc2";
    QTest::newRow("Recurring") << P([](auto& c) { return c.Recurring(); }) << "#e43828";
    QTest::newRow("Adjustments") << P([](auto& c) { return c.Adjustments(); }) << "#1ec8e6";
    QTest::newRow("OneOff") << P([](auto& c) { return c.OneOff(); }) << "#aaaaaa";
    QTest::newRow("Param_CircuitID") << P([](auto& c) { return c.Param_CircuitID(); }) << "#aaaaaa";
    QTest::newRow("Param_Description") << P([](auto& c) { return c.Param_Description(); }) << "#d9d9d9";
    QTest::newRow("Param_InvoiceID") << P([](auto& c) { return c.Param_InvoiceID(); }) << "#f0f0f0";
    QTest::newRow("Param_DateTime") << P([](auto& c) { return c.Param_DateTime(); }) << "#d4bfec";
    QTest::newRow("Param_CallHours") << P([](auto& c) { return c.Param_CallHours(); }) << "#996cd5";
    QTest::newRow("Param_DistBand") << P([](auto& c) { return c.Param_DistBand(); }) << "#712dc2";
    QTest::newRow("Param_Threshold") << P([](auto& c) { return c.Param_Threshold(); }) << "#ffb7fe";
    QTest::newRow("Param_AccCostCentre") << P([](auto& c) { return c.Param_AccCostCentre(); }) << "#ff80ff";
    QTest::newRow("Param_Conference") << P([](auto& c) { return c.Param_Conference(); }) << "#e43828";
    QTest::newRow("Param_Currency") << P([](auto& c) { return c.Param_Currency(); }) << "#ff5a4b";
    QTest::newRow("Param_Tagging") << P([](auto& c) { return c.Param_Tagging(); }) << "#ff7a71";
    QTest::newRow("Param_Data") << P([](auto& c) { return c.Param_Data(); }) << "#ffd0d2";
    QTest::newRow("Param_Exclusions") << P([](auto& c) { return c.Param_Exclusions(); }) << "#b4ecf8";
    QTest::newRow("Param_Openzone") << P([](auto& c) { return c.Param_Openzone(); }) << "#4bd2ec";
    QTest::newRow("Param_CallClass") << P([](auto& c) { return c.Param_CallClass(); }) << "#1ec8e6";
    QTest::newRow("Param_BillRef") << P([](auto& c) { return c.Param_BillRef(); }) << "#e43828";
    QTest::newRow("Param_PercentDiff") << P([](auto& c) { return c.Param_PercentDiff(); }) << "#1ec8e6";
    QTest::newRow("Param_SiteRef") << P([](auto& c) { return c.Param_SiteRef(); }) << "#d4bfec";
    QTest::newRow("DecreaseColour") << P([](auto&) { return DecreaseColour; }) << "#0bde45";
}

void ColoursTest::namedColours() {
    QFETCH(Property, property);
    QFETCH(QString, hex);
    const cColours_Orvane colours;
    QCOMPARE(property(colours), fromHex(qPrintable(hex)));
}

void ColoursTest::seriesTable() {
    const char* expected[] = {"#712dc2", "#e43828", "#1ec8e6", "#aaaaaa", "#ff80ff", "#5514b4", "#f47a71",
                              "#b4ecf8", "#32008a", "#b202d6", "#ff5a4b", "#00566e", "#996cd5", "#ffb7fe",
                              "#ba2212", "#028fb2", "#d4bfec", "#ffd0d2", "#4bd2ec", "#7e0091"};
    const cColours colours;
    for (int i = 0; i < cColours::SeriesTableSize; ++i)
        QCOMPARE(colours.seriesEntry(i).number(), fromHex(expected[i]));
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, colours.seriesEntry(20));
}

void ColoursTest::pieTableKeepsItsOverwrittenGrey() {
    const char* expected[] = {"#efe5f7", "#d4bfec", "#996cd5", "#712dc2", "#ffe4ff", "#ffb7fe",
                              "#ff80ff", "#dc00e0", "#b202d6", "#ffecee", "#ffd0d2", "#ff7a71",
                              "#ff5a4b", "#e43828", "#ba2212", "#e0f8fc", "#b4ecf8", "#4bd2ec",
                              "#1ec8e6", "#028fb2", "#f0f0f0", "#dbdbdb", "#aaaaaa", "#6b6b6b"};
    const cColours colours;
    for (int i = 0; i < cColours::PieTableSize; ++i)
        QCOMPARE(colours.pieEntry(i).number(), fromHex(expected[i]));
    QCOMPARE(colours.pieEntry(20), (ColourRgb{240, 240, 240}));
    // Not the palette's greys.
    QVERIFY(colours.pieEntry(21).number() != colours.Grey(3));
}

void ColoursTest::numbersAndQColorsAgree() {
    const cColours colours;
    QCOMPARE(qColor(colours.Indigo(5)), QColor(85, 20, 180));
    QCOMPARE(qColor(White), QColor(255, 255, 255));
    QCOMPARE(channels(colours.Turquoise(5)), (ColourRgb{2, 143, 178}));
    QCOMPARE(RGB(11, 222, 69), ColourNumber(4578827));
}

VANTREL_TEST(ColoursTest);
#include "tst_colours.moc"
