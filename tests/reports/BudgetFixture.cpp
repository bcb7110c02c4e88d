#include "BudgetFixture.h"

#include "data/Schema.h"

// Bills of 31/01, 29/02, 30/04 and 31/05/2024 (none in March), each with the same rows:
//   number  level 1   usage  rec  one off  adj   pre-tax
//   0100    Sales     1000   200                 1200
//   0101    SALES      500   100                  600   (the same centre as Sales)
//   0200    Finance    300    50     25    -5     370
//   0300    Ops       2000                       2100
//   0400    (none)     100                        100
//   0500    Exact     1100                       1050
// A whole bill: usage 5000, recurring 350, one off 25, adjustments -5, total 5370.
//
// "Level One" (level 1) has dates 31/01, 29/02, 31/03 (no bill near), 28/04 (two days off
// the bill of 30/04) and 30/06 (no bill yet), and five cost-centre budgets (usage, rec):
//   Sales    1300, 300 at every date
//   Finance  0; -100; 400; 400; 400 (usage)
//   Ops      2200; 2000; 0; 2100; 0 (usage)
//   Nobody   50 at every date (a centre with no numbers)
//   Exact    1000 at every date
// "Whole" (the whole bill) has usage 4000 at 31/01, 29/02, 31/03, 30/04 and 31/05.
BudgetFixture::BudgetFixture() {
    ctx.budgetDb = Database::openMemory();
    ctx.budgetDb.execScript(schemaText(QStringLiteral("budgets")));
    struct Number {
        const char* tel;
        QVariant centre;
        int usage, rec, oneOff, adj, preTax;
    };
    const Number numbers[] = {
        {"0100", "Sales", 1000, 200, 0, 0, 1200},  {"0101", "SALES", 500, 100, 0, 0, 600},
        {"0200", "Finance", 300, 50, 25, -5, 370}, {"0300", "Ops", 2000, 0, 0, 0, 2100},
        {"0400", QVariant(), 100, 0, 0, 0, 100},   {"0500", "Exact", 1100, 0, 0, 0, 1050},
    };
    for (const Number& n : numbers) {
        number(QString::fromLatin1(n.tel), {n.centre});
        for (const Date& bill : {Date(2024, 1, 31), Date(2024, 2, 29), Date(2024, 4, 30), Date(2024, 5, 31)})
            add(bill, QString::fromLatin1(n.tel),
                {{QStringLiteral("Usage Charges"), Money::fromPounds(n.usage)},
                 {QStringLiteral("Recurring Charges"), Money::fromPounds(n.rec)},
                 {QStringLiteral("One Off Charges and Credits"), Money::fromPounds(n.oneOff)},
                 {QStringLiteral("Adjustments"), Money::fromPounds(n.adj)},
                 {QStringLiteral("PreTax Cost"), Money::fromPounds(n.preTax)}});
    }

    const Date dates[] = {Date(2024, 1, 31), Date(2024, 2, 29), Date(2024, 3, 31), Date(2024, 4, 28),
                          Date(2024, 6, 30)};
    levelMaster = master(QStringLiteral("Level One"), 1);
    for (const Date& d : dates)
        entry(levelMaster, d, Money());
    sales = child(levelMaster, QStringLiteral("Sales"));
    finance = child(levelMaster, QStringLiteral("Finance"));
    const int ops = child(levelMaster, QStringLiteral("Ops"));
    const int nobody = child(levelMaster, QStringLiteral("Nobody"));
    exact = child(levelMaster, QStringLiteral("Exact"));
    const int financeUsage[] = {0, -100, 400, 400, 400};
    const int opsUsage[] = {2200, 2000, 0, 2100, 0};
    for (int i = 0; i < 5; ++i) {
        entry(sales, dates[i], Money::fromPounds(1300), Money::fromPounds(300));
        entry(finance, dates[i], Money::fromPounds(financeUsage[i]));
        entry(ops, dates[i], Money::fromPounds(opsUsage[i]));
        entry(nobody, dates[i], Money::fromPounds(50));
        entry(exact, dates[i], Money::fromPounds(1000));
    }

    wholeBill = master(QStringLiteral("Whole"), 0);
    for (const Date& d :
         {Date(2024, 1, 31), Date(2024, 2, 29), Date(2024, 3, 31), Date(2024, 4, 30), Date(2024, 5, 31)})
        entry(wholeBill, d, Money::fromPounds(4000));
}

int BudgetFixture::master(const QString& title, int level) {
    ctx.budgetDb.exec(QStringLiteral("INSERT INTO tblBudget (Title, BillAccount, CCLevel, CCName, MasterID, "
                                     "BudgetType) VALUES (?, ?, ?, '', -1, -1)"),
                      title, ctx.billAccount, level);
    return int(ctx.budgetDb.lastInsertRowId());
}

int BudgetFixture::child(int masterId, const QString& costCentre) {
    ctx.budgetDb.exec(QStringLiteral("INSERT INTO tblBudget (Title, BillAccount, CCLevel, CCName, MasterID, "
                                     "BudgetType) SELECT ?, BillAccount, CCLevel, ?, BudgetID, 0 "
                                     "FROM tblBudget WHERE BudgetID = ?"),
                      costCentre + QStringLiteral(" budget"), costCentre, masterId);
    return int(ctx.budgetDb.lastInsertRowId());
}

void BudgetFixture::entry(int budgetId, const Date& date, Money usage, Money recurring, Money oneOff,
                          Money adjustments) {
    ctx.budgetDb.exec(QStringLiteral("INSERT INTO tblBudgetEntry (BudgetID, SelectedDate, Usage, Recurring, "
                                     "OneOff, Adjustments) VALUES (?, ?, ?, ?, ?, ?)"),
                      budgetId, date, usage, recurring, oneOff, adjustments);
}
