#include "reports/BudgetFigures.h"

#include "app/AppContext.h"
#include "data/RawText.h"
#include "data/ReferenceData.h"

#include <QHash>
#include <algorithm>

namespace {

// Above this many numbers a scope is summed in one pass over the bills' rows; below it the
// rows of its numbers are looked up by number.
constexpr int ScanFromNumbers = 1000;

// The master's entries that stand for one bill date, looked up by the date's raw text.
class DateEntries {
public:
    explicit DateEntries(const std::vector<Date>& dates) {
        for (int i = 0; i < int(dates.size()); ++i) {
            if (!dates[size_t(i)].isValid())
                continue;
            const std::string iso = dates[size_t(i)].toIso().toStdString();
            auto found =
                std::find_if(byDate_.begin(), byDate_.end(), [&](const auto& d) { return d.first == iso; });
            if (found == byDate_.end())
                byDate_.push_back({iso, {i}});
            else
                found->second.push_back(i);
        }
    }
    // A stored date may carry a time after its day.
    const std::vector<int>* find(std::string_view stored) const {
        const std::string_view day = stored.substr(0, 10);
        for (const auto& d : byDate_)
            if (d.first == day)
                return &d.second;
        return nullptr;
    }

private:
    std::vector<std::pair<std::string, std::vector<int>>> byDate_;
};

// The trend rows of the account on the given dates, as the figures index holds them:
// number, date, the four families and the pre-tax cost.
Statement rowsOfDates(AppContext& ctx, const QString& datesJson) {
    Statement st(ctx.trendDb,
                 QStringLiteral("SELECT \"Service No\", BillDate, \"Usage Charges\", \"Recurring Charges\", "
                                "\"One Off Charges and Credits\", \"Adjustments\", \"PreTax Cost\" "
                                "FROM TblSummaryTrend "
                                "WHERE BillAccount = ? AND BillDate IN (SELECT value FROM json_each(?))"));
    st.bindAll(ctx.billAccount, datesJson);
    return st;
}

// Cost-centre names match without regard to case, as the stores compare them.
QString nameKey(const QString& name) {
    return name.toCaseFolded();
}

QString jsonDates(const std::vector<Date>& dates) {
    QStringList iso;
    for (const Date& d : dates)
        if (d.isValid())
            iso << d.toIso();
    return jsonList(iso);
}

FamilyAmounts readFamilies(const Statement& st, int first) {
    FamilyAmounts a;
    for (int f = 0; f < 4; ++f)
        a.family[size_t(f)] =
            requireAmount(st.isNull(first + f) ? std::nullopt : std::optional<Money>(st.money(first + f)));
    return a;
}

} // namespace

std::unique_ptr<clsBudget> loadBudget(AppContext& ctx, int budgetId) {
    auto budget = std::make_unique<clsBudget>(ctx.budgetDb, ctx.trendDb);
    budget->LoadBudget(budgetId);
    return budget;
}

std::unique_ptr<clsBudget> loadMaster(AppContext& ctx, int budgetId) {
    std::unique_ptr<clsBudget> budget = loadBudget(ctx, budgetId);
    if (!budget->IsMaster())
        budget = loadBudget(ctx, budget->MasterID());
    return budget;
}

BudgetScope budgetScope(AppContext& ctx, const clsBudget& budget) {
    BudgetScope scope{QStringLiteral("Whole Bill"), {}, {}};
    // Reference data counts the cost-centre levels from 0.
    const int level = budget.CCLevel() - 1;
    const QStringList children = budget.GetChildCCs();
    if (!children.isEmpty()) {
        scope.filter.active = true;
        scope.numbers = GetServiceNumbersByCostCentres(ctx, ctx.billAccount, level, children);
        scope.filter.numbersJson = jsonList(scope.numbers);
    } else if (budget.CCLevel() != 0) {
        scope.name = budget.CostCentre().isEmpty() ? ReportText::NoCostCentreSelected : budget.CostCentre();
        scope.filter.active = true;
        scope.numbers = GetServiceNumbersByCostCentre(ctx, ctx.billAccount, level, budget.CostCentre());
        scope.filter.numbersJson = jsonList(scope.numbers);
    }
    return scope;
}

