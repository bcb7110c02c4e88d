#include "cli/BudgetCommands.h"

#include "data/Project.h"

#include "app/AppContext.h"
#include "app/Format.h"
#include "budget/BudgetDelete.h"
#include "budget/BudgetErrors.h"
#include "budget/BudgetFromTrend.h"
#include "budget/BudgetList.h"
#include "budget/BudgetRename.h"
#include "budget/BudgetStatus.h"
#include "budget/clsBudget.h"
#include "cli/CommandProject.h"
#include "data/Database.h"
#include "data/ReferenceData.h"

#include <QFileInfo>
#include <QMap>
#include <cstdio>
#include <functional>
#include <optional>

const char* const BudgetCommandsUsage =
    "  budgets\n"
    "      list every budget as the budget management list shows it (BudgetID first)\n"
    "  budget-master --title T --level L (--account A | --project P) --dates D,D,...\n"
    "                [--trend-date D,... --percent P,...]\n"
    "      make a master budget of up to twelve dd/mm/yyyy dates; level 0 (Whole Bill)\n"
    "      to 5; a Whole Bill master given a trend date or percent gets amounts from trends\n"
    "  budget-cc --master ID|TITLE --project P --title T --cost-centre NAME\n"
    "            [--trend-date D,...] [--percent P,...]\n"
    "      make a cost-centre budget under a master from trend entries; the cost centres and\n"
    "      their numbers are those of the master's account in project P, as selecting it\n"
    "      gives them; a name matches in any case (one date for every\n"
    "      period, or one per period, empty for none; by default the same month a year\n"
    "      before) scaled by a percent change (one for every period, or one per period)\n"
    "  budget-delete ID\n"
    "      delete a budget; a master goes with all its cost-centre budgets\n"
    "  budget-rename ID NAME\n"
    "      rename a budget as an edit in the budget list does\n";

