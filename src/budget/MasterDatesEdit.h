#pragma once
// Changing the dates of a master after it was made. Every date change reaches the whole
// family: the master and all its cost-centre budgets.
#include "app/Date.h"

#include <QList>

class Database;

// `periods` are the twelve period slots in order, a null date for a period not in use.
// Slot i is compared with the master's i-th date (ascending): a date in both moves the
// family's rows of the old date to the new one; an old date alone is deleted from the
// family; a new date alone is added to every budget of the family with zero amounts.
// Slots are applied one after the other, and a date moved onto one in use is not refused.
// One transaction. Refused (3) for a budget that is no master, or more than twelve slots.
int editMasterDates(Database& budgetDb, int masterId, const QList<Date>& periods);