std::vector<std::optional<FamilyAmounts>> liveSumsByEntryDate(AppContext& ctx, const clsBudget& budget,
                                                              const BudgetScope& scope) {
    std::vector<Date> dates;
    for (int i = 1; i <= budget.EntryCount(); ++i)
        dates.push_back(budget.Entry(i).SelectedDate);
    std::vector<std::optional<FamilyAmounts>> out(dates.size());
    if (scope.filter.active && scope.numbers.size() > ScanFromNumbers) {
        TextSet numbers;
        for (const QString& n : scope.numbers)
            numbers.insert(n.toStdString());
        const DateEntries entries(dates);
        // A sum over no value at all stays null, as the grouped query gives it.
        std::vector<std::array<std::optional<Money>, 4>> sums(dates.size());
        std::vector<bool> found(dates.size());
        Statement st = rowsOfDates(ctx, jsonDates(dates));
        while (st.step()) {
            if (!numbers.count(viewOf(st.rawBytes(0))))
                continue;
            const std::vector<int>* of = entries.find(viewOf(st.rawBytes(1)));
            if (!of)
                continue;
            for (int i : *of) {
                found[size_t(i)] = true;
                for (int f = 0; f < 4; ++f)
                    if (!st.isNull(2 + f))
                        sums[size_t(i)][size_t(f)] =
                            sums[size_t(i)][size_t(f)].value_or(Money()) + st.money(2 + f);
            }
        }
        for (size_t i = 0; i < dates.size(); ++i) {
            if (!found[i])
                continue;
            FamilyAmounts a;
            for (int f = 0; f < 4; ++f)
                a.family[size_t(f)] = requireAmount(sums[i][size_t(f)]);
            out[i] = a;
        }
        return out;
    }
    BoundQuery query{QStringLiteral("SELECT BillDate, SUM(\"Usage Charges\"), SUM(\"Recurring Charges\"), "
                                    "SUM(\"One Off Charges and Credits\"), SUM(\"Adjustments\") ") +
                         scope.filter.totalsFrom() + QStringLiteral(" WHERE BillAccount = ?") +
                         scope.filter.condition() +
                         QStringLiteral(" AND BillDate IN (SELECT value FROM json_each(?)) GROUP BY ") +
                         scope.filter.dateGroup(),
                     {}};
    query.arg(ctx.billAccount);
    scope.filter.bindTo(query);
    query.arg(jsonDates(dates));
    const DateEntries entries(dates);
    Statement st = prepareBound(ctx.trendDb, query);
    while (st.step()) {
        const FamilyAmounts sums = readFamilies(st, 1);
        if (const std::vector<int>* of = entries.find(viewOf(st.rawBytes(0))))
            for (int i : *of)
                out[size_t(i)] = sums;
    }
    return out;
}

