#pragma once
// What the trend report menu offers in its lists: the cost centres of a level and the
// service numbers of the selected project's account.
#include <QStringList>

struct AppContext;

// The distinct cost centres of level 1 to 5 among the project's numbers of its account,
// in alphabetical order, without empty ones. Any other level, or a project that cannot be
// read, gives none.
QStringList trendCostCentres(AppContext& ctx, int level);

// The distinct service numbers of the account in the trend store, in order.
QStringList trendServiceNumbers(AppContext& ctx);
