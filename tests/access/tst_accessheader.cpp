#include "AccessTestFiles.h"
#include "TempDir.h"
#include "TestRegistry.h"
#include "data/AccessPassword.h"
#include "data/FileKind.h"

#include <QTest>
#include <QtEndian>
#include <cmath>
#include <cstdint>
#include <numeric>

// What the first page of a file tells: its kind, and the password an Access file carries.
class AccessHeaderTest : public QObject {
    Q_OBJECT
private slots:
    void header_data();
    void header();
    void nothingToRead();
};

namespace {

// The test's own RC4, written from the cipher's definition, so that the header the
// test builds does not depend on the code under test.
QByteArray rc4Keystream(int length) {
    const unsigned char key[] = {0xC7, 0xDA, 0x39, 0x6B};
    unsigned char s[256];
    std::iota(s, s + 256, 0);
    for (int i = 0, j = 0; i < 256; ++i) {
        j = (j + s[i] + key[i % 4]) % 256;
        std::swap(s[i], s[j]);
    }
    QByteArray stream;
    for (int k = 0, a = 0, b = 0; k < length; ++k) {
        a = (a + 1) % 256;
        b = (b + s[a]) % 256;
        std::swap(s[a], s[b]);
        stream += char(s[(s[a] + s[b]) % 256]);
    }
    return stream;
}

// Page 0 as the engine writes it: the plain fields, then the obfuscation over the bytes
// from 0x18 (126 of them in Jet 3, 128 later).
QByteArray buildHeader(FileKind kind, const QString& password = QString(), double created = 40000.0) {
    QByteArray page(2048, '\0');
    for (int i = 0x18; i < page.size(); ++i)
        page[i] = char((i * 37 + 11) % 251); // unrelated header bytes
    page.replace(
        0, 20,
        QByteArray(kind == FileKind::Ace ? "\0\1\0\0Standard ACE DB\0" : "\0\1\0\0Standard Jet DB\0", 20));
    page[0x14] = char(kind == FileKind::Jet3 ? 0 : kind == FileKind::Jet4 ? 1 : 2);
    qToLittleEndian(created, page.data() + 0x72);
    QByteArray bytes = password.toLatin1().leftJustified(20, '\0', true);
    if (kind != FileKind::Jet3) {
        // UTF-16, each byte mixed with the creation day as a little-endian int32.
        unsigned char mask[4];
        qToLittleEndian(static_cast<std::int32_t>(std::floor(created)), mask);
        bytes = QByteArray(40, '\0');
        for (int i = 0; i < password.size() && i < 20; ++i)
            qToLittleEndian(password.at(i).unicode(), bytes.data() + 2 * i);
        for (int i = 0; i < 40; ++i)
            bytes[i] = char(static_cast<unsigned char>(bytes[i]) ^ mask[i % 4]);
    }
    page.replace(0x42, bytes.size(), bytes);
    const QByteArray stream = rc4Keystream(kind == FileKind::Jet3 ? 126 : 128);
    for (int i = 0; i < stream.size(); ++i)
        page[0x18 + i] = char(page[0x18 + i] ^ stream[i]);
    return page;
}

} // namespace

