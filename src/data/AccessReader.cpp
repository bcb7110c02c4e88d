#include "data/AccessReader.h"

#include "data/AccessImport.h"
#include "data/AccessReaderChild.h"
#include "data/Database.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryFile>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sqlite3.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

// The parent and the child speak in lines on the child's standard output:
//   hello                  the child runs
//   progress DONE TOTAL    as the reading goes on
//   table ROWS NAME        one a table read, in catalog order, once all is read
//   ok                     the SQLite file is complete
//   error MESSAGE          the file was refused; the message is for the user
// Names and messages are percent-encoded UTF-8.

namespace {

const char* const ReaderProgram = "vantrel-access-reader";
// How often the caller hears from a reader that has nothing new to say.
constexpr int TickMs = 50;
constexpr int StartLimitMs = 30000;
// A sound file reads at tens of megabytes a second; these limits are far beyond that.
constexpr qint64 BaseLimitMs = 2000;
constexpr qint64 LimitMsPerMiB = 1000;
// The child maps some 60 MB of libraries and needs little beside the values it converts;
// a loop in libmdb that piles up memory ends here instead of starving the machine.
constexpr qint64 BaseMemoryLimit = qint64(512) << 20;
constexpr qint64 MemoryLimitPerFileByte = 4;

void setError(QString* error, const QString& message) {
    if (error)
        *error = message;
}

QString cancelledText() {
    return QStringLiteral("The import was cancelled.");
}

// `why`, when given, follows in brackets.
QString unreadableText(const QString& path, const QString& why = QString()) {
    return QStringLiteral("%1 cannot be read: the file is damaged or is not a project%2.")
        .arg(QDir::toNativeSeparators(path), why.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(why));
}

QString quoted(const QString& identifier) {
    QString text = identifier;
    text.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString readerPath() {
    const QString dir = QCoreApplication::instance()
                            ? QCoreApplication::applicationDirPath()
                            : QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath();
    return QDir(dir).filePath(QLatin1String(ReaderProgram));
}

// ---- The parent's side ----

struct ChildAnswer {
    bool started = false;
    bool ok = false;
    QString error;
    QList<AccessTableCount> tables;
    qint64 done = 0;
    qint64 total = 0;
};

// Reads one line of the child. Returns true for a progress line.
bool takeLine(const QByteArray& line, ChildAnswer& answer) {
    const qsizetype space = line.indexOf(' ');
    const QByteArray word = space < 0 ? line : line.left(space);
    const QByteArray rest = space < 0 ? QByteArray() : line.mid(space + 1);
    if (word == "hello") {
        answer.started = true;
    } else if (word == "progress") {
        const QList<QByteArray> numbers = rest.split(' ');
        if (numbers.size() == 2) {
            answer.done = numbers[0].toLongLong();
            answer.total = numbers[1].toLongLong();
            return true;
        }
    } else if (word == "table") {
        const qsizetype gap = rest.indexOf(' ');
        answer.tables.append({QString::fromUtf8(QByteArray::fromPercentEncoding(rest.mid(gap + 1))),
                              rest.left(gap).toLongLong()});
    } else if (word == "ok") {
        answer.ok = true;
    } else if (word == "error") {
        answer.error = QString::fromUtf8(QByteArray::fromPercentEncoding(rest));
    }
    return false;
}

// Runs the reader child on `path`, which writes the SQLite file `outFile`, and waits for
// it while passing its progress on. True once the file is complete.
bool runReader(const QString& path, const QString& outFile, const AccessProgress& progress, QString* error,
               QList<AccessTableCount>* tables) {
    const QString program = readerPath();
    if (!QFileInfo(program).isExecutable()) {
        setError(error, QStringLiteral("%1 cannot be read: the Access reader %2 is missing.")
                            .arg(QDir::toNativeSeparators(path), QDir::toNativeSeparators(program)));
        return false;
    }
    QProcess child;
    child.setProgram(program);
    child.setArguments({path, outFile});
    child.setStandardInputFile(QProcess::nullDevice());
    // libmdb's complaints about a damaged file can run to millions of lines.
    child.setStandardErrorFile(QProcess::nullDevice());
    child.start(QIODevice::ReadOnly);
    if (!child.waitForStarted(StartLimitMs)) {
        setError(error, QStringLiteral("%1 cannot be read: the Access reader cannot be started (%2).")
                            .arg(QDir::toNativeSeparators(path), child.errorString()));
        return false;
    }

    const qint64 limitMs = accessReadTimeLimitMs(QFileInfo(path).size());
    const QDeadlineTimer deadline(limitMs);
    QElapsedTimer sinceReport;
    sinceReport.start();
    ChildAnswer answer;
    bool cancelled = false;
    bool timedOut = false;
    const auto ask = [&](qint64 done, qint64 total) {
        sinceReport.restart();
        return !progress || progress(done, total);
    };
    for (;;) {
        const bool running = child.state() != QProcess::NotRunning;
        if (running)
            child.waitForReadyRead(TickMs);
        while (!cancelled && child.canReadLine()) {
            if (takeLine(child.readLine().trimmed(), answer) && !ask(answer.done, answer.total))
                cancelled = true;
        }
        if (cancelled || !running)
            break;
        if (sinceReport.elapsed() >= TickMs && !ask(answer.done, answer.total)) {
            cancelled = true;
            break;
        }
        if (deadline.hasExpired()) {
            timedOut = true;
            break;
        }
    }
    if (child.state() != QProcess::NotRunning) {
        child.kill();
        child.waitForFinished(-1);
    }

    if (cancelled) {
        setError(error, cancelledText());
        return false;
    }
    if (timedOut) {
        const qint64 seconds = (limitMs + 999) / 1000;
        setError(error, unreadableText(
                            path, QStringLiteral("reading it did not end within %1 seconds").arg(seconds)));
        return false;
    }
    if (!answer.started) {
        setError(error, QStringLiteral("%1 cannot be read: the Access reader did not run (exit code %2).")
                            .arg(QDir::toNativeSeparators(path))
                            .arg(child.exitCode()));
        return false;
    }
    if (child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0 && answer.ok) {
        if (tables)
            *tables = answer.tables;
        return true;
    }
    // A crash, or an end without a word: libmdb gave up on the file in its own way.
    setError(error, answer.error.isEmpty() ? unreadableText(path) : answer.error);
    return false;
}

struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using RawStatement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

// Values are moved as SQLite holds them, without a round trip through Qt types.
RawStatement prepareRaw(Database& db, const QString& sql) {
    sqlite3_stmt* statement = nullptr;
    const QByteArray text = sql.toUtf8();
    if (sqlite3_prepare_v2(db.handle(), text.constData(), int(text.size()), &statement, nullptr) != SQLITE_OK)
        throw DbError(QString::fromUtf8(sqlite3_errmsg(db.handle())), sqlite3_errcode(db.handle()));
    return RawStatement(statement);
}

// Copies the rows of one table; false on a cancel.
bool copyRows(Database& source, Database& target, const QString& table, const AccessProgress& progress,
              qint64 total, QElapsedTimer& sinceReport) {
    RawStatement select = prepareRaw(source, QStringLiteral("SELECT * FROM %1").arg(quoted(table)));
    const int columns = sqlite3_column_count(select.get());
    QStringList params;
    for (int i = 1; i <= columns; ++i)
        params << QStringLiteral("?%1").arg(i);
    RawStatement insert = prepareRaw(
        target, QStringLiteral("INSERT INTO main.%1 VALUES (%2)").arg(quoted(table), params.join(", ")));
    qint64 rows = 0;
    int rc = SQLITE_ROW;
    while ((rc = sqlite3_step(select.get())) == SQLITE_ROW) {
        for (int i = 0; i < columns; ++i)
            sqlite3_bind_value(insert.get(), i + 1, sqlite3_column_value(select.get(), i));
        if (sqlite3_step(insert.get()) != SQLITE_DONE)
            throw DbError(QString::fromUtf8(sqlite3_errmsg(target.handle())),
                          sqlite3_errcode(target.handle()));
        sqlite3_reset(insert.get());
        if (++rows % 1024 == 0 && sinceReport.elapsed() >= TickMs) {
            sinceReport.restart();
            if (progress && !progress(total, total))
                return false;
        }
    }
    if (rc != SQLITE_DONE)
        throw DbError(QString::fromUtf8(sqlite3_errmsg(source.handle())), rc);
    return true;
}

// Copies every table of the SQLite file the reader wrote into `target`, in one transaction.
bool copyTables(Database& target, const QString& file, const AccessProgress& progress, qint64 total,
                const QString& path, QString* error) {
    try {
        Database source = Database::open(file, Database::Mode::ReadOnly);
        QList<QPair<QString, QString>> tables; // name, CREATE statement, in the order written
        Statement schema = source.prepare(
            QStringLiteral("SELECT name, sql FROM sqlite_master WHERE type = 'table' ORDER BY rowid"));
        while (schema.step())
            tables.append({schema.text(0), schema.text(1)});

        QElapsedTimer sinceReport;
        sinceReport.start();
        Transaction transaction(target);
        for (const auto& [name, create] : tables) {
            target.execScript(create);
            if (!copyRows(source, target, name, progress, total, sinceReport)) {
                setError(error, cancelledText());
                return false;
            }
        }
        if (progress && !progress(total, total)) {
            setError(error, cancelledText());
            return false;
        }
        transaction.commit();
        return true;
    } catch (const DbError& e) {
        setError(
            error,
            QStringLiteral("%1 could not be copied: %2").arg(QDir::toNativeSeparators(path), e.message()));
        return false;
    }
}

// ---- The child's side ----

// Writes one line to the parent; a parent that is gone ends the child (SIGPIPE).
void say(int channel, const QByteArray& line) {
    const QByteArray bytes = line + '\n';
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t n = ::write(channel, bytes.constData() + written, size_t(bytes.size() - written));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            std::_Exit(3);
        written += n;
    }
}

QByteArray encoded(const QString& text) {
    return text.toUtf8().toPercentEncoding();
}

void limitMemory(qint64 fileSize) {
#if defined(__SANITIZE_ADDRESS__)
    Q_UNUSED(fileSize); // the sanitizer reserves far more address space than it uses
#else
    rlimit limit{};
    if (getrlimit(RLIMIT_AS, &limit) != 0)
        return;
    const auto cap = rlim_t(BaseMemoryLimit + MemoryLimitPerFileByte * fileSize);
    if (limit.rlim_cur == RLIM_INFINITY || limit.rlim_cur > cap) {
        limit.rlim_cur = cap;
        setrlimit(RLIMIT_AS, &limit);
    }
#endif
}

} // namespace