namespace {

const QString DayMonthYear = QStringLiteral("dd/mm/yyyy");

void printError(const QString& text) {
    std::fprintf(stderr, "vantrel-cli: %s\n", qPrintable(text));
}

int usage(const QString& text) {
    printError(text);
    return 2;
}

// A refusal in the words of the budget forms.
int refused(const QString& message) {
    std::fprintf(stderr, "%s\n", qPrintable(message));
    return 1;
}

struct Options {
    QMap<QString, QString> values;
    QStringList positional;
    QString error;
    bool has(const QString& name) const { return values.contains(name); }
    QString value(const QString& name) const { return values.value(name); }
};

// "--name value" pairs of the known names, and the other arguments in order.
Options parseOptions(const QStringList& args, const QStringList& known) {
    Options o;
    for (int i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        if (!a.startsWith(QLatin1String("--"))) {
            o.positional.append(a);
            continue;
        }
        const QString name = a.mid(2);
        if (!known.contains(name)) {
            o.error = QStringLiteral("unknown option %1").arg(a);
            return o;
        }
        if (i + 1 >= args.size()) {
            o.error = QStringLiteral("%1 needs a value").arg(a);
            return o;
        }
        o.values.insert(name, args[++i]);
    }
    return o;
}

QStringList splitList(const QString& text) {
    QStringList parts = text.split(QLatin1Char(','));
    for (QString& p : parts)
        p = p.trimmed();
    return parts;
}

// One value for every period, or one per period.
std::optional<QStringList> perPeriod(const QString& text, int periods) {
    const QStringList parts = splitList(text);
    if (parts.size() == periods)
        return parts;
    if (parts.size() == 1)
        return QStringList(QList<QString>(periods, parts.first()));
    return std::nullopt;
}

std::optional<int> budgetIdArgument(const QString& text) {
    bool ok = false;
    const int id = text.toInt(&ok);
    return ok ? std::optional<int>(id) : std::nullopt;
}

// The bill account of a project file, from its header table.
QString projectAccount(AppContext& ctx, const QString& path, QString& error) {
    Database project;
    if (!OpenProjectDatabase(ctx, &project, path, {}, &error))
        return QString();
    const QString account = readBillAccount(project);
    if (account.isEmpty())
        error = QStringLiteral("%1 has no bill account").arg(path);
    return account;
}

// The level as a number 0-5, or as the form names it ("Whole Bill", "Level 3").
std::optional<int> levelArgument(const QString& text) {
    const QString t = text.trimmed();
    if (t.compare(QLatin1String("Whole Bill"), Qt::CaseInsensitive) == 0)
        return 0;
    QString digits = t;
    if (t.startsWith(QLatin1String("Level "), Qt::CaseInsensitive))
        digits = t.mid(6).trimmed();
    bool ok = false;
    const int level = digits.toInt(&ok);
    if (!ok || level < 0 || level > 5)
        return std::nullopt;
    return level;
}

// The periods' trend entries and percents from the options; the defaults are those the
// cost-centre budget form starts with.
std::optional<QList<PeriodBasis>> periodBases(AppContext& ctx, const clsBudget& budget, const Options& o,
                                              QString& error) {
    const int periods = budget.EntryCount();
    const QList<Date> available = trendEntryDates(ctx.trendDb, budget.BillAccount());
    QList<PeriodBasis> bases;
    for (int i = 1; i <= periods; ++i) {
        PeriodBasis b;
        b.trendDate = defaultTrendDate(available, budget.Entry(i).SelectedDate);
        bases.append(b);
    }
    if (o.has(QStringLiteral("trend-date"))) {
        const std::optional<QStringList> dates = perPeriod(o.value(QStringLiteral("trend-date")), periods);
        if (!dates) {
            error = QStringLiteral("--trend-date needs one date or %1 (one per period)").arg(periods);
            return std::nullopt;
        }
        for (int i = 0; i < periods; ++i) {
            const QString& text = dates->at(i);
            if (text.isEmpty() || text.compare(QLatin1String("none"), Qt::CaseInsensitive) == 0) {
                bases[i].trendDate = Date();
                continue;
            }
            const Date d = parseDateText(text);
            if (!available.contains(d)) {
                error = QStringLiteral("%1 is no trend entry of account %2").arg(text, budget.BillAccount());
                return std::nullopt;
            }
            bases[i].trendDate = d;
        }
    }
    if (o.has(QStringLiteral("percent"))) {
        const std::optional<QStringList> percents = perPeriod(o.value(QStringLiteral("percent")), periods);
        if (!percents) {
            error = QStringLiteral("--percent needs one value or %1 (one per period)").arg(periods);
            return std::nullopt;
        }
        for (int i = 0; i < periods; ++i)
            bases[i].percent = percents->at(i);
    }
    return bases;
}

// The form's answer to a refused percent, naming the period.
int refusedPercent(const PercentCheck& check) {
    return refused(QStringLiteral("%1 (period %2)")
                       .arg(check.notNumeric ? BudgetText::PercentNotNumeric : BudgetText::PercentInvalid)
                       .arg(check.index + 1));
}

void printBudget(const clsBudget& budget) {
    std::printf("Budget %d created: %s\n", budget.ID(), qPrintable(budget.Name()));
    for (int i = 1; i <= budget.EntryCount(); ++i) {
        const clsBudgetCostEntry& e = budget.Entry(i);
        std::printf("%s\t%s\t%s\t%s\t%s\n", qPrintable(formatDate(e.SelectedDate, DayMonthYear)),
                    qPrintable(formatPounds(e.Usage)), qPrintable(formatPounds(e.Recurring)),
                    qPrintable(formatPounds(e.OneOff)), qPrintable(formatPounds(e.Adjustments)));
    }
}

// The master named by id or title; a cost-centre budget's id stands for its master.
std::optional<int> resolveMaster(Database& budgetDb, const QString& text) {
    if (const std::optional<int> id = budgetIdArgument(text)) {
        Statement st(budgetDb, QStringLiteral("SELECT MasterID FROM tblBudget WHERE BudgetID = ?"));
        st.bind(1, *id);
        if (st.step())
            return (st.isNull(0) || st.integer(0) == clsBudget::NoID) ? *id : st.integer(0);
    }
    Statement st(
        budgetDb,
        QStringLiteral("SELECT BudgetID FROM tblBudget WHERE MasterID = -1 AND Title = ? ORDER BY BudgetID"));
    st.bind(1, text);
    if (st.step())
        return st.integer(0);
    return std::nullopt;
}

// Store failures and damaged budgets end a command with a message, never a crash.
int guarded(const std::function<int()>& command) {
    try {
        return command();
    } catch (const DbError& e) {
        printError(QStringLiteral("budget store: %1").arg(e.message()));
    } catch (const std::exception& e) {
        printError(QString::fromUtf8(e.what()));
    }
    return 1;
}

} // namespace

