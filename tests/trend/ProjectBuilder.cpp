#include "ProjectBuilder.h"

#include "data/Schema.h"

ProjectBuilder::ProjectBuilder(const QString& account, const QString& createDate)
    : db_(Database::openMemory()) {
    db_.execScript(schemaText(QStringLiteral("project")));
    db_.exec(QStringLiteral("INSERT INTO Tbl50 (VeloraAccount, LocID, Imports, CRV, CreateDate) "
                            "VALUES (?, 'L1', 'O', '', ?)"),
             account, createDate);
}

ProjectBuilder& ProjectBuilder::add(const Line& l) {
    Statement st(
        db_,
        QStringLiteral("INSERT INTO Tbl307 (ServiceNo, SourceAccountNo, BillCost, TaxCost, PreTaxCost, "
                       "TotalDiscount, PreDiscountCost, TaxRate, TaxDescription, EventClass, EventSubClass, "
                       "UsageStartDate, UsageEndDate, RentalStartDate, RentalEndDate, CallVolume, Duration, "
                       "CallType, ProductCode, ServiceType, SourceBillRef, CFBAccountNo, CFBReportNo, "
                       "AdjustmentDescription, Description1, Description2, Description3, ThisImport) "
                       "VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)"));
    const Money pre = l.preTax.value_or(Money());
    const Money tax = Money::fromRaw(pre.raw() / 5);
    st.bindAll(l.service, l.sourceAccount, pre + tax, tax, l.preTax, l.discount, pre, l.taxRate,
               l.taxDescription, l.eventClass, l.subClass, l.usageStart, l.usageEnd, l.rentalStart,
               l.rentalEnd, l.callVolume, l.duration, 3, l.productCode, l.serviceType, QStringLiteral("REF"),
               QStringLiteral("CFB"), QStringLiteral("R1"), QString(), l.description1, QStringLiteral("d2"),
               QStringLiteral("d3"), 1);
    st.run();
    return *this;
}

ProjectBuilder& ProjectBuilder::lookUp(const QString& column, const QString& code,
                                       const QString& description) {
    db_.exec(QStringLiteral("INSERT INTO Tbl017 (ColumnName, Enumeration, Description1) VALUES (?, ?, ?)"),
             column, code, description);
    return *this;
}

ProjectBuilder& ProjectBuilder::discountProduct(const QString& service, const QString& product) {
    db_.exec(QStringLiteral("INSERT INTO Tbl407 (ServiceNo, DiscountProduct) VALUES (?, ?)"), service,
             product);
    return *this;
}
