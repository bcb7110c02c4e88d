#pragma once
// The selected project's header, its copy of the central cost-centre and telephone
// data, its bill period, and the service numbers under a point of the cost-centre tree.
#include <QString>
#include <QStringList>

struct AppContext;
class Database;

// Reads the account and imports of the project; on an account, brings the project's
// cost-centre and telephone tables up to date and reads the bill period. True when
// the project has an account.
bool LoadProjectDetails(AppContext& ctx);
// Replaces the project's TblCC by the central rows of its account. An account ending
// in "AC01" is looked up without its last two characters.
void LoadCostCentres(AppContext& ctx);
// Replaces the project's TblTel and TblPhoneBook by the central rows of its account.
void LoadTelephoneDetails(AppContext& ctx);
// The bill period from TblCallSummary1, as dd/mm/yyyy; both "" when there is none.
void LoadBillPeriod(AppContext& ctx);

// Cost-centre levels 0..4 stand for CostCentre1..CostCentre5; level 5 is the number itself.
constexpr int ServiceNumberLevel = 5;

// The service numbers of the selected project's TblCC under one value of a level, in
// table order. A Null level value counts as "". A level out of range gives an empty
// list; a failure is logged and gives what was read so far.
QStringList GetServiceNumbersByCostCentre(AppContext& ctx, const QString& account, int level,
                                          const QString& name);
// The same for several values of a level.
QStringList GetServiceNumbersByCostCentres(AppContext& ctx, const QString& account, int level,
                                           const QStringList& names);

// A list of values as one JSON array text, bound to "IN (SELECT value FROM json_each(?))".
QString jsonList(const QStringList& values);
