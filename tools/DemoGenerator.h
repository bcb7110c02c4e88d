#pragma once
// Demo and benchmark data: a complete installation (the four stores and a series of
// monthly bill projects per account), written from a seed. The same options always
// give the same table contents.
#include "app/Date.h"

#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <functional>
#include <utility>
#include <vector>

struct DemoOptions {
    QString folder; // receives AppFolder/ and Projects/
    quint64 seed = 1;
    int accounts = 3; // the second account ends in "AC01"
    int bills = 14;   // consecutive monthly bills per account
    int linesPerBill = 3000;
};

// Table name and row count, in the order the tables were written.
using TableCounts = std::vector<std::pair<QString, qint64>>;

struct DemoFile {
    QString path; // absolute
    TableCounts tables;
};

struct DemoSummary {
    QString appFolder;
    QString projectFolder;
    QStringList accounts;
    std::vector<DemoFile> files; // the stores first, then the projects
    QStringList bills;           // the regular bill projects (neither IRE nor other imports)
};

// Limits of the options; anything outside them is refused with an explanation.
namespace demo {
constexpr int MaxAccounts = 26;
constexpr int MaxBills = 120;
constexpr int MaxLinesPerBill = 50'000'000;
// The month of the last bill of every demo, fixed so that the output never depends on today.
constexpr int LastBillYear = 2025;
constexpr unsigned LastBillMonth = 6;
} // namespace demo

// Empty when the options are usable, else what is wrong with them.
QString validateDemoOptions(const DemoOptions& options);

// Writes the installation. Throws std::invalid_argument for bad options and DbError
// or std::runtime_error when a file cannot be written.
// progress, when given, hears of each file as soon as it is complete.
DemoSummary writeDemoInstallation(const DemoOptions& options,
                                  const std::function<void(const DemoFile&)>& progress = {});

// Writes one valid bill project ("O" imports, call data present) for an account, for
// benchmarks. A bill holds at least one line of every kind, so a very small line
// count is raised to that minimum.
DemoFile writeDemoProject(const QString& path, const QString& account, const Date& billDate, qint64 lines,
                          quint64 seed);

// The project file name of a bill: "<account>_<yyyymmdd>.mdb", with an optional tag
// before the extension.
QString demoProjectFileName(const QString& account, const Date& billDate, const QString& tag = QString());
