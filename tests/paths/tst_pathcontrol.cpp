#include "TempDir.h"
#include "TestRegistry.h"
#include "app/cPathControl.h"

#include <QDir>
#include <QDirIterator>
#include <QTest>
#include <memory>

namespace {

// AppFolder, ProjectFolder, BackupFolder and SystemFolder joined by "|".
QString fields(const cPathControl& p) {
    return QStringList{p.AppFolder, p.ProjectFolder, p.BackupFolder, p.SystemFolder}.join('|');
}

// Each name of a space-separated list, behind prefix.
QStringList under(const QString& prefix, const QString& names) {
    QStringList paths;
    for (const QString& name : names.split(' ', Qt::SkipEmptyParts))
        paths << prefix + name;
    return paths;
}

// Every file below folder (hidden ones too), relative and sorted.
QStringList tree(const QString& folder) {
    QStringList files;
    QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << QDir(folder).relativeFilePath(it.next());
    files.sort();
    return files;
}

const QString DataFiles = "budgets.mdb trend.MDB CallHistory.csv notes.Txt settings.ini run.log state.DAT "
                          "LastPath.csv Log/today.log Log/2011/old.log Archives/a.zip";
// Installation files in any letter case, files that are not data, and a folder that is not moved.
const QString NotData = "paths.txt ORVANE_error.Log Ireland.INI orvanespnum.mdb OrvaneTsAndCs.TXT "
                        "picture.jpg noext Other/x.mdb";
const QString Projects = "Jan2012.mdb FEB2012.MDB march.Mdb";
// Stores, not projects.
const QString Stores = "budgets.mdb Budgets.MDB TREND.MDB Tel.mdb ccts.mdb CostCentres2.mdb arg.mdb BA.mdb "
                       "f9temp.mdb OrvaneSpNum.mdb notes.txt budgets.bak";

} // namespace

// The paths file beside the program, the folders derived from the machine's data folder,
// and moving a data folder, the projects or the backups to another folder.
class PathControlTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void missingFileIsCreatedThenSaved();
    void readsSettings_data();
    void readsSettings();
    void unreadableOrUnwritableFileLeavesFieldsEmpty_data();
    void unreadableOrUnwritableFileLeavesFieldsEmpty();
    void dataSystemFolderNeedsBothTemplates_data();
    void dataSystemFolderNeedsBothTemplates();
    void movesTheFilesOfItsMode_data();
    void movesTheFilesOfItsMode();
    void emptiedSourceGoesOnlyWhenSafe();
    void neverCopiesOntoItself();

private:
    std::unique_ptr<testing::TempDir> tmp_;
    QString prog_;
    QString machine_;
};

void PathControlTest::init() {
    tmp_ = std::make_unique<testing::TempDir>();
    prog_ = tmp_->path("prog");
    machine_ = tmp_->path("machine");
    QDir().mkpath(prog_);
}

void PathControlTest::missingFileIsCreatedThenSaved() {
    QDir().mkpath(machine_);
    const QString data = machine_ + "/Orvane";
    cPathControl paths(prog_, machine_);
    QVERIFY(paths.pathsFileRead() && paths.pathsFileProblem().isEmpty());
    const QByteArray d = data.toUtf8(), lineEnd = "\r\n";
    QCOMPARE(testing::readAll(prog_ + "/Paths.txt"), "AppFolder=" + d + lineEnd + "ProjectFolder=" + d +
                                                         lineEnd + "BackupFolder=" + d + lineEnd +
                                                         "SystemFolder=" + prog_.toUtf8() + lineEnd);
    QCOMPARE(fields(paths), QStringList({data, data, data, prog_}).join('|'));
    paths.AppFolder = "/srv/data";
    paths.ProjectFolder = "/srv/data/Projects";
    paths.BackupFolder = "/srv/a=b";
    QVERIFY(paths.SavePathSettingsFile());
    QCOMPARE(fields(cPathControl(prog_, machine_)), "/srv/data|/srv/data/Projects|/srv/a=b|" + prog_);
    // The write probe leaves nothing behind.
    QVERIFY(paths.CanWriteToOrvaneAppPath(prog_));
    QVERIFY(!QFile::exists(prog_ + "/Test.dat"));
    QVERIFY(!paths.CanWriteToOrvaneAppPath(tmp_->path("missing")));
    // Without the machine's folder the default is that bare folder, no "Orvane" below it.
    QDir().mkpath(tmp_->path("prog2"));
    QCOMPARE(cPathControl(tmp_->path("prog2"), tmp_->path("nowhere")).AppFolder, tmp_->path("nowhere"));
}

