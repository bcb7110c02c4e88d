#include "TestRegistry.h"
#include "app/TextHelpers.h"

#include <QTest>

class TextHelpersTest : public QObject {
    Q_OBJECT
private slots:
    void sortAndJoin();
};

void TextHelpersTest::sortAndJoin() {
    // Without regard to case, and equal texts keep their order.
    QCOMPARE(SortStrings({"banana", "apple", "Cherry", "Apple"}),
             (QStringList{"apple", "Apple", "banana", "Cherry"}));
    // Exactly one "/" between the parts.
    QCOMPARE(JoinPath(QStringLiteral("/srv/app/"), QStringLiteral("/System/trend.bak")),
             QStringLiteral("/srv/app/System/trend.bak"));
    QCOMPARE(JoinPath(QString(), QStringLiteral("x")), QStringLiteral("/x"));
}

VANTREL_TEST(TextHelpersTest);
#include "tst_texthelpers.moc"
