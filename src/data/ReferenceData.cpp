#include "data/ReferenceData.h"

#include "app/AppContext.h"
#include "app/ErrorLog.h"
#include "app/Format.h"
#include "data/Database.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

QString projectAccount(Database& project) {
    Statement st(project, QStringLiteral("SELECT VeloraAccount FROM Tbl50"));
    return st.step() ? st.text(0).trimmed() : QString();
}

// The central stores keep an "...AC01" account's rows under the account less its last two characters.
QString centralAccount(QString account) {
    if (account.endsWith(QLatin1String("AC01")))
        account.chop(2);
    return account;
}

QString levelColumn(int level) {
    if (level >= 0 && level <= 4)
        return QStringLiteral("CostCentre%1").arg(level + 1);
    if (level == ServiceNumberLevel)
        return QStringLiteral("TelNo");
    return QString();
}

} // namespace

QString jsonList(const QStringList& values) {
    return QString::fromUtf8(
        QJsonDocument(QJsonArray::fromStringList(values)).toJson(QJsonDocument::Compact));
}

bool LoadProjectDetails(AppContext& ctx) {
    try {
        Statement st(ctx.projectDb, QStringLiteral("SELECT VeloraAccount, LocID, Imports FROM Tbl50"));
        if (st.step() && !st.text(0).isEmpty()) {
            ctx.billAccount = st.text(0);
            const QString imports = st.text(2);
            ctx.hasImports = false;
            for (const char* letter : {"A", "C", "E", "P", "O"})
                ctx.hasImports = ctx.hasImports || imports.contains(QLatin1String(letter));
            LoadCostCentres(ctx);
            LoadTelephoneDetails(ctx);
            LoadBillPeriod(ctx);
            return true;
        }
    } catch (const DbError&) {
        // A project without a readable header has no account.
    }
    ctx.billAccount.clear();
    ctx.hasImports = false;
    return false;
}

void LoadCostCentres(AppContext& ctx) {
    try {
        const QString account = centralAccount(centralAccount(projectAccount(ctx.projectDb)));
        Statement central(
            ctx.costCentreDb,
            QStringLiteral("SELECT TelNo, SourceAccount, CostCentre1, CostCentre2, CostCentre3, "
                           "CostCentre4, CostCentre5 FROM TblCC WHERE VeloraAccount = ? "
                           "ORDER BY TelNo"));
        central.bind(1, account);
        Transaction tx(ctx.projectDb);
        ctx.projectDb.exec(QStringLiteral("DELETE FROM TblCC"));
        Statement insert(
            ctx.projectDb,
            QStringLiteral("INSERT INTO TblCC (VeloraAccount, TelNo, SourceAccount, CostCentre1, "
                           "CostCentre2, CostCentre3, CostCentre4, CostCentre5) "
                           "VALUES (?, ?, ?, ?, ?, ?, ?, ?)"));
        while (central.step()) {
            insert.bind(1, ctx.billAccount);
            insert.bind(2, central.value(0));
            insert.bind(3, central.value(1));
            for (int level = 0; level < 5; ++level)
                insert.bind(4 + level, central.text(2 + level)); // Null becomes ""
            insert.run();
            insert.reset();
        }
        tx.commit();
    } catch (const DbError& e) {
        // A missing table leaves the project's copy as it was.
        if (ctx.paths)
            LogError(*ctx.paths, QStringLiteral("LoadCostCentres"), e.code(), e.message());
    }
}

void LoadTelephoneDetails(AppContext& ctx) {
    try {
        const QString account = projectAccount(ctx.projectDb);
        ctx.billAccount = account;
        Transaction tx(ctx.projectDb);
        Statement tel(ctx.telDb, QStringLiteral("SELECT TelNo, Location, Name FROM TblTel "
                                                "WHERE VeloraAccount = ? ORDER BY TelNo"));
        tel.bind(1, account);
        ctx.projectDb.exec(QStringLiteral("DELETE FROM TblTel"));
        Statement addTel(ctx.projectDb,
                         QStringLiteral("INSERT INTO TblTel (VeloraAccount, TelNo, Location, Name) "
                                        "VALUES (?, ?, ?, ?)"));
        while (tel.step()) {
            addTel.bindAll(ctx.billAccount, tel.text(0), tel.text(1), tel.text(2));
            addTel.run();
            addTel.reset();
        }
        Statement book(ctx.telDb, QStringLiteral("SELECT TelNo, Name, \"Use\" FROM TblPhoneBook "
                                                 "WHERE VeloraAccount = ? ORDER BY TelNo"));
        book.bind(1, account);
        ctx.projectDb.exec(QStringLiteral("DELETE FROM TblPhoneBook"));
        Statement addBook(ctx.projectDb,
                          QStringLiteral("INSERT INTO TblPhoneBook (VeloraAccount, TelNo, Name, "
                                         "\"Use\") VALUES (?, ?, ?, ?)"));
        while (book.step()) {
            const QString name = book.isNull(1) ? book.text(0) : book.text(1);
            addBook.bindAll(ctx.billAccount, book.text(0), name, book.value(2));
            addBook.run();
            addBook.reset();
        }
        tx.commit();
    } catch (const DbError& e) {
        if (ctx.paths)
            LogError(*ctx.paths, QStringLiteral("LoadTelephoneDetails"), e.code(), e.message());
    }
}

void LoadBillPeriod(AppContext& ctx) {
    ctx.billStart.clear();
    ctx.billEnd.clear();
    try {
        Statement st(ctx.projectDb, QStringLiteral("SELECT StartDate, EndDate FROM TblCallSummary1"));
        if (st.step()) {
            ctx.billStart = formatDate(st.date(0), QStringLiteral("dd/mm/yyyy"));
            ctx.billEnd = formatDate(st.date(1), QStringLiteral("dd/mm/yyyy"));
        }
    } catch (const DbError&) {
        // A project without the table has no bill period.
    }
}

namespace {

QStringList serviceNumbers(AppContext& ctx, const QString& sql, const QString& account,
                           const QString& match) {
    QStringList out;
    try {
        Statement st(ctx.projectDb, sql);
        st.bindAll(account, match);
        while (st.step())
            out << st.text(0);
    } catch (const DbError& e) {
        if (ctx.paths)
            LogError(*ctx.paths, QStringLiteral("Error"), e.code(), e.message());
    }
    return out;
}

} // namespace

QStringList GetServiceNumbersByCostCentre(AppContext& ctx, const QString& account, int level,
                                          const QString& name) {
    const QString column = levelColumn(level);
    if (column.isEmpty())
        return {};
    // The column name comes from the fixed list above, never from the caller's text.
    return serviceNumbers(
        ctx,
        QStringLiteral(
            "SELECT TelNo FROM TblCC WHERE VeloraAccount = ? AND ifnull(%1, '') = ? COLLATE NOCASE")
            .arg(column),
        account, name);
}

QStringList GetServiceNumbersByCostCentres(AppContext& ctx, const QString& account, int level,
                                           const QStringList& names) {
    const QString column = levelColumn(level);
    if (column.isEmpty())
        return {};
    return serviceNumbers(ctx,
                          QStringLiteral("SELECT TelNo FROM TblCC WHERE VeloraAccount = ? AND "
                                         "ifnull(%1, '') COLLATE NOCASE IN (SELECT value FROM json_each(?))")
                              .arg(column),
                          account, jsonList(names));
}
