#include "TempDir.h"
#include "TestRegistry.h"
#include "app/cPathControl.h"

#include <QDir>
#include <QTest>

namespace {

QStringList filesIn(const QString& folder) {
    QStringList names = QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
    names.sort();
    return names;
}

QString pathsFileLine(const QString& programFolder, const QString& key) {
    for (const QByteArray& line : testing::readAll(programFolder + "/Paths.txt").split('\n')) {
        if (line.startsWith(key.toUtf8() + '='))
            return QString::fromUtf8(line.mid(key.size() + 1)).remove('\r');
    }
    return QStringLiteral("<missing>");
}

} // namespace

// Moving a data folder, the projects or the backups to another folder.
class DataMoveTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void dataFolderCopyTakesOnlyDataFiles();
    void dataFolderRemoveDeletesWhatWasCopied();
    void projectsCopyLeavesTheStores();
    void projectsRemoveDeletesProjectsAndEmptySource();
    void emptySourceStaysWhenItHoldsTheDestination();
    void backupsMoveSetsBackupFolder();
    void otherModeOnlySaves();
    void removeFromTheDestinationItselfIsRefused();

private:
    testing::TempDir* tmp_ = nullptr;
    cPathControl* paths_ = nullptr;
    QString prog_;
};

void DataMoveTest::init() {
    tmp_ = new testing::TempDir;
    prog_ = tmp_->path("prog");
    QDir().mkpath(prog_);
    paths_ = new cPathControl(prog_, tmp_->path("machine"));
}

void DataMoveTest::cleanup() {
    delete paths_;
    delete tmp_;
}

void DataMoveTest::dataFolderCopyTakesOnlyDataFiles() {
    const QString src = tmp_->path("old");
    const QString dst = tmp_->path("new");
    for (const char* name :
         {"budgets.mdb", "trend.MDB", "CallHistory.csv", "notes.Txt", "settings.ini", "run.log", "state.DAT",
          "LastPath.csv",
          // installation files, in any letter case
          "paths.txt", "ORVANE_error.Log", "Ireland.INI", "orvanespnum.mdb", "OrvaneTsAndCs.TXT",
          // not data
          "picture.jpg", "noext", "report.pdf"})
        tmp_->write(QString("old/") + name, QByteArray("content of ") + name);
    tmp_->write("old/Log/today.log", "log");
    tmp_->write("old/Log/2011/old.log", "older");
    tmp_->write("old/Archives/a.zip", "zip");
    tmp_->write("old/Other/x.mdb", "not moved");

    QVERIFY(paths_->CopyFilesAndFolders(src, dst, 0, false));

    QCOMPARE(filesIn(dst), (QStringList{"CallHistory.csv", "LastPath.csv", "budgets.mdb", "notes.Txt",
                                        "run.log", "settings.ini", "state.DAT", "trend.MDB"}));
    QCOMPARE(testing::readAll(dst + "/trend.MDB"), QByteArray("content of trend.MDB"));
    QCOMPARE(testing::readAll(dst + "/LastPath.csv"), "\"" + dst.toUtf8() + "\"\r\n");
    QCOMPARE(testing::readAll(dst + "/Log/2011/old.log"), QByteArray("older"));
    QCOMPARE(testing::readAll(dst + "/Archives/a.zip"), QByteArray("zip"));
    QVERIFY(!QFileInfo::exists(dst + "/Other"));
    // The source is left as it was.
    QCOMPARE(filesIn(src).size(), 16);
    QCOMPARE(testing::readAll(src + "/LastPath.csv"), QByteArray("content of LastPath.csv"));
    QVERIFY(QFileInfo::exists(prog_ + "/Paths.txt"));
}

void DataMoveTest::dataFolderRemoveDeletesWhatWasCopied() {
    const QString src = tmp_->path("old");
    const QString dst = tmp_->path("new");
    for (const char* name : {"budgets.mdb", "Data.CSV", "PATHS.TXT", "ireland.ini", "picture.jpg"})
        tmp_->write(QString("old/") + name, "x");
    tmp_->write("old/LOG/today.log", "log");
    tmp_->write("old/Archives/a.zip", "zip");
    tmp_->write("old/Keep/k.txt", "k");
    tmp_->write("new/lastpath.CSV", "\"/somewhere/else\"\r\n");

    QVERIFY(paths_->CopyFilesAndFolders(src, dst, 0, true));

    QCOMPARE(filesIn(src), (QStringList{"PATHS.TXT", "ireland.ini", "picture.jpg"}));
    QVERIFY(!QFileInfo::exists(src + "/LOG"));
    QVERIFY(!QFileInfo::exists(src + "/Archives"));
    QVERIFY(QFileInfo::exists(src + "/Keep/k.txt"));
    QCOMPARE(testing::readAll(dst + "/lastpath.CSV"), "\"" + dst.toUtf8() + "\"\r\n");
}

