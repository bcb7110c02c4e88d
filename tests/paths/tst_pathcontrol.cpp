#include "TempDir.h"
#include "TestRegistry.h"
#include "app/cPathControl.h"

#include <QDir>
#include <QTest>
#include <memory>

namespace {

// AppFolder, ProjectFolder, BackupFolder and SystemFolder joined by "|".
QString fields(const cPathControl& p) {
    return QStringList{p.AppFolder, p.ProjectFolder, p.BackupFolder, p.SystemFolder}.join('|');
}

} // namespace

// The paths file beside the program and the folders derived from the machine's data folder.
// Moving a data folder (CopyFilesAndFolders and its file helpers) has no caller yet, so no
// test here.
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
    for (const QString& name : templates.split(' ', Qt::SkipEmptyParts))
        tmp_->write("machine/Orvane/System/" + name, "template");
    const QString fallback = tmp_->path("build/share/vantrel/System");

    cPathControl paths(prog_, machine_, withFallback ? fallback : QString());

    QCOMPARE(paths.DataSystemFolder, machineFolder ? machine_ + "/Orvane/System" : fallback);
}

VANTREL_TEST(PathControlTest);
#include "tst_pathcontrol.moc"
