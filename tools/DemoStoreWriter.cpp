#include "data/Database.h"
#include "data/Schema.h"
#include "tools/DemoWriters.h"

namespace demo {

namespace {

void bindText(Statement& st, int index, const QString& value) {
    if (value.isNull())
        st.bindNull(index);
    else
        st.bind(index, value);
}

} // namespace

TableCounts writeCostCentreStore(const QString& path, const std::vector<AccountPlan>& plans) {
    createDatabaseFromSchema(path, QStringLiteral("costcentres"));
    Database db = Database::open(path);
    Transaction tx(db);
    Statement st = db.prepare(QStringLiteral(
        "INSERT INTO TblCC (VeloraAccount, TelNo, SourceAccount, CostCentre1, CostCentre2, CostCentre3, "
        "CostCentre4, CostCentre5) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)"));
    for (const AccountPlan& plan : plans) {
        for (const ServicePlan& s : plan.services) {
            if (!s.costCentre)
                continue;
            st.bind(1, plan.storeAccount);
            st.bind(2, s.number);
            st.bind(3, s.sourceAccount);
            for (int level = 0; level < 5; ++level)
                bindText(st, 4 + level, (*s.costCentre)[size_t(level)]);
            st.run();
            st.reset();
        }
    }
    tx.commit();
    return countRows(db, {QStringLiteral("TblCC")});
}

TableCounts writeTelStore(const QString& path, const std::vector<AccountPlan>& plans) {
    createDatabaseFromSchema(path, QStringLiteral("tel"));
    Database db = Database::open(path);
    Transaction tx(db);
    Statement tel = db.prepare(
        QStringLiteral("INSERT INTO TblTel (VeloraAccount, TelNo, Location, Name) VALUES (?1, ?2, ?3, ?4)"));
    Statement book = db.prepare(QStringLiteral(
        "INSERT INTO TblPhoneBook (VeloraAccount, TelNo, Name, \"Use\") VALUES (?1, ?2, ?3, ?4)"));
    for (const AccountPlan& plan : plans) {
        for (const ServicePlan& s : plan.services) {
            if (!s.location.isNull()) {
                tel.bind(1, plan.account);
                tel.bind(2, s.number);
                tel.bind(3, s.location);
                bindText(tel, 4, s.holder);
                tel.run();
                tel.reset();
            }
            if (s.inPhoneBook) {
                book.bind(1, plan.account);
                book.bind(2, s.number);
                bindText(book, 3, s.phoneBookName);
                book.bind(4, s.phoneBookUse);
                book.run();
                book.reset();
            }
        }
    }
    tx.commit();
    return countRows(db, {QStringLiteral("TblTel"), QStringLiteral("TblPhoneBook")});
}

TableCounts writeEmptyStore(const QString& path, const QString& schema) {
    createDatabaseFromSchema(path, schema);
    Database db = Database::open(path, Database::Mode::ReadOnly);
    QStringList tables;
    Statement st = db.prepare(QStringLiteral(
        "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%' ORDER BY name"));
    while (st.step())
        tables << st.text(0);
    return countRows(db, tables);
}

} // namespace demo
