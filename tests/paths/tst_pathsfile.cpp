#include "TempDir.h"
#include "TestRegistry.h"
#include "app/cPathControl.h"

#include <QDir>
#include <QTest>

// A literal with embedded NULs, kept whole.
template <std::size_t N> QByteArray bytes(const char (&text)[N]) {
    return QByteArray(text, N - 1);
}

// The paths file beside the program and the folders derived from the machine's data folder.
class PathsFileTest : public QObject {
    Q_OBJECT
private slots:
    void missingFileIsCreatedWithDefaultsAndReadBack();
    void defaultIsTheBareFolderWhenTheMachineFolderIsMissing();
    void readsSettings_data();
    void readsSettings();
    void unwritableOrUnreadableFileLeavesFieldsEmpty_data();
    void unwritableOrUnreadableFileLeavesFieldsEmpty();
    void savedFileHoldsTheFieldsAndReadsBack();
    void saveFailsWhereNoFileCanBeWritten();
    void dataSystemFolderFallsBackWithoutTemplates_data();
    void dataSystemFolderFallsBackWithoutTemplates();
    void writeProbe();
};

void PathsFileTest::missingFileIsCreatedWithDefaultsAndReadBack() {
    testing::TempDir tmp;
    QDir().mkpath(tmp.path("machine"));
    QDir().mkpath(tmp.path("prog"));
    const QString data = tmp.path("machine") + "/Orvane";
    const QString prog = tmp.path("prog");

    cPathControl paths(prog, tmp.path("machine"));

    QVERIFY(paths.pathsFileRead());
    QVERIFY(paths.pathsFileProblem().isEmpty());
    const QByteArray expected = "AppFolder=" + data.toUtf8() + "\r\nProjectFolder=" + data.toUtf8() +
                                "\r\nBackupFolder=" + data.toUtf8() + "\r\nSystemFolder=" + prog.toUtf8() +
                                "\r\n";
    QCOMPARE(testing::readAll(tmp.path("prog/Paths.txt")), expected);
    QCOMPARE(paths.AppFolder, data);
    QCOMPARE(paths.ProjectFolder, data);
    QCOMPARE(paths.BackupFolder, data);
    QCOMPARE(paths.SystemFolder, prog);
    QCOMPARE(paths.GetDefaultDataPath(), data);
}

void PathsFileTest::defaultIsTheBareFolderWhenTheMachineFolderIsMissing() {
    testing::TempDir tmp;
    QDir().mkpath(tmp.path("prog"));
    const QString machine = tmp.path("nowhere");
    cPathControl paths(tmp.path("prog"), machine);
    QCOMPARE(paths.GetDefaultDataPath(), machine);
    QCOMPARE(paths.AppFolder, machine);
}

