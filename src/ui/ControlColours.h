#pragma once
// Paints grids in the program's colours (charts: render/ChartColours.h).
#include "render/ChartColours.h"

class cColours;
class QAbstractItemView;
class QTableView;

// Headers in Indigo 2, the selection in Indigo 6 with white text.
void SetMSFlexGrid(const cColours& colours, QAbstractItemView* grid);
// The same for an editing grid, including its row selectors (the vertical header).
void SetTDBGrid(const cColours& colours, QTableView* grid);
