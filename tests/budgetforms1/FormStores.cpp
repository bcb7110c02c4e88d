#include "FormStores.h"

#include "data/Schema.h"

#include <QApplication>
#include <QDialog>

namespace testing {

Money cash(const char* text) {
    return Money::parse(QString::fromLatin1(text)).value();
}

FormStores::FormStores(const QString& account) {
    const QString budgets = dir.path(QStringLiteral("budgets.mdb"));
    const QString trend = dir.path(QStringLiteral("trend.mdb"));
    const QString costCentres = dir.path(QStringLiteral("costcentres2.mdb"));
    createDatabaseFromSchema(budgets, QStringLiteral("budgets"));
    createDatabaseFromSchema(trend, QStringLiteral("trend"));
    createDatabaseFromSchema(costCentres, QStringLiteral("costcentres"));
    ctx.budgetDb = Database::open(budgets);
    ctx.trendDb = Database::open(trend);
    ctx.costCentreDb = Database::open(costCentres);
    // The selected project, whose TblCC the cost-centre budget form reads.
    const QString project = dir.path(QStringLiteral("project.mdb"));
    createDatabaseFromSchema(project, QStringLiteral("project"));
    ctx.projectDb = Database::open(project);
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

void FormStores::costCentre(const QString& account, const QString& tel, const QString& level1,
                            const QString& level2) {
    ctx.projectDb.exec(QStringLiteral("INSERT INTO TblCC (VeloraAccount, TelNo, CostCentre1, CostCentre2) "
                                      "VALUES (?, ?, ?, ?)"),
                       account, tel, level1, level2);
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

void ModalDriver::when(const char* className, std::function<void(QWidget*)> action) {
    auto timer = std::make_unique<QTimer>();
    QTimer* t = timer.get();
    auto tries = std::make_shared<int>(0);
    const QByteArray name(className);
    t->setInterval(5);
    QObject::connect(t, &QTimer::timeout, [this, t, tries, name, action] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal && modal->inherits(name.constData())) {
            t->stop();
            ++seen_[name];
            action(modal);
        } else if (++*tries > 1000) {
            t->stop();
        }
    });
    t->start();
    timers_.push_back(std::move(timer));
}

void ModalDriver::close(const char* className) {
    when(className, [](QWidget* w) { static_cast<QDialog*>(w)->reject(); });
}

} // namespace testing