void AccessHeaderTest::header_data() {
    QTest::addColumn<QString>("file"); // the shared file the bytes come from: the row skips without it
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<FileKind>("kind");
    QTest::addColumn<QString>("password");  // "-": none can be read
    QTest::addColumn<QString>("opensWith"); // the list entry it opens with; null: refused
    // A file without a password opens with the first entry of the list.
    const auto shared = [](const char* name, FileKind kind) {
        const QString path = testing::accessTestFile(name);
        QTest::newRow(name) << path << (QFileInfo::exists(path) ? testing::readAll(path) : QByteArray())
                            << kind << ""
                            << "Plumbago47";
    };
    shared("nwind.mdb", FileKind::Jet3);
    shared("DateTestDatabase.mdb", FileKind::Jet4);
    shared("ASampleDatabase.accdb", FileKind::Ace);

    const auto row = [](const char* name, const QByteArray& bytes, FileKind kind, const char* password = "-",
                        const char* opensWith = nullptr) {
        QTest::newRow(name) << QString() << bytes << kind << QString::fromUtf8(password)
                            << QString::fromUtf8(opensWith);
    };
    const auto built = [&row](const char* name, FileKind kind, const char* password, double created,
                              const char* opensWith) {
        row(name, buildHeader(kind, QString::fromUtf8(password), created), kind, password, opensWith);
    };
    built("Jet 3, first listed", FileKind::Jet3, "Plumbago47", 35000.25, "Plumbago47");
    built("Jet 3, all 20 bytes used", FileKind::Jet3, "ABCDEFGHIJKLMNOPQRST", 1.0, nullptr);
    built("Jet 4, second listed", FileKind::Jet4, "Quernstep", 44532.650103831016, "Quernstep");
    built("Jet 4, empty", FileKind::Jet4, "", 44532.650103831016, "Plumbago47");
    built("Jet 4, accents", FileKind::Jet4, "Pässwörd£", 39581.52706344907, nullptr);
    built("Jet 4, all 20 characters", FileKind::Jet4, "abcdefghijklmnopqrst", 40000.0, nullptr);
    // Before 1899-12-30 the day is negative, and its bytes are those of a negative int32.
    built("Jet 4, created before 1900", FileKind::Jet4, "Quernstep", -1.5, "Quernstep");
    built("Jet 4, other case", FileKind::Jet4, "quernstep", 40000.0, nullptr);
    built("Jet 4, listed and more", FileKind::Jet4, "Quernstep1", 40000.0, nullptr);
    built("ACE, unlisted", FileKind::Ace, "Sesame", 41234.75, nullptr);

    QByteArray ace2010 = buildHeader(FileKind::Ace), jetOfAceVersion = buildHeader(FileKind::Jet4);
    ace2010[0x14] = jetOfAceVersion[0x14] = 3;
    row("ACE 2010", ace2010, FileKind::Ace, "", "Plumbago47");
    row("Jet with an ACE version", jetOfAceVersion, FileKind::Other);
    row("cut before the creation date", buildHeader(FileKind::Jet4, QStringLiteral("Quernstep")).left(0x80),
        FileKind::Jet4);
    row("Jet header cut short", buildHeader(FileKind::Jet3).left(18), FileKind::Other);
    row("random bytes", rc4Keystream(8192), FileKind::Other);
    row("empty file", QByteArray(), FileKind::Other);
    row("text", QByteArray("VeloraAccount,TelNo\n"), FileKind::Other);
    row("SQLite store", QByteArray("SQLite format 3\0", 16) + QByteArray(84, '\0'), FileKind::SQLite);
    row("SQLite name without its NUL", QByteArray("SQLite format 3 and more text"), FileKind::Other);
}

void AccessHeaderTest::header() {
    QFETCH(QString, file);
    QFETCH(QByteArray, bytes);
    QFETCH(FileKind, kind);
    QFETCH(QString, password);
    QFETCH(QString, opensWith);
    if (!file.isEmpty())
        SKIP_WITHOUT_SHARED_FILE(file);
    testing::TempDir dir;
    const QString path = dir.write(QStringLiteral("project.mdb"), bytes);
    QCOMPARE(detectFileKind(path), kind);
    const QString none = QStringLiteral("-");
    QCOMPARE(accessPasswordFromHeader(bytes).value_or(none), password);
    QCOMPARE(readAccessPassword(path).value_or(none), password);
    QCOMPARE(matchPassword(password, projectPasswordList()).value_or(QString()), opensWith);
}

void AccessHeaderTest::nothingToRead() {
    testing::TempDir dir;
    QCOMPARE(detectFileKind(dir.path(QStringLiteral("nothing.mdb"))), FileKind::Missing);
    QCOMPARE(detectFileKind(dir.path()), FileKind::Missing);
    QVERIFY(!readAccessPassword(dir.path(QStringLiteral("nothing.mdb"))).has_value());
    QVERIFY(!matchPassword(QString(), QStringList()).has_value()); // no list, nothing to open with
}

VANTREL_TEST(AccessHeaderTest);
#include "tst_accessheader.moc"
