#include "BudgetFormsFixture.h"

#include "data/Schema.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <stdexcept>

namespace testing {

Money pounds(const char* text) {
    const std::optional<Money> m = Money::parse(QString::fromLatin1(text));
    if (!m)
        throw std::invalid_argument(text);
    return *m;
}

BudgetFormsFixture::BudgetFormsFixture() {
    createDatabaseFromSchema(dir.path(QStringLiteral("budgets.mdb")), QStringLiteral("budgets"));
    createDatabaseFromSchema(dir.path(QStringLiteral("trend.mdb")), QStringLiteral("trend"));
    ctx.budgetDb = Database::open(dir.path(QStringLiteral("budgets.mdb")));
    ctx.trendDb = Database::open(dir.path(QStringLiteral("trend.mdb")));
}

int BudgetFormsFixture::master(const QString& title, const QString& account, int level,
                               const QString& created) {
    ctx.budgetDb.exec(QStringLiteral("INSERT INTO tblBudget (Title, BillAccount, CCLevel, CCName, Created, "
                                     "MasterID, BudgetType) VALUES (?, ?, ?, '', ?, -1, -1)"),
                      title, account, level, created);
    return int(ctx.budgetDb.lastInsertRowId());
}

int BudgetFormsFixture::child(int masterId, const QString& title, const QString& account, int level,
                              const QString& costCentre, const QString& created) {
    ctx.budgetDb.exec(QStringLiteral("INSERT INTO tblBudget (Title, BillAccount, CCLevel, CCName, Created, "
                                     "MasterID, BudgetType) VALUES (?, ?, ?, ?, ?, ?, 0)"),
                      title, account, level, costCentre, created, masterId);
    return int(ctx.budgetDb.lastInsertRowId());
}

int BudgetFormsFixture::entry(int budgetId, const Date& date, Money usage, Money recurring, Money oneOff,
                              Money adjustments) {
    ctx.budgetDb.exec(QStringLiteral("INSERT INTO tblBudgetEntry (BudgetID, SelectedDate, Usage, Recurring, "
                                     "OneOff, Adjustments) VALUES (?, ?, ?, ?, ?, ?)"),
                      budgetId, date, usage, recurring, oneOff, adjustments);
    return int(ctx.budgetDb.lastInsertRowId());
}

QString BudgetFormsFixture::entryAmounts(int dateId) {
    Statement st(ctx.budgetDb,
                 QStringLiteral("SELECT Usage, Recurring, OneOff, Adjustments FROM tblBudgetEntry "
                                "WHERE DateID = ?"));
    st.bind(1, dateId);
    if (!st.step())
        return QStringLiteral("<gone>");
    QStringList parts;
    for (int c = 0; c < 4; ++c)
        parts << QString::number(st.int64(c));
    return parts.join(QLatin1Char('|'));
}

QString BudgetFormsFixture::titleOf(int budgetId) {
    Statement st(ctx.budgetDb, QStringLiteral("SELECT Title FROM tblBudget WHERE BudgetID = ?"));
    st.bind(1, budgetId);
    return st.step() ? st.text(0) : QStringLiteral("<gone>");
}

int BudgetFormsFixture::budgetRows(const QString& where) {
    return int(queryInt(ctx.budgetDb, QStringLiteral("SELECT COUNT(*) FROM tblBudget WHERE ") + where));
}

int BudgetFormsFixture::entryRows(int budgetId) {
    return int(queryInt(ctx.budgetDb,
                        QStringLiteral("SELECT COUNT(*) FROM tblBudgetEntry WHERE BudgetID = ?"), budgetId));
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

struct ModalWatch::State {
    std::function<void(QDialog*)> inside;
    bool armed = true;
    QString seen;
};

namespace {

void pollForModal(const std::shared_ptr<ModalWatch::State>& state) {
    if (!state->armed)
        return;
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog) {
        QTimer::singleShot(10, [state] { pollForModal(state); });
        return;
    }
    state->armed = false;
    state->seen = QString::fromLatin1(dialog->metaObject()->className());
    if (state->inside)
        state->inside(dialog);
    dialog->done(QDialog::Rejected);
}

} // namespace

ModalWatch::ModalWatch(std::function<void(QDialog*)> inside)
    : state_(std::make_shared<State>()) {
    state_->inside = std::move(inside);
    QTimer::singleShot(0, [state = state_] { pollForModal(state); });
}

ModalWatch::~ModalWatch() {
    state_->armed = false;
}

QString ModalWatch::seen() const {
    return state_->seen;
}

} // namespace testing
