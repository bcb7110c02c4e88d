#pragma once
// The period dates a new master budget starts with.
#include "app/Date.h"

#include <QList>
#include <QString>

class Database;

// `count` dates from `from` by calendar month, each a month after the one before it, so a
// date on the 31st slides to the end of a shorter month and stays on that day afterwards.
QList<Date> cascadeByMonth(const Date& from, int count);

// Where the first period of a new master starts: the latest bill date that the trend store
// holds for the account, or `today` when it holds none or cannot be read.
Date firstPeriodStart(Database& trendDb, const QString& account, const Date& today);
