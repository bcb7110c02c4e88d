#pragma once
// Pairing each budget date with a bill date of the trend store. Budget dates are meant to
// be bill dates but may lie up to four days off.
#include "budget/clsBudgetCostEntry.h"

#include <QString>
#include <set>
#include <vector>

class Database;

// The widest distance, in days either way, at which a bill date still stands for a budget date.
constexpr int BillDateTolerance = 4;

// Two passes over the entries. First, a date that is a bill date of `account` is its own
// bill date, and that date is taken: the second pass offers it to no other entry. Then each
// entry left over takes the nearest bill date of any account within four days (four
// included; of two equally near, the earlier); failing that, its own date. The second
// pass takes no account into consideration and may give one bill date to several entries.
// `accountDates` are the bill dates of the account, `anyDates` those of every account.
void matchBillDates(std::vector<clsBudgetCostEntry>& entries, const std::set<Date>& accountDates,
                    const std::set<Date>& anyDates);

// The same on the dates read from the trend store.
void MatchBillDates(Database& trendDb, const QString& account, std::vector<clsBudgetCostEntry>& entries);