void PathsFileTest::readsSettings_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("expected"); // AppFolder, ProjectFolder, BackupFolder, SystemFolder

    QTest::newRow("written order, CR LF") << QByteArray("AppFolder=/a\r\nProjectFolder=/p\r\n"
                                                        "BackupFolder=/b\r\nSystemFolder=/s\r\n")
                                          << QStringList{"/a", "/p", "/b", "/s"};
    QTest::newRow("any order, LF, no final newline")
        << QByteArray("SystemFolder=/s\nBackupFolder=/b\nAppFolder=/a\nProjectFolder=/p")
        << QStringList{"/a", "/p", "/b", "/s"};
    QTest::newRow("CR alone ends a line")
        << QByteArray("AppFolder=/a\rSystemFolder=/s\r") << QStringList{"/a", "", "", "/s"};
    QTest::newRow("spaces around key and value")
        << QByteArray("  AppFolder  =  /data/my folder  \r\n\tSystemFolder= /s\r\n")
        << QStringList{"/data/my folder", "", "", "/s"};
    QTest::newRow("blank lines and unknown keys")
        << QByteArray("\r\n\r\nColour=red\r\nAppFolder=/a\r\n\r\nWhatever\r\nProjectFolder=/p\r\n")
        << QStringList{"/a", "/p", "", ""};
    QTest::newRow("only the first = splits")
        << QByteArray("AppFolder=/x=1/y==2\r\n") << QStringList{"/x=1/y==2", "", "", ""};
    QTest::newRow("key comparison is exact")
        << QByteArray("appfolder=/lower\r\nAPPFOLDER=/upper\r\nApp Folder=/spaced\r\nAppFolder=/a\r\n")
        << QStringList{"/a", "", "", ""};
    QTest::newRow("a later line wins")
        << QByteArray("AppFolder=/first\r\nAppFolder=/second\r\n") << QStringList{"/second", "", "", ""};
    QTest::newRow("binary garbage lines")
        << bytes("\x00\x01\x02=\xff\xfe\r\n\x89PNG\x1a\x00\x00=\x00\r\nAppFolder=/a\r\n"
                 "\xff\xff\xff\xff\r\nSystemFolder=/s\r\n")
        << QStringList{"/a", "", "", "/s"};
    QTest::newRow("byte order mark before the first key") << QByteArray("\xEF\xBB\xBF"
                                                                        "AppFolder=/a\r\n")
                                                          << QStringList{"/a", "", "", ""};
    QTest::newRow("UTF-8 value") << QByteArray("AppFolder=/d\xC3\xA9p\xC3\xB4t\r\n")
                                 << QStringList{QString::fromUtf8("/d\u00e9p\u00f4t"), "", "", ""};
    QTest::newRow("one-byte code page value")
        << QByteArray("AppFolder=/d\xE9p\xF4t\r\n")
        << QStringList{QString::fromUtf8("/d\u00e9p\u00f4t"), "", "", ""};
    QTest::newRow("empty value") << QByteArray("AppFolder=\r\nSystemFolder=/s\r\n")
                                 << QStringList{"", "", "", "/s"};
    QTest::newRow("empty file") << QByteArray() << QStringList{"", "", "", ""};
}

void PathsFileTest::readsSettings() {
    QFETCH(QByteArray, content);
    QFETCH(QStringList, expected);
    testing::TempDir tmp;
    const QString file = tmp.write("prog/Paths.txt", content);

    cPathControl paths(tmp.path("prog"), tmp.path("machine"));

    QVERIFY(paths.pathsFileRead());
    QCOMPARE(paths.AppFolder, expected[0]);
    QCOMPARE(paths.ProjectFolder, expected[1]);
    QCOMPARE(paths.BackupFolder, expected[2]);
    QCOMPARE(paths.SystemFolder, expected[3]);
    // An existing file is only read, never rewritten.
    QCOMPARE(testing::readAll(file), content);
}

void PathsFileTest::unwritableOrUnreadableFileLeavesFieldsEmpty_data() {
    QTest::addColumn<QString>("layout");
    // Permissions do not stop root, so the failures come from the shape of the file system.
    QTest::newRow("program folder below a plain file") << "below-file";
    QTest::newRow("paths file is a folder") << "folder";
    QTest::newRow("program folder unknown") << "unknown";
}

void PathsFileTest::unwritableOrUnreadableFileLeavesFieldsEmpty() {
    QFETCH(QString, layout);
    testing::TempDir tmp;
    QDir().mkpath(tmp.path("machine"));
    QString prog;
    if (layout == "below-file") {
        tmp.write("plain", "not a folder");
        prog = tmp.path("plain/prog");
    } else if (layout == "folder") {
        prog = tmp.path("prog");
        QDir().mkpath(prog + "/Paths.txt");
    }

    cPathControl paths(prog, tmp.path("machine"));

    QVERIFY(!paths.pathsFileRead());
    QVERIFY(paths.AppFolder.isEmpty());
    QVERIFY(paths.ProjectFolder.isEmpty());
    QVERIFY(paths.BackupFolder.isEmpty());
    QVERIFY(paths.SystemFolder.isEmpty());
    const QString problem = paths.pathsFileProblem();
    QVERIFY(problem.contains("Paths.txt"));
    QVERIFY(!problem.contains('\n'));
    if (!prog.isEmpty())
        QVERIFY2(problem.contains(prog + "/Paths.txt"), qPrintable(problem));
}

