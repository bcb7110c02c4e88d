#include "AccessTestFiles.h"
#include "TempDir.h"
#include "TestRegistry.h"
#include "data/AccessReader.h"
#include "data/Database.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>
#include <QtEndian>

// Damaged Access files must end in a result or a refusal within seconds, never hang.
class AccessDamagedTest : public QObject {
    Q_OBJECT
private slots:
    void endsOnDamagedFiles_data();
    void endsOnDamagedFiles();
    void cancelWhileTheLibraryIsStuck();
};

namespace {

// Far above the reader's own limit for a 3 MB file, far below a hang.
constexpr qint64 EndsWithinMs = 20000;
constexpr int Jet3Page = 2048;

// A byte in the catalog's property data of nwind.mdb whose change sends libmdb round
// for ever (found by flipping random bytes).
QByteArray loopingCatalog(QByteArray nwind) {
    nwind[0x170f55] = char(3);
    return nwind;
}

// Every row of every long-value page names itself as the next piece of its value. A Jet 4
// or ACE page is 4096 bytes, its row count at 12 and the row offsets from 14.
QByteArray selfLinkedLongValues(QByteArray file) {
    constexpr int PageSize = 4096;
    for (qsizetype page = 0; page + PageSize <= file.size(); page += PageSize) {
        if (file.mid(page + 4, 4) != "LVAL")
            continue;
        const int rows = qFromLittleEndian<quint16>(file.constData() + page + 12);
        for (int row = 0; row < rows && row < 256; ++row) {
            const int start = qFromLittleEndian<quint16>(file.constData() + page + 14 + 2 * row) & 0x1fff;
            if (start + 4 <= PageSize)
                qToLittleEndian(quint32((page / PageSize) << 8 | row), file.data() + page + start);
        }
    }
    return file;
}

QByteArray flipped(QByteArray file, quint32 seed) {
    QRandomGenerator random(seed);
    for (int i = 0; i < 300; ++i)
        file[random.bounded(file.size())] = char(random.bounded(256));
    return file;
}

} // namespace

void AccessDamagedTest::endsOnDamagedFiles_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("mayRead"); // false: it must be refused
    SKIP_WITHOUT_SHARED_FILE(testing::accessTestFile("nwind.mdb"));
    const QByteArray nwind = testing::readAll(testing::accessTestFile("nwind.mdb"));
    QTest::newRow("catalog data that loops") << loopingCatalog(nwind) << false;
    // libmdb piles up a looping property list until the reader's memory runs out, then reads
    // on without it: the tables may still come out whole, before the time limit strikes.
    QTest::newRow("long values chained to themselves")
        << selfLinkedLongValues(testing::readAll(testing::accessTestFile("ASampleDatabase.accdb"))) << true;
    QTest::newRow("cut in half") << nwind.left(733 * Jet3Page) << false;
    for (quint32 seed : {1u, 2u, 3u})
        QTest::addRow("300 random bytes, seed %u", seed) << flipped(nwind, seed) << true;
}

void AccessDamagedTest::endsOnDamagedFiles() {
    QFETCH(QByteArray, bytes);
    QFETCH(bool, mayRead);
    testing::TempDir dir;
    const QString path = dir.write(QStringLiteral("damaged.mdb"), bytes);
    const QString out = dir.path(QStringLiteral("out.sqlite"));
    QString error;
    QElapsedTimer clock;
    clock.start();
    const bool ok = convertAccessFile(path, out, AccessProgress(), &error);
    QVERIFY2(clock.elapsed() < EndsWithinMs, qPrintable(QString::number(clock.elapsed())));
    QVERIFY2(ok || error.contains(QLatin1String("damaged")), qPrintable(error));
    if (!mayRead)
        QVERIFY2(!ok, "a damaged file was read");
    // Nothing is left behind but the output of a read that succeeded.
    QStringList expected{QStringLiteral("damaged.mdb")};
    if (ok)
        expected << QStringLiteral("out.sqlite");
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), expected);
}

void AccessDamagedTest::cancelWhileTheLibraryIsStuck() {
    SKIP_WITHOUT_SHARED_FILE(testing::accessTestFile("nwind.mdb"));
    const QByteArray nwind = testing::readAll(testing::accessTestFile("nwind.mdb"));
    testing::TempDir dir;
    const QString path = dir.write(QStringLiteral("loops.mdb"), loopingCatalog(nwind));
    Database db = Database::openMemory();
    db.execScript(QStringLiteral("CREATE TABLE Mine (x INTEGER)"));
    QElapsedTimer clock;
    clock.start();
    QString error;
    // The library never gets past the catalog, so it never counts a row: only the
    // reports the reader makes while it waits can carry the cancel.
    const bool ok = readAccessDatabase(
        path, db, [&](qint64 done, qint64 total) { return done == 0 && total == 0 && clock.elapsed() < 300; },
        &error);
    QVERIFY(!ok);
    QVERIFY2(error.contains(QLatin1String("cancel")), qPrintable(error));
    QVERIFY2(clock.elapsed() < 1500, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(queryInt(db, QStringLiteral("SELECT count(*) FROM sqlite_master")), 1);
}

VANTREL_TEST(AccessDamagedTest);
#include "tst_accessdamaged.moc"