void PathControlTest::readsSettings_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const QByteArray& content, const char* expected) {
        QTest::newRow(name) << content << QString::fromUtf8(expected);
    };
    row("written order, CR LF", "AppFolder=/a\r\nProjectFolder=/p\r\nBackupFolder=/b\r\nSystemFolder=/s\r\n",
        "/a|/p|/b|/s");
    row("any order, CR or LF, a later line wins, no final newline",
        "SystemFolder=/s\rBackupFolder=/b\nAppFolder=/first\nAppFolder=/a\nProjectFolder=/p", "/a|/p|/b|/s");
    row("spaces, blank lines, unknown or inexact keys, only the first = splits",
        "  AppFolder  =  /x=1 y==2  \r\n\r\nColour=red\r\nappfolder=/l\r\nApp Folder=/s\r\nWhatever\r\n"
        "ProjectFolder=\r\n\tSystemFolder= /s\r\n",
        "/x=1 y==2|||/s");
    // QByteArrayLiteral keeps the embedded NULs.
    row("byte order mark and binary garbage",
        QByteArrayLiteral(
            "\xEF\xBB\xBF"
            "AppFolder=/a\r\n\x00\x01\x02=\xff\xfe\r\n\x89PNG\x1a\x00=\x00\r\n\xff\xff\rSystemFolder=/s"),
        "/a|||/s");
    // Each line is UTF-8 or else a one-byte code page, on its own.
    row("UTF-8 and one-byte code page lines",
        "AppFolder=/d\xC3\xA9p\xC3\xB4t\r\nProjectFolder=/d\xE9p\xF4t\r\n",
        "/d\u00e9p\u00f4t|/d\u00e9p\u00f4t||");
}

void PathControlTest::readsSettings() {
    QFETCH(QByteArray, content);
    QFETCH(QString, expected);
    const QString file = tmp_->write("prog/Paths.txt", content);
    cPathControl paths(prog_, machine_);
    QVERIFY(paths.pathsFileRead());
    QCOMPARE(fields(paths), expected);
    // An existing file is only read, never rewritten.
    QCOMPARE(testing::readAll(file), content);
}

void PathControlTest::unreadableOrUnwritableFileLeavesFieldsEmpty_data() {
    // Permissions do not stop root, so the failures come from the shape of the file system.
    QTest::addColumn<QString>("prog");
    QTest::newRow("program folder below a plain file") << "plain/prog";
    QTest::newRow("paths file is a folder") << "folder";
    QTest::newRow("program folder unknown") << "";
}

void PathControlTest::unreadableOrUnwritableFileLeavesFieldsEmpty() {
    QFETCH(QString, prog);
    tmp_->write("plain", "not a folder");
    QDir().mkpath(tmp_->path("folder/Paths.txt"));
    if (!prog.isEmpty())
        prog = tmp_->path(prog);

    cPathControl paths(prog, machine_);

    QVERIFY(!paths.pathsFileRead());
    QCOMPARE(fields(paths), QString("|||"));
    // One line for a message box, naming the file where it is known.
    const QString problem = paths.pathsFileProblem();
    const QString named = prog.isEmpty() ? "Paths.txt" : prog + "/Paths.txt";
    QVERIFY2(problem.contains(named) && !problem.contains('\n'), qPrintable(problem));
    // Saving to the same place fails as well, rather than report a file that is not there.
    paths.SystemFolder = prog;
    QVERIFY(!paths.SavePathSettingsFile());
}

void PathControlTest::dataSystemFolderNeedsBothTemplates_data() {
    QTest::addColumn<QString>("templates");
    QTest::addColumn<bool>("withFallback");
    QTest::addColumn<bool>("machineFolder");
    QTest::newRow("both templates") << "budgets.bak trend.bak" << true << true;
    QTest::newRow("budgets template only") << "budgets.bak" << true << false;
    QTest::newRow("trend template only") << "trend.bak" << true << false;
    QTest::newRow("no templates") << "" << true << false;
    QTest::newRow("no templates, no fallback") << "" << false << true;
}

void PathControlTest::dataSystemFolderNeedsBothTemplates() {
    QFETCH(QString, templates);
    QFETCH(bool, withFallback);
    QFETCH(bool, machineFolder);
    QDir().mkpath(machine_ + "/Orvane/System");
    for (const QString& file : under("machine/Orvane/System/", templates))
        tmp_->write(file, "template");
    const QString fallback = tmp_->path("build/share/vantrel/System");

    cPathControl paths(prog_, machine_, withFallback ? fallback : QString());

    QCOMPARE(paths.DataSystemFolder, machineFolder ? machine_ + "/Orvane/System" : fallback);
}

