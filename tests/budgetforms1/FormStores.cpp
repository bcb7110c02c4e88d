#include "FormStores.h"

#include "data/Schema.h"

#include <QApplication>
#include <QDialog>

namespace testing {

Money cash(const char* text) {
    return Money::parse(QString::fromLatin1(text)).value();
}

FormStores::FormStores(const QString& account) {
    for (const char* name : {"budgets", "trend", "costcentres", "project"})
        createDatabaseFromSchema(dir.path(QString::fromLatin1(name) + QStringLiteral(".mdb")),
                                 QString::fromLatin1(name));
    ctx.budgetDb = Database::open(dir.path(QStringLiteral("budgets.mdb")));
    ctx.trendDb = Database::open(dir.path(QStringLiteral("trend.mdb")));
    ctx.costCentreDb = Database::open(dir.path(QStringLiteral("costcentres.mdb")));
    ctx.projectDb = Database::open(dir.path(QStringLiteral("project.mdb"))); // its TblCC feeds the forms
    ctx.billAccount = account;
}

void FormStores::trendRow(const QString& account, const Date& billDate, const QString& service, Money usage,
                          Money recurring, Money oneOff, Money adjustments) {
    ctx.trendDb.exec(
        QStringLiteral("INSERT INTO TblSummaryTrend (BillDate, BillAccount, \"Service No\", "
                       "\"Usage Charges\", \"Recurring Charges\", \"One Off Charges and Credits\", "
                       "Adjustments) VALUES (?, ?, ?, ?, ?, ?, ?)"),
        billDate, account, service, usage, recurring, oneOff, adjustments);
}

void FormStores::costCentre(const QString& account, const QString& tel, const QString& level1) {
    ctx.projectDb.exec(
        QStringLiteral("INSERT INTO TblCC (VeloraAccount, TelNo, CostCentre1) VALUES (?, ?, ?)"), account,
        tel, level1);
}

int FormStores::budget(const QString& title, const QString& account, int level, int masterId,
                       const QString& costCentre, const QString& created) {
    ctx.budgetDb.exec(QStringLiteral("INSERT INTO tblBudget (Title, BillAccount, CCLevel, CCName, Created, "
                                     "MasterID, BudgetType) VALUES (?, ?, ?, ?, ?, ?, ?)"),
                      title, account, level, costCentre, created, masterId, masterId == -1 ? -1 : 0);
    return int(ctx.budgetDb.lastInsertRowId());
}

void FormStores::entry(int budgetId, const Date& date, Money usage, Money recurring, Money oneOff,
                       Money adjustments) {
    ctx.budgetDb.exec(QStringLiteral("INSERT INTO tblBudgetEntry (BudgetID, SelectedDate, Usage, Recurring, "
                                     "OneOff, Adjustments) VALUES (?, ?, ?, ?, ?, ?)"),
                      budgetId, date, usage, recurring, oneOff, adjustments);
}

QStringList FormStores::entries(int budgetId) {
    QStringList rows;
    Statement st(ctx.budgetDb,
                 QStringLiteral("SELECT SelectedDate, Usage, Recurring, OneOff, Adjustments "
                                "FROM tblBudgetEntry WHERE BudgetID = ? ORDER BY SelectedDate"));
    st.bind(1, budgetId);
    while (st.step()) {
        QStringList amounts; // pounds from the stored ten-thousandths, no trailing zeros
        for (int c = 1; c <= 4; ++c)
            amounts << QString::number(st.money(c).raw() / 10000.0, 'g', 15);
        rows << st.text(0) + QLatin1Char(':') + amounts.join(QLatin1Char('/'));
    }
    return rows;
}

int FormStores::budgetCount() {
    return int(queryInt(ctx.budgetDb, QStringLiteral("SELECT COUNT(*) FROM tblBudget")));
}

int FormStores::idOfTitle(const QString& title) {
    Statement st(ctx.budgetDb, QStringLiteral("SELECT BudgetID FROM tblBudget WHERE Title = ?"));
    st.bind(1, title);
    return st.step() ? st.integer(0) : -1;
}

QString FormStores::header(int budgetId) {
    Statement st(ctx.budgetDb,
                 QStringLiteral("SELECT ifnull(Title, '') || '|' || BillAccount || '|' || CCLevel || '|' || "
                                "ifnull(CCName, '') || '|' || MasterID || '|' || BudgetType "
                                "FROM tblBudget WHERE BudgetID = ?"));
    st.bind(1, budgetId);
    return st.step() ? st.text(0) : QStringLiteral("<no row>");
}

QString FormStores::budgetDump() {
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

void ModalDriver::when(const char* className, std::function<void(QWidget*)> action) {
    auto timer = std::make_unique<QTimer>();
    QTimer* t = timer.get();
    auto tries = std::make_shared<int>(0);
    const QByteArray name(className);
    t->setInterval(5);
    QObject::connect(t, &QTimer::timeout, [this, t, tries, name, action] {
        auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (modal && modal->inherits(name.constData())) {
            t->stop();
            ++seen_[name];
            if (action)
                action(modal);
            if (modal->isVisible())
                modal->done(QDialog::Rejected);
        } else if (++*tries > 1000) {
            t->stop();
        }
    });
    t->start();
    timers_.push_back(std::move(timer));
}

} // namespace testing
