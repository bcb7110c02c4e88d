#include "BudgetFormsFixture.h"

#include "data/Schema.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>

namespace testing {

Money pounds(const char* text) {
    return Money::parse(QString::fromLatin1(text)).value();
}

BudgetFormsFixture::BudgetFormsFixture() {
    createDatabaseFromSchema(dir.path(QStringLiteral("budgets.mdb")), QStringLiteral("budgets"));
    createDatabaseFromSchema(dir.path(QStringLiteral("trend.mdb")), QStringLiteral("trend"));
    ctx.budgetDb = Database::open(dir.path(QStringLiteral("budgets.mdb")));
    ctx.trendDb = Database::open(dir.path(QStringLiteral("trend.mdb")));
}

int BudgetFormsFixture::master(const QString& title, const QString& account, int level,
                               const QString& created) {
    return child(-1, title, account, level, QStringLiteral(""), created);
}

// A master is a row whose MasterID and BudgetType are -1.
int BudgetFormsFixture::child(int masterId, const QString& title, const QString& account, int level,
                              const QString& costCentre, const QString& created) {
    ctx.budgetDb.exec(QStringLiteral("INSERT INTO tblBudget (Title, BillAccount, CCLevel, CCName, Created, "
                                     "MasterID, BudgetType) VALUES (?, ?, ?, ?, ?, ?, ?)"),
                      title, account, level, costCentre, created, masterId, masterId == -1 ? -1 : 0);
    return int(ctx.budgetDb.lastInsertRowId());
}

int BudgetFormsFixture::entry(int budgetId, const Date& date, Money usage, Money recurring, Money oneOff,
                              Money adjustments) {
    ctx.budgetDb.exec(QStringLiteral("INSERT INTO tblBudgetEntry (BudgetID, SelectedDate, Usage, Recurring, "
                                     "OneOff, Adjustments) VALUES (?, ?, ?, ?, ?, ?)"),
                      budgetId, date, usage, recurring, oneOff, adjustments);
    return int(ctx.budgetDb.lastInsertRowId());
}

namespace {

// The first row's first column, or "<gone>" without a row.
QString firstCell(Database& db, const QString& sql, int id) {
    Statement st(db, sql);
    st.bind(1, id);
    return st.step() ? st.text(0) : QStringLiteral("<gone>");
}

} // namespace

QString BudgetFormsFixture::entryAmounts(int dateId) {
    return firstCell(ctx.budgetDb,
                     QStringLiteral("SELECT Usage || '|' || Recurring || '|' || OneOff || '|' || Adjustments "
                                    "FROM tblBudgetEntry WHERE DateID = ?"),
                     dateId);
}

QString BudgetFormsFixture::titleOf(int budgetId) {
    return firstCell(ctx.budgetDb, QStringLiteral("SELECT Title FROM tblBudget WHERE BudgetID = ?"),
                     budgetId);
}

QString BudgetFormsFixture::budgetDump() {
    QString dump;
    for (const char* sql :
         {"SELECT * FROM tblBudget ORDER BY BudgetID", "SELECT * FROM tblBudgetEntry ORDER BY DateID"}) {
        Statement st(ctx.budgetDb, QString::fromLatin1(sql));
        while (st.step()) {
            for (int c = 0; c < st.columnCount(); ++c)
                dump += st.text(c) + QLatin1Char('|');
            dump += QLatin1Char('\n');
        }
    }
    return dump;
}

ModalWatch::ModalWatch(std::function<void(QDialog*)> inside) {
    timer_.setInterval(10);
    QObject::connect(&timer_, &QTimer::timeout, [this, inside] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        timer_.stop();
        seen_ = QString::fromLatin1(dialog->metaObject()->className());
        if (inside)
            inside(dialog);
        dialog->done(QDialog::Rejected);
    });
    timer_.start();
}

} // namespace testing