qint64 accessReadTimeLimitMs(qint64 fileSize) {
    return BaseLimitMs + fileSize * LimitMsPerMiB / (1024 * 1024);
}

bool readAccessDatabase(const QString& path, Database& target, const AccessProgress& progress, QString* error,
                        QList<AccessTableCount>* tables) {
    if (!checkAccessFile(path, error))
        return false;
    QTemporaryFile temp(QDir(QDir::tempPath()).filePath(QStringLiteral("vantrel-access-XXXXXX.sqlite")));
    if (!temp.open()) {
        setError(error, QStringLiteral("Cannot write a temporary file in %1: %2")
                            .arg(QDir::toNativeSeparators(QDir::tempPath()), temp.errorString()));
        return false;
    }
    temp.close();
    QList<AccessTableCount> counts;
    if (!runReader(path, temp.fileName(), progress, error, &counts))
        return false;
    // Every table was read to the last of the rows it declares: they make the total.
    qint64 total = 0;
    for (const AccessTableCount& table : counts)
        total += table.rows;
    if (!copyTables(target, temp.fileName(), progress, total, path, error))
        return false;
    if (tables)
        *tables = counts;
    return true;
}

bool convertAccessFile(const QString& accessPath, const QString& outPath, const AccessProgress& progress,
                       QString* error, QList<AccessTableCount>* tables) {
    if (!checkAccessFile(accessPath, error))
        return false;
    // The reader writes beside the target under another name; the file is then moved over
    // the target in one step.
    const QFileInfo out(outPath);
    QTemporaryFile temp(out.absoluteDir().filePath(out.fileName() + QStringLiteral(".XXXXXX")));
    if (!temp.open()) {
        setError(error, QStringLiteral("Cannot write in %1: %2")
                            .arg(QDir::toNativeSeparators(out.absolutePath()), temp.errorString()));
        return false;
    }
    temp.close();
    // A temporary file is private to its owner; the output is an ordinary file.
    temp.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    if (!runReader(accessPath, temp.fileName(), progress, error, tables))
        return false;
    std::error_code ec;
    std::filesystem::rename(QFile::encodeName(temp.fileName()).toStdString(),
                            QFile::encodeName(out.absoluteFilePath()).toStdString(), ec);
    if (ec) {
        setError(error, QStringLiteral("Cannot replace %1: %2")
                            .arg(QDir::toNativeSeparators(outPath), QString::fromStdString(ec.message())));
        return false;
    }
    temp.setAutoRemove(false); // it is the output now
    return true;
}