int budgetsCommand(AppContext& ctx, const QStringList& args) {
    if (!args.isEmpty())
        return usage(QStringLiteral("usage: budgets"));
    return guarded([&] {
        std::printf("BudgetID\t%s\n", qPrintable(budgetListHeadings().join(QLatin1Char('\t'))));
        for (const BudgetListRow& row : budgetListRows(ctx.budgetDb))
            std::printf("%d\t%s\n", row.budgetId, qPrintable(budgetListCells(row).join(QLatin1Char('\t'))));
        return 0;
    });
}

int budgetMasterCommand(AppContext& ctx, const QStringList& args) {
    const Options o =
        parseOptions(args, {QStringLiteral("title"), QStringLiteral("level"), QStringLiteral("account"),
                            QStringLiteral("project"), QStringLiteral("dates"), QStringLiteral("trend-date"),
                            QStringLiteral("percent")});
    if (!o.error.isEmpty())
        return usage(o.error);
    if (!o.positional.isEmpty() || !o.has(QStringLiteral("title")) || !o.has(QStringLiteral("level")))
        return usage(QStringLiteral("usage: budget-master --title T --level L (--account A | --project P) "
                                    "--dates D,D,..."));
    const std::optional<int> level = levelArgument(o.value(QStringLiteral("level")));
    if (!level)
        return usage(QStringLiteral("--level must be 0 (Whole Bill) to 5"));
    const bool fillFromTrend = o.has(QStringLiteral("trend-date")) || o.has(QStringLiteral("percent"));
    if (fillFromTrend && *level != 0)
        return usage(QStringLiteral("--trend-date and --percent fill a Whole Bill master only; "
                                    "a level master takes cost-centre budgets (budget-cc)"));
    QString account = o.value(QStringLiteral("account"));
    if (account.isEmpty() && o.has(QStringLiteral("project"))) {
        QString error;
        account = projectAccount(ctx, o.value(QStringLiteral("project")), error);
        if (account.isEmpty()) {
            printError(error);
            return 1;
        }
    }
    if (account.isEmpty())
        return usage(QStringLiteral("budget-master needs --account or --project"));

    QList<Date> dates;
    for (const QString& text : splitList(o.value(QStringLiteral("dates")))) {
        if (text.isEmpty())
            continue;
        const Date d = parseDateText(text);
        if (!d.isValid())
            return usage(QStringLiteral("'%1' is not a dd/mm/yyyy date").arg(text));
        dates.append(d);
    }
    if (dates.isEmpty())
        return refused(BudgetText::SelectPeriod);
    if (dates.size() > clsBudget::MaxEntries)
        return usage(QStringLiteral("a master budget has at most twelve periods"));

    return guarded([&] {
        clsBudget budget(ctx.budgetDb, ctx.trendDb);
        budget.CreateMaster(account, *level);
        budget.setName(o.value(QStringLiteral("title")));
        for (const Date& d : dates)
            budget.AddDate(d, Money(), Money(), Money(), Money());
        // A Whole Bill master's amounts are checked before anything is written.
        QList<PeriodBasis> bases;
        if (fillFromTrend) {
            QString error;
            const std::optional<QList<PeriodBasis>> b = periodBases(ctx, budget, o, error);
            if (!b) {
                printError(error);
                return 2;
            }
            bases = *b;
            if (const PercentCheck check = checkPercents(bases); !check.ok())
                return refusedPercent(check);
        }
        const int status = budget.SaveBudget(false);
        if (status != BudgetStatus::Ok)
            return refused(masterSaveMessage(status));
        if (fillFromTrend) {
            clsBudget whole(ctx.budgetDb, ctx.trendDb);
            whole.LoadBudget(budget.ID());
            // A Whole Bill master sums whole bills: no project is read.
            fillBudgetFromTrend(whole, bases, ctx.trendDb, ctx.projectDb);
            const int saved = whole.SaveBudget(false);
            if (saved != BudgetStatus::Ok)
                return refused(costCentreSaveMessage(saved));
            printBudget(whole);
            return 0;
        }
        printBudget(budget);
        return 0;
    });
}