void PathControlTest::movesTheFilesOfItsMode_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("remove");
    QTest::addColumn<QStringList>("before"); // below src/ and dst/
    QTest::addColumn<QStringList>("after");
    const QStringList data = under("src/", DataFiles + ' ' + NotData);
    // A file of the destination is overwritten.
    QTest::newRow("data folder, copy")
        << 0 << false << data + under("", "src/Log/.keep dst/budgets.mdb")
        << data + under("dst/", DataFiles + " Log/.keep") + QStringList{"src/Log/.keep"};
    // Folders are matched in any letter case, and an old LastPath.csv in the destination is rewritten.
    QTest::newRow("data folder, remove") << 0 << true << data + under("", "src/LOG/x.log dst/lastpath.CSV")
                                         << under("src/", NotData) + QStringList{"dst/lastpath.CSV"};
    const QStringList projects = under("src/", Projects + ' ' + Stores);
    QTest::newRow("projects, copy") << 1 << false << projects << projects + under("dst/", Projects);
    QTest::newRow("projects, remove") << 1 << true << projects << under("src/", Stores);
    QTest::newRow("backups, copy") << 2 << false << projects << projects + under("dst/", Projects);
    QTest::newRow("another mode only saves") << 7 << true << projects << projects;
}

void PathControlTest::movesTheFilesOfItsMode() {
    QFETCH(int, mode);
    QFETCH(bool, remove);
    QFETCH(QStringList, before);
    QFETCH(QStringList, after);
    for (const QString& file : before)
        tmp_->write("w/" + file, file.toUtf8());
    const QString src = tmp_->path("w/src"), dst = tmp_->path("w/dst");
    cPathControl paths(prog_, machine_);
    const QString byDefault = paths.ProjectFolder;
    paths.AppFolder = "/changed";

    QVERIFY(paths.CopyFilesAndFolders(src, dst, mode, remove));

    after.sort();
    QCOMPARE(tree(tmp_->path("w")), after);
    for (const QString& file : after) {
        // A data folder's LastPath.csv names the folder it now lies in; all else is copied as it was.
        const bool lastPath = mode == 0 && file.startsWith("dst/") &&
                              QFileInfo(file).fileName().compare("LastPath.csv", Qt::CaseInsensitive) == 0;
        const QString from = "src" + file.mid(3);
        const QByteArray content = lastPath ? "\"" + dst.toUtf8() + "\"\r\n"
                                   : file.startsWith("dst/") && before.contains(from) ? from.toUtf8()
                                                                                      : file.toUtf8();
        QCOMPARE(testing::readAll(tmp_->path("w/" + file)), content);
    }
    // The paths file is saved in every mode, with the new project or backup folder.
    QCOMPARE(
        fields(cPathControl(prog_, machine_)),
        QStringList({"/changed", mode == 1 ? dst : byDefault, mode == 2 ? dst : byDefault, prog_}).join('|'));
}

void PathControlTest::emptiedSourceGoesOnlyWhenSafe() {
    cPathControl paths(prog_, machine_);
    const auto move = [&](const QString& source, const QString& destination) {
        tmp_->write(source + "/a.mdb", "a");
        if (!paths.CopyFilesAndFolders(tmp_->path(source), tmp_->path(destination), 1, true))
            return QString("failed");
        return QString(QFileInfo::exists(tmp_->path(source)) ? "stays" : "gone");
    };
    QCOMPARE(move("p", "moved"), QString("gone"));
    QDir().mkpath(tmp_->path("q/sub")); // a sub-folder is something left
    QCOMPARE(move("q", "moved"), QString("stays"));
    // The destination is not made yet, so the emptied source holds nothing at all; still it stays.
    QCOMPARE(move("data", "data/Projects"), QString("stays"));
    QCOMPARE(move("outer/inner", "outer"), QString("stays"));
    // A name that begins with another is no branch of it.
    QCOMPARE(move("data2", "data2base"), QString("gone"));
}

void PathControlTest::neverCopiesOntoItself() {
    cPathControl paths(prog_, machine_);
    const QString file = tmp_->write("a/x.mdb", "x");
    // Deleting "the copied files" from where they were copied to would lose them, and a copy onto
    // itself fails rather than report a move that did not happen.
    QVERIFY(!paths.CopyFilesAndFolders(tmp_->path("a"), tmp_->path("a"), 1, true));
    QVERIFY(!paths.CopyFilesAndFolders(tmp_->path("a"), tmp_->path("a/"), 0, true));
    QVERIFY(!paths.CopyFilesAndFolders(tmp_->path("a"), tmp_->path("a"), 1, false));
    QVERIFY(!cPathControl::CopyFile(file, file));
    QVERIFY(!cPathControl::CopyFile(file, tmp_->path("a")));
    QCOMPARE(testing::readAll(file), QByteArray("x"));
    // A folder copied into its own tree would never end.
    QVERIFY(!cPathControl::CopyFolder(tmp_->path("a"), tmp_->path("a/inner")));
    QVERIFY(!QFileInfo::exists(tmp_->path("a/inner")));
    QVERIFY(!cPathControl::DeleteFolder(QString())); // not the current folder
}

VANTREL_TEST(PathControlTest);
#include "tst_pathcontrol.moc"
