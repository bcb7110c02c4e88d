#pragma once
// Writers of the demo files: one bill project, and the central cost-centre and
// telephone stores.
#include "tools/DemoGenerator.h"
#include "tools/DemoPlan.h"

class Database;

namespace demo {

// What the project header says about the bill's origin.
struct ProjectHeader {
    QString imports = QStringLiteral("O");
    QString crv = QStringLiteral("");
};

// Writes a project file for one bill of the plan's account. The cost-centre and
// telephone tables hold what the host product left at an earlier selection,
// staleMonths before the bill; a negative value leaves them empty.
TableCounts writeProjectFile(const QString& path, const AccountPlan& plan, const Date& billDate, qint64 lines,
                             quint64 seed, const ProjectHeader& header, int staleMonths);

TableCounts writeCostCentreStore(const QString& path, const std::vector<AccountPlan>& plans);
TableCounts writeTelStore(const QString& path, const std::vector<AccountPlan>& plans);
// Row counts of the given tables, in that order.
TableCounts countRows(Database& db, const QStringList& tables);

// An empty store from its schema ("budgets", "trend").
TableCounts writeEmptyStore(const QString& path, const QString& schema);

} // namespace demo
