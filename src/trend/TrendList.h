#pragma once
// The trend entries of one account with their totals, and their deletion.
#include "app/Date.h"
#include "app/Money.h"

#include <QString>
#include <QStringList>
#include <vector>

class Database;

struct TrendListRow {
    Date billDate;
    Money billCost; // the pre-tax total of the bill
    Money usage;
    Money recurring;
    Money oneOff;
    Money adjustments;
};

// One row per bill date of the account, oldest first.
std::vector<TrendListRow> trendList(Database& trendDb, const QString& account);

// The list's column headings and a row's cells as the list shows them.
QStringList trendListHeadings();
QStringList trendListCells(const TrendListRow& row);

// Removes one bill's entry; returns the number of rows removed.
int deleteTrendEntry(Database& trendDb, const QString& account, const Date& billDate);
// Removes every entry of the account.
int deleteAllTrendEntries(Database& trendDb, const QString& account);
