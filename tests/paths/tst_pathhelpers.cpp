#include "TempDir.h"
#include "TestRegistry.h"
#include "app/cPathControl.h"

#include <QDir>
#include <QTest>

// Name and folder helpers of the path control, and its plain file operations.
class PathHelpersTest : public QObject {
    Q_OBJECT
private slots:
    void fileExtension_data();
    void fileExtension();
    void pathsShareBranch_data();
    void pathsShareBranch();
    void folderExists();
    void listsPlainFilesFromIndexOne();
    void copyFileOverwritesAndCopiesIntoFolders();
    void copyFolderCopiesTheWholeTree();
    void copyFolderRefusesItsOwnTree();
    void deleteFolderRemovesTheTree();
};

void PathHelpersTest::fileExtension_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("extension");
    QTest::newRow("plain") << "budgets.mdb"
                           << "mdb";
    QTest::newRow("case kept") << "Trend.MDB"
                               << "MDB";
    QTest::newRow("last dot counts") << "backup.2012.01.csv"
                                     << "csv";
    QTest::newRow("no dot") << "README"
                            << "";
    QTest::newRow("trailing dot") << "odd."
                                  << "";
    QTest::newRow("leading dot") << ".hidden"
                                 << "hidden";
    QTest::newRow("empty") << ""
                           << "";
}

void PathHelpersTest::fileExtension() {
    QFETCH(QString, name);
    QFETCH(QString, extension);
    QCOMPARE(cPathControl::GetFileExtension(name), extension);
}

void PathHelpersTest::pathsShareBranch_data() {
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<bool>("shared");
    QTest::newRow("same folder") << "/srv/data"
                                 << "/srv/data" << true;
    QTest::newRow("b inside a") << "/srv/data"
                                << "/srv/data/Projects" << true;
    QTest::newRow("a inside b") << "/srv/data/Projects/2012"
                                << "/srv/data" << true;
    QTest::newRow("siblings") << "/srv/data/Projects"
                              << "/srv/data/Backup" << false;
    QTest::newRow("differ at the top") << "/home/data"
                                       << "/srv/data" << false;
    QTest::newRow("prefix of a name is no branch") << "/srv/data"
                                                   << "/srv/database" << false;
    QTest::newRow("trailing separator") << "/srv/data/"
                                        << "/srv/data/Projects" << true;
    QTest::newRow("doubled separator") << "/srv//data"
                                       << "/srv/data/x" << true;
    QTest::newRow("letter case matters") << "/srv/Data"
                                         << "/srv/data" << false;
    QTest::newRow("root holds everything") << "/"
                                           << "/srv/data" << true;
}

void PathHelpersTest::pathsShareBranch() {
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(bool, shared);
    QCOMPARE(cPathControl::PathsShareBranch(a, b), shared);
    QCOMPARE(cPathControl::PathsShareBranch(b, a), shared);
}

void PathHelpersTest::folderExists() {
    testing::TempDir tmp;
    QDir().mkpath(tmp.path("folder"));
    tmp.write("file.txt", "x");
    QVERIFY(cPathControl::FolderExists(tmp.path("folder")));
    QVERIFY(!cPathControl::FolderExists(tmp.path("file.txt")));
    QVERIFY(!cPathControl::FolderExists(tmp.path("missing")));
    QVERIFY(!cPathControl::FolderExists(QString()));
}

void PathHelpersTest::listsPlainFilesFromIndexOne() {
    testing::TempDir tmp;
    tmp.write("data/a.mdb", "1");
    tmp.write("data/B.TXT", "2");
    tmp.write("data/noext", "3");
    tmp.write("data/.hidden", "4");
    tmp.write("data/Log/inner.log", "5");

    const QStringList files = cPathControl::ListAllFilesInDirectory(tmp.path("data"));

    QCOMPARE(files.value(0), QString());
    QStringList named = files.mid(1);
    named.sort();
    QCOMPARE(named, (QStringList{"B.TXT", "a.mdb", "noext"}));
    QCOMPARE(cPathControl::ListAllFilesInDirectory(tmp.path("missing")), QStringList{QString()});
}

void PathHelpersTest::copyFileOverwritesAndCopiesIntoFolders() {
    testing::TempDir tmp;
    const QString source = tmp.write("a/one.csv", "new");
    tmp.write("b/one.csv", "old and longer");
    QDir().mkpath(tmp.path("c"));

    QVERIFY(cPathControl::CopyFile(source, tmp.path("b/one.csv")));
    QCOMPARE(testing::readAll(tmp.path("b/one.csv")), QByteArray("new"));
    QVERIFY(cPathControl::CopyFile(source, tmp.path("c")));
    QCOMPARE(testing::readAll(tmp.path("c/one.csv")), QByteArray("new"));
    QVERIFY(cPathControl::CopyFile(source, tmp.path("d/e/renamed.csv")));
    QCOMPARE(testing::readAll(tmp.path("d/e/renamed.csv")), QByteArray("new"));

    // Onto itself it must neither succeed nor lose the file.
    QVERIFY(!cPathControl::CopyFile(source, source));
    QVERIFY(!cPathControl::CopyFile(source, tmp.path("a")));
    QCOMPARE(testing::readAll(source), QByteArray("new"));
    QVERIFY(!cPathControl::CopyFile(tmp.path("a/missing"), tmp.path("b")));
}

void PathHelpersTest::copyFolderCopiesTheWholeTree() {
    testing::TempDir tmp;
    tmp.write("src/Log/today.log", "t");
    tmp.write("src/Log/2011/old.log", "o");
    tmp.write("src/Log/.keep", "");
    tmp.write("dst/Log/today.log", "stale");
    tmp.write("dst/Log/other.log", "kept");

    QVERIFY(cPathControl::CopyFolder(tmp.path("src/Log"), tmp.path("dst/Log")));

    QCOMPARE(testing::readAll(tmp.path("dst/Log/today.log")), QByteArray("t"));
    QCOMPARE(testing::readAll(tmp.path("dst/Log/2011/old.log")), QByteArray("o"));
    QVERIFY(QFile::exists(tmp.path("dst/Log/.keep")));
    QCOMPARE(testing::readAll(tmp.path("dst/Log/other.log")), QByteArray("kept"));
    QCOMPARE(testing::readAll(tmp.path("src/Log/today.log")), QByteArray("t"));
}

void PathHelpersTest::copyFolderRefusesItsOwnTree() {
    testing::TempDir tmp;
    tmp.write("src/a.txt", "a");
    QVERIFY(!cPathControl::CopyFolder(tmp.path("src"), tmp.path("src/inner")));
    QVERIFY(!cPathControl::CopyFolder(tmp.path("src"), tmp.path("src")));
    QVERIFY(!QFileInfo::exists(tmp.path("src/inner")));
    QVERIFY(!cPathControl::CopyFolder(tmp.path("missing"), tmp.path("dst")));
}

void PathHelpersTest::deleteFolderRemovesTheTree() {
    testing::TempDir tmp;
    tmp.write("gone/a.txt", "a");
    tmp.write("gone/deep/er/b.txt", "b");
    tmp.write("stays.txt", "s");

    QVERIFY(cPathControl::DeleteFolder(tmp.path("gone")));
    QVERIFY(!QFileInfo::exists(tmp.path("gone")));
    QVERIFY(QFileInfo::exists(tmp.path("stays.txt")));
    QVERIFY(!cPathControl::DeleteFolder(tmp.path("stays.txt")));
    QVERIFY(!cPathControl::DeleteFolder(QString()));
}

VANTREL_TEST(PathHelpersTest);
#include "tst_pathhelpers.moc"