void DataMoveTest::projectsCopyLeavesTheStores() {
    const QString src = tmp_->path("projects");
    const QString dst = tmp_->path("moved");
    for (const char* name : {"Jan 2012.mdb", "FEB2012.MDB", "march.Mdb", "budgets.mdb", "Budgets.MDB",
                             "TREND.MDB", "Tel.mdb", "ccts.mdb", "CostCentres2.mdb", "arg.mdb", "BA.mdb",
                             "f9temp.mdb", "OrvaneSpNum.mdb", "notes.txt", "budgets.bak"})
        tmp_->write(QString("projects/") + name, name);

    QVERIFY(paths_->CopyFilesAndFolders(src, dst, 1, false));

    QCOMPARE(filesIn(dst), (QStringList{"FEB2012.MDB", "Jan 2012.mdb", "march.Mdb"}));
    QCOMPARE(paths_->ProjectFolder, dst);
    QCOMPARE(pathsFileLine(prog_, "ProjectFolder"), dst);
    QCOMPARE(filesIn(src).size(), 15);
}

void DataMoveTest::projectsRemoveDeletesProjectsAndEmptySource() {
    const QString src = tmp_->path("projects");
    const QString dst = tmp_->path("moved");
    tmp_->write("projects/a.mdb", "a");
    tmp_->write("projects/budgets.MDB", "store");
    tmp_->write("projects/readme.txt", "r");

    QVERIFY(paths_->CopyFilesAndFolders(src, dst, 1, true));
    QCOMPARE(filesIn(src), (QStringList{"budgets.MDB", "readme.txt"}));

    // Once nothing is left the folder itself goes.
    tmp_->write("projects2/b.mdb", "b");
    QVERIFY(paths_->CopyFilesAndFolders(tmp_->path("projects2"), dst, 1, true));
    QVERIFY(!QFileInfo::exists(tmp_->path("projects2")));
    QCOMPARE(paths_->ProjectFolder, dst);
    QCOMPARE(pathsFileLine(prog_, "ProjectFolder"), dst);

    // A sub-folder is something left.
    tmp_->write("projects3/c.mdb", "c");
    QDir().mkpath(tmp_->path("projects3/sub"));
    QVERIFY(paths_->CopyFilesAndFolders(tmp_->path("projects3"), dst, 1, true));
    QVERIFY(QFileInfo::exists(tmp_->path("projects3/sub")));
}

void DataMoveTest::emptySourceStaysWhenItHoldsTheDestination() {
    // The destination is not made yet, so the emptied source holds nothing at all.
    tmp_->write("data/a.mdb", "a");
    QVERIFY(paths_->CopyFilesAndFolders(tmp_->path("data"), tmp_->path("data/Projects"), 1, true));
    QVERIFY(QFileInfo(tmp_->path("data")).isDir());
    QVERIFY(filesIn(tmp_->path("data")).isEmpty());

    // Nor when the source lies inside the destination.
    tmp_->write("outer/inner/b.mdb", "b");
    QVERIFY(paths_->CopyFilesAndFolders(tmp_->path("outer/inner"), tmp_->path("outer"), 1, true));
    QVERIFY(QFileInfo(tmp_->path("outer/inner")).isDir());
}

void DataMoveTest::backupsMoveSetsBackupFolder() {
    const QString projectBefore = paths_->ProjectFolder;
    tmp_->write("bk/2012-01.mdb", "b");
    tmp_->write("bk/trend.mdb", "t");
    QVERIFY(paths_->CopyFilesAndFolders(tmp_->path("bk"), tmp_->path("bk2"), 2, false));
    QCOMPARE(filesIn(tmp_->path("bk2")), QStringList{"2012-01.mdb"});
    QCOMPARE(paths_->BackupFolder, tmp_->path("bk2"));
    QCOMPARE(paths_->ProjectFolder, projectBefore);
    QCOMPARE(pathsFileLine(prog_, "BackupFolder"), tmp_->path("bk2"));
}

void DataMoveTest::otherModeOnlySaves() {
    tmp_->write("a/x.mdb", "x");
    paths_->AppFolder = "/changed";
    QVERIFY(paths_->CopyFilesAndFolders(tmp_->path("a"), tmp_->path("b"), 7, true));
    QVERIFY(QFileInfo::exists(tmp_->path("a/x.mdb")));
    QVERIFY(!QFileInfo::exists(tmp_->path("b")));
    QCOMPARE(pathsFileLine(prog_, "AppFolder"), QString("/changed"));
}

void DataMoveTest::removeFromTheDestinationItselfIsRefused() {
    tmp_->write("a/x.mdb", "x");
    QVERIFY(!paths_->CopyFilesAndFolders(tmp_->path("a"), tmp_->path("a"), 1, true));
    QVERIFY(!paths_->CopyFilesAndFolders(tmp_->path("a"), tmp_->path("a/"), 0, true));
    QVERIFY(QFileInfo::exists(tmp_->path("a/x.mdb")));
    // Copying onto itself fails rather than report a move that did not happen.
    QVERIFY(!paths_->CopyFilesAndFolders(tmp_->path("a"), tmp_->path("a"), 1, false));
    QCOMPARE(testing::readAll(tmp_->path("a/x.mdb")), QByteArray("x"));
}

VANTREL_TEST(DataMoveTest);
#include "tst_datamove.moc"
