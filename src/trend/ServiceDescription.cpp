#include "trend/ServiceDescription.h"

#include "data/Database.h"

#include <array>
#include <optional>

namespace {

struct Family {
    const char* code;
    const char* label; // at most 30 characters, the width of the column
};

constexpr std::array<Family, 29> Families = {{
    {"P00001", "Analogue Lines"},
    {"P00002", "ISDN2 Digital Lines"},
    {"P00003", "ISDN30 Digital Lines"},
    {"P00004", "Direct Dial Inward"},
    {"P00005", "Featureline Services"},
    {"P00006", "Centrex Services"},
    {"P00007", "Private Circuits"},
    {"P00008", "Leased Data Lines"},
    {"P00009", "Broadband Services"},
    {"P00014", "Freephone Numbers"},
    {"P00015", "Local Rate Numbers"},
    {"P00018", "National Rate Numbers"},
    {"P00019", "Premium Rate Numbers"},
    {"P00020", "Mobile Voice"},
    {"P00021", "Mobile Data"},
    {"P00022", "Mobile Broadband"},
    {"P00023", "Paging Services"},
    {"P00024", "Conference Calling"},
    {"P00025", "Calling Cards"},
    {"P00026", "Telemarketing Services"},
    {"P00027", "Internet Access"},
    {"P00028", "Ethernet Access"},
    {"P00029", "Managed Network Services"},
    {"P00030", "Maintenance Contracts"},
    {"P00032", "Equipment Rental"},
    {"P00042", "Payphones"},
    {"P00044", "Directory Services"},
    {"P00045", "Voice over IP"},
    {"P00048", "Wholesale Line Rental"},
}};

// A code whose description is looked up by the service type instead of by itself.
const QString ServiceTypeCode = QStringLiteral("P00031");

std::optional<QString> lookUp(Database& project, const QString& code) {
    Statement st(project,
                 QStringLiteral("SELECT Description1 FROM Tbl017 WHERE (ColumnName = 'Product Service "
                                "Code' OR ColumnName = 'Service Type') AND Enumeration = ? LIMIT 1"));
    st.bind(1, code);
    if (!st.step())
        return std::nullopt;
    return st.text(0).trimmed();
}

} // namespace

QString serviceFamilyLabel(const QString& productCode) {
    for (const Family& f : Families)
        if (productCode == QLatin1String(f.code))
            return QString::fromLatin1(f.label);
    return QStringLiteral("Unspecified");
}

QString GetServiceDescription(Database& project, const QString& productCode, const QString& serviceType) {
    if (productCode == ServiceTypeCode)
        return lookUp(project, serviceType).value_or(QString());
    if (auto found = lookUp(project, productCode))
        return *found;
    return serviceFamilyLabel(productCode);
}

QString ServiceDescriptionCache::describe(const QString& productCode, const QString& serviceType) {
    // Only the "P00031" answer depends on the service type.
    const QString key =
        productCode == ServiceTypeCode ? productCode + QChar(0x1f) + serviceType : productCode;
    auto it = known_.constFind(key);
    if (it != known_.constEnd())
        return *it;
    const QString text = GetServiceDescription(project_, productCode, serviceType);
    known_.insert(key, text);
    return text;
}