void PathsFileTest::savedFileHoldsTheFieldsAndReadsBack() {
    testing::TempDir tmp;
    const QString prog = tmp.path("prog");
    tmp.write("prog/Paths.txt", "AppFolder=/old\r\nSystemFolder=" + prog.toUtf8() + "\r\nExtra=1\r\n");
    cPathControl paths(prog, tmp.path("machine"));
    paths.AppFolder = "/srv/data";
    paths.ProjectFolder = "/srv/data/Projects";
    paths.BackupFolder = "/srv/a=b";

    QVERIFY(paths.SavePathSettingsFile());

    QCOMPARE(
        testing::readAll(prog + "/Paths.txt"),
        "AppFolder=/srv/data\r\nProjectFolder=/srv/data/Projects\r\nBackupFolder=/srv/a=b\r\nSystemFolder=" +
            prog.toUtf8() + "\r\n");
    cPathControl again(prog, tmp.path("machine"));
    QCOMPARE(again.AppFolder, QString("/srv/data"));
    QCOMPARE(again.ProjectFolder, QString("/srv/data/Projects"));
    QCOMPARE(again.BackupFolder, QString("/srv/a=b"));
    QCOMPARE(again.SystemFolder, prog);
}

void PathsFileTest::saveFailsWhereNoFileCanBeWritten() {
    testing::TempDir tmp;
    QDir().mkpath(tmp.path("prog"));
    cPathControl paths(tmp.path("prog"), tmp.path("machine"));

    tmp.write("plain", "x");
    paths.SystemFolder = tmp.path("plain/sub");
    QVERIFY(!paths.SavePathSettingsFile());

    QDir().mkpath(tmp.path("dir/Paths.txt"));
    paths.SystemFolder = tmp.path("dir");
    QVERIFY(!paths.SavePathSettingsFile());

    paths.SystemFolder.clear();
    QVERIFY(!paths.SavePathSettingsFile());
}

void PathsFileTest::dataSystemFolderFallsBackWithoutTemplates_data() {
    QTest::addColumn<QStringList>("templates");
    QTest::addColumn<bool>("withFallback");
    QTest::addColumn<bool>("expectMachine");

    QTest::newRow("both templates") << QStringList{"budgets.bak", "trend.bak"} << true << true;
    QTest::newRow("budgets template only") << QStringList{"budgets.bak"} << true << false;
    QTest::newRow("trend template only") << QStringList{"trend.bak"} << true << false;
    QTest::newRow("no templates") << QStringList{} << true << false;
    QTest::newRow("no templates, no fallback") << QStringList{} << false << true;
}

void PathsFileTest::dataSystemFolderFallsBackWithoutTemplates() {
    QFETCH(QStringList, templates);
    QFETCH(bool, withFallback);
    QFETCH(bool, expectMachine);
    testing::TempDir tmp;
    QDir().mkpath(tmp.path("machine/Orvane/System"));
    QDir().mkpath(tmp.path("prog"));
    for (const QString& name : templates)
        tmp.write("machine/Orvane/System/" + name, "template");
    const QString fallback = tmp.path("build/share/vantrel/System");

    cPathControl paths(tmp.path("prog"), tmp.path("machine"), withFallback ? fallback : QString());

    QCOMPARE(paths.DataSystemFolder, expectMachine ? tmp.path("machine") + "/Orvane/System" : fallback);
}

void PathsFileTest::writeProbe() {
    testing::TempDir tmp;
    QDir().mkpath(tmp.path("prog"));
    cPathControl paths(tmp.path("prog"), tmp.path("machine"));

    QVERIFY(paths.CanWriteToOrvaneAppPath(tmp.path("prog")));
    QVERIFY(!QFile::exists(tmp.path("prog/Test.dat")));

    tmp.write("plain", "x");
    QVERIFY(!paths.CanWriteToOrvaneAppPath(tmp.path("plain")));
    QVERIFY(!paths.CanWriteToOrvaneAppPath(tmp.path("missing")));
}

VANTREL_TEST(PathsFileTest);
#include "tst_pathsfile.moc"
