#include "AccessTestFiles.h"
#include "TempDir.h"
#include "TestRegistry.h"
#include "data/Database.h"
#include "data/FileKind.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTest>

class FileKindTest : public QObject {
    Q_OBJECT
private slots:
    void detects_data();
    void detects();
    void missingAndFolder();
};

namespace {

QByteArray randomBytes(int size) {
    QRandomGenerator gen(4711);
    QByteArray bytes(size, '\0');
    for (char& c : bytes)
        c = char(gen.bounded(256));
    return bytes;
}

QByteArray accessHead(const char* engine, char version) {
    QByteArray head("\x00\x01\x00\x00", 4);
    head += QByteArray(engine) + '\0';
    head += version;
    head += QByteArray(64, '\0');
    return head;
}

} // namespace

void FileKindTest::detects_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("bytes"); // written to a scratch file when path is empty
    QTest::addColumn<int>("keep");         // bytes of the file at path kept in a scratch copy; -1: all
    QTest::addColumn<FileKind>("kind");

    QTest::newRow("nwind.mdb") << testing::accessTestFile("nwind.mdb") << QByteArray() << -1
                               << FileKind::Jet3;
    QTest::newRow("DateTestDatabase.mdb")
        << testing::accessTestFile("DateTestDatabase.mdb") << QByteArray() << -1 << FileKind::Jet4;
    QTest::newRow("ASampleDatabase.accdb")
        << testing::accessTestFile("ASampleDatabase.accdb") << QByteArray() << -1 << FileKind::Ace;
    QTest::newRow("random bytes") << QString() << randomBytes(8192) << -1 << FileKind::Other;
    QTest::newRow("empty file") << QString() << QByteArray("") << -1 << FileKind::Other;
    QTest::newRow("text") << QString() << QByteArray("VeloraAccount,TelNo\n") << -1 << FileKind::Other;
    QTest::newRow("Jet header cut short")
        << QString() << accessHead("Standard Jet DB", 1).left(18) << -1 << FileKind::Other;
    QTest::newRow("Jet with an ACE version")
        << QString() << accessHead("Standard Jet DB", 3) << -1 << FileKind::Other;
    QTest::newRow("ACE 2010") << QString() << accessHead("Standard ACE DB", 3) << -1 << FileKind::Ace;
    QTest::newRow("SQLite name without its NUL")
        << QString() << QByteArray("SQLite format 3 and more text") << -1 << FileKind::Other;
    // The first page is intact, so by its first bytes it is still Jet 3; reading it must fail.
    QTest::newRow("nwind.mdb cut to 4096 bytes")
        << testing::accessTestFile("nwind.mdb") << QByteArray() << 4096 << FileKind::Jet3;
}

void FileKindTest::detects() {
    QFETCH(QString, path);
    QFETCH(QByteArray, bytes);
    QFETCH(int, keep);
    QFETCH(FileKind, kind);
    testing::TempDir dir;
    if (path.isEmpty())
        path = dir.write(QStringLiteral("file.bin"), bytes);
    SKIP_WITHOUT_SHARED_FILE(path);
    if (keep >= 0)
        path = dir.write(QStringLiteral("head.bin"), testing::readAll(path).left(keep));
    QCOMPARE(detectFileKind(path), kind);
}

void FileKindTest::missingAndFolder() {
    testing::TempDir dir;
    QCOMPARE(detectFileKind(dir.path(QStringLiteral("nothing.mdb"))), FileKind::Missing);
    QCOMPARE(detectFileKind(dir.path()), FileKind::Missing);

    const QString sqlite = dir.path(QStringLiteral("project.mdb"));
    {
        Database db = Database::open(sqlite, Database::Mode::ReadWriteCreate);
        db.execScript(QStringLiteral("CREATE TABLE Tbl50 (VeloraAccount VARCHAR(50))"));
    }
    QCOMPARE(detectFileKind(sqlite), FileKind::SQLite);
}

VANTREL_TEST(FileKindTest);
#include "tst_filekind.moc"
