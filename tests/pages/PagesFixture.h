#pragma once
// Hand-made reports for the page tests.
#include "reports/Report.h"

// The financial report's shape: two heading rows, `lines` centres ("Centre 001" ...), a total.
Report financialShape(int lines);
// A trend of three bills: a line chart ("Quarterly Spend") over a grid of two columns.
Report smallTrend();
