#include "AccessTestFiles.h"
#include "TempDir.h"
#include "TestRegistry.h"
#include "data/AccessPassword.h"

#include <QTest>
#include <QtEndian>
#include <cmath>
#include <cstdint>

class AccessPasswordTest : public QObject {
    Q_OBJECT
private slots:
    void decodesBuiltHeaders_data();
    void decodesBuiltHeaders();
    void realFilesHaveNoPassword_data();
    void realFilesHaveNoPassword();
    void refusesWhatIsNoAccessHeader();
    void matches_data();
    void matches();
    void projectList();
};

namespace {

// The test's own RC4, written from the cipher's definition, so that the header the
// test builds does not depend on the code under test.
QByteArray rc4Keystream(int length) {
    const unsigned char key[] = {0xC7, 0xDA, 0x39, 0x6B};
    unsigned char s[256];
    for (int i = 0; i < 256; ++i)
        s[i] = static_cast<unsigned char>(i);
    int j = 0;
    for (int i = 0; i < 256; ++i) {
        j = (j + s[i] + key[i % 4]) % 256;
        std::swap(s[i], s[j]);
    }
    QByteArray stream;
    int a = 0;
    int b = 0;
    for (int k = 0; k < length; ++k) {
        a = (a + 1) % 256;
        b = (b + s[a]) % 256;
        std::swap(s[a], s[b]);
        stream += char(s[(s[a] + s[b]) % 256]);
    }
    return stream;
}

enum class Layout { Jet3, Jet4, Ace };

// Page 0 as the engine writes it: the plain fields, then the obfuscation over the bytes
// from 0x18 (126 of them in Jet 3, 128 later).
QByteArray buildHeader(Layout layout, const QString& password, double created) {
    QByteArray page(2048, '\0');
    for (int i = 0x18; i < page.size(); ++i)
        page[i] = char((i * 37 + 11) % 251); // unrelated header bytes
    page.replace(0, 4, QByteArray("\x00\x01\x00\x00", 4));
    page.replace(4, 16,
                 layout == Layout::Ace ? QByteArray("Standard ACE DB\0", 16)
                                       : QByteArray("Standard Jet DB\0", 16));
    page[0x14] = char(layout == Layout::Jet3 ? 0 : layout == Layout::Jet4 ? 1 : 2);
    qToLittleEndian(created, page.data() + 0x72);

    if (layout == Layout::Jet3) {
        QByteArray bytes = password.toLatin1().leftJustified(20, '\0', true);
        page.replace(0x42, 20, bytes);
    } else {
        // Each password byte is mixed with the creation day, as a little-endian int32.
        const auto day = static_cast<std::int32_t>(std::floor(created));
        unsigned char mask[4];
        qToLittleEndian(day, mask);
        QByteArray bytes(40, '\0');
        for (int i = 0; i < password.size() && i < 20; ++i)
            qToLittleEndian(password.at(i).unicode(), bytes.data() + 2 * i);
        for (int i = 0; i < 40; ++i)
            bytes[i] = char(static_cast<unsigned char>(bytes[i]) ^ mask[i % 4]);
        page.replace(0x42, 40, bytes);
    }
    const int length = layout == Layout::Jet3 ? 126 : 128;
    const QByteArray stream = rc4Keystream(length);
    for (int i = 0; i < length; ++i)
        page[0x18 + i] = char(page[0x18 + i] ^ stream[i]);
    return page;
}

} // namespace

void AccessPasswordTest::decodesBuiltHeaders_data() {
    QTest::addColumn<int>("layout");
    QTest::addColumn<QString>("password");
    QTest::addColumn<double>("created");
    QTest::addColumn<QString>("opensWith"); // the list entry it opens with; null: refused

    const int jet3 = int(Layout::Jet3);
    const int jet4 = int(Layout::Jet4);
    const int ace = int(Layout::Ace);
    QTest::newRow("Jet 3, first listed")
        << jet3 << QStringLiteral("Plumbago47") << 35000.25 << QStringLiteral("Plumbago47");
    QTest::newRow("Jet 3, empty") << jet3 << QString() << 35000.25 << QStringLiteral("Plumbago47");
    QTest::newRow("Jet 3, all 20 bytes used")
        << jet3 << QStringLiteral("ABCDEFGHIJKLMNOPQRST") << 1.0 << QString();
    QTest::newRow("Jet 4, second listed")
        << jet4 << QStringLiteral("Quernstep") << 44532.650103831016 << QStringLiteral("Quernstep");
    QTest::newRow("Jet 4, empty") << jet4 << QString() << 44532.650103831016 << QStringLiteral("Plumbago47");
    QTest::newRow("Jet 4, accents") << jet4 << QStringLiteral("Pässwörd£") << 39581.52706344907 << QString();
    QTest::newRow("Jet 4, all 20 characters")
        << jet4 << QStringLiteral("abcdefghijklmnopqrst") << 40000.0 << QString();
    // Before 1899-12-30 the day is negative, and its bytes are those of a negative int32.
    QTest::newRow("Jet 4, created before 1900")
        << jet4 << QStringLiteral("Quernstep") << -1.5 << QStringLiteral("Quernstep");
    QTest::newRow("ACE, unlisted") << ace << QStringLiteral("Sesame") << 41234.75 << QString();
}