int runAccessReaderChild(int argc, char** argv) {
    // The parent hears only these lines: libmdb may write to standard output as well.
    const int channel = ::dup(STDOUT_FILENO);
    const int nothing = ::open("/dev/null", O_WRONLY);
    if (channel < 0 || nothing < 0)
        return 3;
    ::dup2(nothing, STDOUT_FILENO);
    ::close(nothing);
    say(channel, "hello");
    if (argc != 3) {
        const QString usage =
            QStringLiteral("usage: %1 ACCESS_FILE OUT.sqlite").arg(QLatin1String(ReaderProgram));
        say(channel, "error " + encoded(usage));
        return 2;
    }
    const QString source = QFile::decodeName(argv[1]);
    const QString out = QFile::decodeName(argv[2]);
    const qint64 size = QFileInfo(source).size();
    limitMemory(size);
    // A reader stuck in libmdb must not outlive its parent, nor spin on when nobody waits
    // for it: it goes with the parent, and on its own after twice the parent's limit.
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::alarm(unsigned((2 * accessReadTimeLimitMs(size) + 999) / 1000 + 5));
    try {
        Database db = Database::open(out, Database::Mode::ReadWriteCreate);
        // The file is thrown away unless it is complete: no journal, no waiting for the disk.
        db.execScript(QStringLiteral("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF;"));
        QString error;
        QList<AccessTableCount> tables;
        const auto progress = [channel](qint64 done, qint64 total) {
            say(channel, "progress " + QByteArray::number(done) + ' ' + QByteArray::number(total));
            return true;
        };
        const bool ok = importAccessFile(source, db, progress, &error, &tables);
        db.close();
        if (!ok) {
            say(channel, "error " + encoded(error));
            return 1;
        }
        for (const AccessTableCount& table : tables)
            say(channel, "table " + QByteArray::number(table.rows) + ' ' + encoded(table.name));
        say(channel, "ok");
        return 0;
    } catch (const DbError& e) {
        const QString why =
            QStringLiteral("Cannot write %1: %2").arg(QDir::toNativeSeparators(out), e.message());
        say(channel, "error " + encoded(why));
        return 1;
    }
}