std::optional<std::vector<CentreFigures>> centreFigures(AppContext& ctx, const clsBudget& master,
                                                        const CentreOptions& options,
                                                        const ProgressFn& progress) {
    const int entryCount = master.EntryCount();
    std::vector<CentreFigures> centres;
    {
        Statement st(ctx.budgetDb,
                     QStringLiteral("SELECT BudgetID, ifnull(CCName, '') FROM tblBudget WHERE MasterID = ? "
                                    "ORDER BY ") +
                         (options.byName ? QStringLiteral("CCName COLLATE NOCASE, BudgetID")
                                         : QStringLiteral("BudgetID")));
        st.bind(1, master.ID());
        while (st.step())
            centres.push_back({st.integer(0), st.text(1),
                               std::vector<std::optional<FamilyAmounts>>(entryCount),
                               std::vector<std::optional<FamilyAmounts>>(entryCount),
                               std::vector<std::optional<Money>>(entryCount)});
    }
    if (centres.empty() || !reportProgress(progress, 0, 3))
        return centres.empty() ? std::optional(centres) : std::nullopt;

    // Budget amounts: the children's entries at the master's dates, in one grouped query.
    std::vector<Date> selectedDates;
    std::vector<Date> billDates;
    for (int i = 1; i <= entryCount; ++i) {
        selectedDates.push_back(master.Entry(i).SelectedDate);
        billDates.push_back(master.Entry(i).BillDate);
    }
    QHash<int, int> indexOfBudget;
    QHash<QString, std::vector<int>> centresOfName;
    for (int c = 0; c < int(centres.size()); ++c) {
        indexOfBudget.insert(centres[size_t(c)].budgetId, c);
        centresOfName[nameKey(centres[size_t(c)].costCentre)].push_back(c);
    }
    {
        const DateEntries entries(selectedDates);
        Statement st(ctx.budgetDb,
                     QStringLiteral("SELECT BudgetID, substr(SelectedDate, 1, 10) AS Day, SUM(Usage), "
                                    "SUM(Recurring), SUM(OneOff), SUM(Adjustments) FROM tblBudgetEntry "
                                    "WHERE BudgetID IN (SELECT BudgetID FROM tblBudget WHERE MasterID = ?) "
                                    "GROUP BY BudgetID, Day"));
        st.bind(1, master.ID());
        while (st.step()) {
            const auto found = indexOfBudget.constFind(st.integer(0));
            const std::vector<int>* dates = entries.find(viewOf(st.rawBytes(1)));
            if (found == indexOfBudget.constEnd() || !dates)
                continue;
            const FamilyAmounts amounts = readFamilies(st, 2);
            // With shareByName every budget of one centre name adds to every line of that name.
            const std::vector<int> owners =
                options.shareByName ? centresOfName.value(nameKey(centres[size_t(*found)].costCentre))
                                    : std::vector<int>{*found};
            for (int i : *dates) {
                for (int c : owners) {
                    std::optional<FamilyAmounts>& slot = centres[size_t(c)].budget[size_t(i)];
                    if (!slot)
                        slot = FamilyAmounts{};
                    for (int f = 0; f < 4; ++f)
                        slot->family[size_t(f)] += amounts.family[size_t(f)];
                }
            }
        }
    }
    if (!reportProgress(progress, 1, 3))
        return std::nullopt;

    // Which centres each number of the account belongs to, at the master's level.
    ByText<std::vector<int>> centresOfNumber;
    {
        const int level = master.CCLevel();
        if (level < 1 || level > 5)
            throw ReportFailure(3265, QStringLiteral("There is no cost-centre level %1").arg(level));
        // The column name comes from the check above, never from the caller's text.
        Statement st(ctx.projectDb, QStringLiteral("SELECT TelNo, ifnull(CostCentre%1, '') FROM TblCC "
                                                   "WHERE VeloraAccount = ?")
                                        .arg(level));
        st.bind(1, ctx.billAccount);
        QHash<QString, std::vector<int>> lookupNames;
        for (int c = 0; c < int(centres.size()); ++c) {
            const QString& name = centres[size_t(c)].costCentre;
            lookupNames[nameKey(name.isEmpty() ? options.emptyName : name)].push_back(c);
        }
        while (st.step()) {
            const auto owners = lookupNames.constFind(nameKey(st.text(1)));
            if (owners == lookupNames.constEnd())
                continue;
            // A number listed twice under one centre counts once, as a list of numbers does.
            std::vector<int>& of = centresOfNumber[std::string(viewOf(st.rawBytes(0)))];
            for (int c : *owners)
                if (std::find(of.begin(), of.end(), c) == of.end())
                    of.push_back(c);
        }
    }
    if (!reportProgress(progress, 2, 3))
        return std::nullopt;

    // Live amounts: the rows of the master's bill dates, summed per centre in memory.
    {
        const DateEntries entries(billDates);
        Statement st = rowsOfDates(ctx, jsonDates(billDates));
        while (st.step()) {
            const auto owners = centresOfNumber.find(viewOf(st.rawBytes(0)));
            if (owners == centresOfNumber.end())
                continue;
            const std::vector<int>* dateEntries = entries.find(viewOf(st.rawBytes(1)));
            if (!dateEntries)
                continue;
            FamilyAmounts row;
            for (int f = 0; f < 4; ++f)
                row.family[size_t(f)] = st.isNull(2 + f) ? Money() : st.money(2 + f);
            const std::optional<Money> preTax = st.isNull(6) ? std::nullopt : std::optional(st.money(6));
            for (int c : owners->second) {
                CentreFigures& centre = centres[size_t(c)];
                for (int i : *dateEntries) {
                    std::optional<FamilyAmounts>& live = centre.live[size_t(i)];
                    if (!live)
                        live = FamilyAmounts{};
                    for (int f = 0; f < 4; ++f)
                        live->family[size_t(f)] += row.family[size_t(f)];
                    if (preTax)
                        centre.livePreTax[size_t(i)] =
                            centre.livePreTax[size_t(i)].value_or(Money()) + *preTax;
                }
            }
        }
    }
    if (!reportProgress(progress, 3, 3))
        return std::nullopt;
    return centres;
}