void AccessPasswordTest::decodesBuiltHeaders() {
    QFETCH(int, layout);
    QFETCH(QString, password);
    QFETCH(double, created);
    QFETCH(QString, opensWith);
    const QByteArray page = buildHeader(Layout(layout), password, created);

    const auto fromBytes = accessPasswordFromHeader(page);
    QVERIFY(fromBytes.has_value());
    QCOMPARE(*fromBytes, password);

    testing::TempDir dir;
    const auto fromFile = readAccessPassword(dir.write(QStringLiteral("project.mdb"), page));
    QVERIFY(fromFile.has_value());
    QCOMPARE(*fromFile, password);
    QCOMPARE(matchPassword(*fromFile, projectPasswordList()).value_or(QString()), opensWith);
}

void AccessPasswordTest::realFilesHaveNoPassword_data() {
    QTest::addColumn<QString>("path");
    QTest::newRow("Jet 3") << testing::accessTestFile("nwind.mdb");
    QTest::newRow("Jet 4") << testing::accessTestFile("DateTestDatabase.mdb");
    QTest::newRow("ACE") << testing::accessTestFile("ASampleDatabase.accdb");
}

void AccessPasswordTest::realFilesHaveNoPassword() {
    QFETCH(QString, path);
    SKIP_WITHOUT_SHARED_FILE(path);
    const auto password = readAccessPassword(path);
    QVERIFY(password.has_value());
    QCOMPARE(*password, QString());
    // A file without a password opens with the first entry of the list.
    QCOMPARE(matchPassword(*password, projectPasswordList()).value_or(QString()),
             QStringLiteral("Plumbago47"));
}

void AccessPasswordTest::refusesWhatIsNoAccessHeader() {
    testing::TempDir dir;
    QVERIFY(!readAccessPassword(dir.path(QStringLiteral("missing.mdb"))).has_value());
    QVERIFY(!readAccessPassword(dir.write(QStringLiteral("empty.mdb"), QByteArray())).has_value());
    const QByteArray sqlite = QByteArray("SQLite format 3\0", 16) + QByteArray(4080, '\0');
    QVERIFY(!readAccessPassword(dir.write(QStringLiteral("store.mdb"), sqlite)).has_value());
    // The header ends before the creation date: nothing can be decoded.
    const QByteArray cut = buildHeader(Layout::Jet4, QStringLiteral("Quernstep"), 40000.0).left(0x80);
    QVERIFY(!readAccessPassword(dir.write(QStringLiteral("cut.mdb"), cut)).has_value());
}

void AccessPasswordTest::matches_data() {
    QTest::addColumn<QString>("filePassword");
    QTest::addColumn<QStringList>("list");
    QTest::addColumn<QString>("expected"); // a null string: refused

    const QStringList list = {QStringLiteral("Plumbago47"), QStringLiteral("Quernstep")};
    QTest::newRow("no password") << QString() << list << QStringLiteral("Plumbago47");
    QTest::newRow("first entry") << QStringLiteral("Plumbago47") << list << QStringLiteral("Plumbago47");
    QTest::newRow("second entry") << QStringLiteral("Quernstep") << list << QStringLiteral("Quernstep");
    QTest::newRow("unlisted") << QStringLiteral("Sesame") << list << QString();
    QTest::newRow("other case") << QStringLiteral("quernstep") << list << QString();
    QTest::newRow("list and more") << QStringLiteral("Quernstep1") << list << QString();
    QTest::newRow("empty list") << QString() << QStringList() << QString();
}

void AccessPasswordTest::matches() {
    QFETCH(QString, filePassword);
    QFETCH(QStringList, list);
    QFETCH(QString, expected);
    const auto match = matchPassword(filePassword, list);
    if (expected.isNull()) {
        QVERIFY(!match.has_value());
    } else {
        QVERIFY(match.has_value());
        QCOMPARE(*match, expected);
    }
}

void AccessPasswordTest::projectList() {
    // "Plumbago47¦Quernstep", split at the broken bar.
    QCOMPARE(projectPasswordList(), QStringList({QStringLiteral("Plumbago47"), QStringLiteral("Quernstep")}));
}

VANTREL_TEST(AccessPasswordTest);
#include "tst_accesspassword.moc"
