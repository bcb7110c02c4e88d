#pragma once
// The text stored as a trend row's product code: the description the project's
// look-up table gives the code, else the label of the code's service family.
#include <QHash>
#include <QString>

class Database;

// The family label of a product code; "Unspecified" for a code the table does not hold.
QString serviceFamilyLabel(const QString& productCode);

QString GetServiceDescription(Database& project, const QString& productCode, const QString& serviceType);

// The same answers, remembered per code and service type: a bill repeats a few codes
// over many rows.
class ServiceDescriptionCache {
public:
    explicit ServiceDescriptionCache(Database& project)
        : project_(project) {}
    QString describe(const QString& productCode, const QString& serviceType);

private:
    Database& project_;
    QHash<QString, QString> known_;
};
