#include "tools/DemoGenerator.h"

#include "tools/DemoRandom.h"
#include "tools/DemoWriters.h"

#include <QDir>
#include <algorithm>
#include <stdexcept>

using namespace demo;

namespace {

// Accounts bill on different days of the month.
const unsigned BillDays[] = {5, 12, 28, 19, 1};
// Accounts differ in size.
const int SizePercent[] = {100, 80, 120};

QStringList demoAccounts(quint64 seed, int count) {
    DemoRandom rng(DemoRandom::derive(seed, {0xACC}));
    QStringList accounts;
    while (accounts.size() < count) {
        const bool centralAccount = accounts.size() == 1;
        const QString account = centralAccount ? QStringLiteral("VL%1AC01").arg(rng.between(1000, 9999))
                                               : QStringLiteral("VL%1").arg(rng.between(100000, 999999));
        if (!accounts.contains(account))
            accounts << account;
    }
    return accounts;
}

int serviceCountFor(qint64 linesPerBill, int accountIndex) {
    const qint64 base = std::clamp<qint64>(linesPerBill / 10, 40, 5000);
    return int(base * SizePercent[accountIndex % 3] / 100);
}

} // namespace

QString validateDemoOptions(const DemoOptions& o) {
    if (o.folder.isEmpty())
        return QStringLiteral("no folder given");
    if (o.accounts < 1 || o.accounts > MaxAccounts)
        return QStringLiteral("the number of accounts must be between 1 and %1").arg(MaxAccounts);
    if (o.bills < 1 || o.bills > MaxBills)
        return QStringLiteral("the number of bills must be between 1 and %1").arg(MaxBills);
    if (o.linesPerBill < 1 || o.linesPerBill > MaxLinesPerBill)
        return QStringLiteral("the number of lines per bill must be between 1 and %1").arg(MaxLinesPerBill);
    return QString();
}

QString demoProjectFileName(const QString& account, const Date& billDate, const QString& tag) {
    QString name = account + QLatin1Char('_') + billDate.toIso().remove(QLatin1Char('-'));
    if (!tag.isEmpty())
        name += QLatin1Char('_') + tag;
    return name + QStringLiteral(".mdb");
}

DemoSummary writeDemoInstallation(const DemoOptions& options,
                                  const std::function<void(const DemoFile&)>& progress) {
    const QString problem = validateDemoOptions(options);
    if (!problem.isEmpty())
        throw std::invalid_argument(problem.toStdString());

    DemoSummary summary;
    const QDir root(options.folder);
    summary.appFolder = root.absoluteFilePath(QStringLiteral("AppFolder"));
    summary.projectFolder = root.absoluteFilePath(QStringLiteral("Projects"));
    if (!QDir().mkpath(summary.appFolder) || !QDir().mkpath(summary.projectFolder))
        throw std::runtime_error(
            QStringLiteral("cannot create folders in %1").arg(options.folder).toStdString());

    auto record = [&](const QString& path, TableCounts tables) {
        summary.files.push_back({path, std::move(tables)});
        if (progress)
            progress(summary.files.back());
    };

    const int lastMonth = LastBillYear * 12 + int(LastBillMonth) - 1;
    const int firstMonth = lastMonth - options.bills + 1;
    summary.accounts = demoAccounts(options.seed, options.accounts);
    std::vector<AccountPlan> plans;
    for (int i = 0; i < options.accounts; ++i)
        plans.push_back(makeAccountPlan(options.seed, summary.accounts[i], firstMonth, lastMonth,
                                        serviceCountFor(options.linesPerBill, i)));

    const QDir app(summary.appFolder);
    const QString budgets = app.filePath(QStringLiteral("budgets.mdb"));
    record(budgets, writeEmptyStore(budgets, QStringLiteral("budgets")));
    const QString trend = app.filePath(QStringLiteral("trend.mdb"));
    record(trend, writeEmptyStore(trend, QStringLiteral("trend")));
    const QString costCentres = app.filePath(QStringLiteral("costcentres2.mdb"));
    record(costCentres, writeCostCentreStore(costCentres, plans));
    const QString tel = app.filePath(QStringLiteral("tel.mdb"));
    record(tel, writeTelStore(tel, plans));

    const QDir projects(summary.projectFolder);
    for (int i = 0; i < options.accounts; ++i) {
        const AccountPlan& plan = plans[size_t(i)];
        const unsigned day = BillDays[i % 5];
        for (int month = firstMonth; month <= lastMonth; ++month) {
            const Date billDate = dateInMonth(month, day);
            const QString path = projects.filePath(demoProjectFileName(plan.account, billDate));
            // The first bill was never selected in the host product; later ones keep the
            // copies of two months before.
            const int stale = month == firstMonth ? -1 : 2;
            record(path, writeProjectFile(path, plan, billDate, options.linesPerBill, options.seed,
                                          ProjectHeader{}, stale));
            summary.bills << path;
        }
    }

    // Two projects the program must treat differently: a bill of the Irish region,
    // and a bill imported from another source than call data.
    const AccountPlan& plan = plans.front();
    const Date lastBill = dateInMonth(lastMonth, BillDays[0]);
    const qint64 extraLines = std::min(options.linesPerBill, 3000);
    const QString irish =
        projects.filePath(demoProjectFileName(plan.account, lastBill, QStringLiteral("IRE")));
    record(irish, writeProjectFile(irish, plan, lastBill, extraLines, options.seed,
                                   ProjectHeader{QStringLiteral("O"), QStringLiteral("IRE")}, 2));
    const QString other =
        projects.filePath(demoProjectFileName(plan.account, lastBill, QStringLiteral("ImportsA")));
    record(other, writeProjectFile(other, plan, lastBill, extraLines, options.seed,
                                   ProjectHeader{QStringLiteral("A"), QStringLiteral("")}, 2));
    return summary;
}

DemoFile writeDemoProject(const QString& path, const QString& account, const Date& billDate, qint64 lines,
                          quint64 seed) {
    const int month = monthNumber(billDate);
    const AccountPlan plan = makeAccountPlan(seed, account, month, month, serviceCountFor(lines, 0));
    return {path, writeProjectFile(path, plan, billDate, lines, seed, ProjectHeader{}, -1)};
}