int budgetCostCentreCommand(AppContext& ctx, const QStringList& args) {
    const Options o = parseOptions(args, {QStringLiteral("master"), QStringLiteral("project"),
                                          QStringLiteral("title"), QStringLiteral("cost-centre"),
                                          QStringLiteral("trend-date"), QStringLiteral("percent")});
    if (!o.error.isEmpty())
        return usage(o.error);
    if (!o.positional.isEmpty() || !o.has(QStringLiteral("master")) || !o.has(QStringLiteral("title")) ||
        !o.has(QStringLiteral("project")))
        return usage(QStringLiteral("usage: budget-cc --master ID|TITLE --project P --title T "
                                    "--cost-centre NAME [--trend-date D,...] [--percent P,...]"));
    return guarded([&] {
        const std::optional<int> masterId = resolveMaster(ctx.budgetDb, o.value(QStringLiteral("master")));
        if (!masterId)
            return refused(BudgetText::SelectMaster);
        clsBudget budget(ctx.budgetDb, ctx.trendDb);
        budget.LoadBudget(*masterId);
        if (budget.CCLevel() == 0)
            return refused(BudgetText::WholeBillMaster);
        budget.CreateFromMaster(*masterId, QString(), QString());

        // The project is selected as the program selects it: its TblCC is written afresh
        // from the central store under the full bill account.
        const QString project = o.value(QStringLiteral("project"));
        if (const QString problem = selectCommandProject(ctx, project); !problem.isEmpty()) {
            printError(problem);
            return 1;
        }
        if (ctx.billAccount != budget.BillAccount()) {
            printError(QStringLiteral("%1 is a bill of account %2; the master belongs to account %3")
                           .arg(project, ctx.billAccount, budget.BillAccount()));
            return 1;
        }

        // A name matches in any case; the budget keeps the spelling the list shows.
        const QString typed = o.value(QStringLiteral("cost-centre"));
        const QStringList choices = costCentreChoices(ctx.projectDb, budget.BillAccount(), budget.CCLevel());
        qsizetype index = choices.indexOf(typed);
        for (qsizetype i = 0; index < 0 && i < choices.size(); ++i)
            if (choices[i].compare(typed, Qt::CaseInsensitive) == 0)
                index = i;
        if (index < 0)
            return refused(BudgetText::SelectCostCentre);
        budget.setName(o.value(QStringLiteral("title")).trimmed());
        budget.setCostCentre(choices[index]);

        QString error;
        const std::optional<QList<PeriodBasis>> bases = periodBases(ctx, budget, o, error);
        if (!bases) {
            printError(error);
            return 2;
        }
        if (const PercentCheck check = fillBudgetFromTrend(budget, *bases, ctx.trendDb, ctx.projectDb);
            !check.ok())
            return refusedPercent(check);
        const int status = budget.SaveBudget(false);
        if (status != BudgetStatus::Ok)
            return refused(costCentreSaveMessage(status));
        printBudget(budget);
        return 0;
    });
}

int budgetDeleteCommand(AppContext& ctx, const QStringList& args) {
    const std::optional<int> id = args.size() == 1 ? budgetIdArgument(args[0]) : std::nullopt;
    if (!id)
        return usage(QStringLiteral("usage: budget-delete ID"));
    return guarded([&] {
        const BudgetDeleteResult r = deleteBudget(ctx.budgetDb, *id);
        if (!r.found) {
            printError(QStringLiteral("no budget has the id %1").arg(*id));
            return 1;
        }
        if (r.wasMaster)
            std::printf("Budget %d deleted with %d cost centre budget(s), %d entries\n", *id,
                        r.budgetsDeleted - 1, r.entriesDeleted);
        else
            std::printf("Budget %d deleted, %d entries\n", *id, r.entriesDeleted);
        return 0;
    });
}

int budgetRenameCommand(AppContext& ctx, const QStringList& args) {
    const std::optional<int> id = args.size() == 2 ? budgetIdArgument(args[0]) : std::nullopt;
    if (!id)
        return usage(QStringLiteral("usage: budget-rename ID NAME"));
    return guarded([&] {
        const BudgetRenameResult r = renameBudget(ctx.budgetDb, *id, args[1]);
        if (r.status == BudgetStatus::Refused) {
            printError(r.title.isNull()
                           ? QStringLiteral("no budget has the id %1").arg(*id)
                           : QStringLiteral("budget %1 has lost its master budget; its title stays %2")
                                 .arg(*id)
                                 .arg(r.title));
            return 1;
        }
        std::printf("Budget %d renamed: %s\n", *id, qPrintable(r.title));
        return 0;
    });
}
