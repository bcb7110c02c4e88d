#pragma once
// Small hand-made bills for the gathering tests.
#include "app/Date.h"
#include "app/Money.h"
#include "data/Database.h"

#include <optional>

struct Line {
    QString service = QStringLiteral("01000000001");
    QString sourceAccount = QStringLiteral("SRC1");
    std::optional<Money> preTax = Money::fromPounds(10);
    std::optional<Money> discount = Money();
    double taxRate = 20;
    QString taxDescription = QStringLiteral("Standard");
    std::optional<int> eventClass = 1;
    std::optional<int> subClass = 210;
    Date usageStart = Date(2012, 1, 1);
    Date usageEnd = Date(2012, 1, 31);
    Date rentalStart = Date(2012, 2, 1);
    Date rentalEnd = Date(2012, 2, 29);
    std::optional<QString> productCode = QStringLiteral("P00001");
    std::optional<int> serviceType = 1;
    QString description1 = QStringLiteral("line");
    int callVolume = 1;
    double duration = 60;
};

class ProjectBuilder {
public:
    explicit ProjectBuilder(const QString& account = QStringLiteral("ACC1"),
                            const QString& createDate = QStringLiteral("31/01/2012"));
    Database& db() { return db_; }
    ProjectBuilder& add(const Line& line);
    ProjectBuilder& lookUp(const QString& column, const QString& code, const QString& description);
    ProjectBuilder& discountProduct(const QString& service, const QString& product);

private:
    Database db_;
};
