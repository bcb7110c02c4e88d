#include "ReportGuiHelpers.h"

#include "output/gui/ReportGridView.h"

#include <QTest>

void fillThreeBills(TrendFixture& f) {
    const QString usage = QStringLiteral("Usage Charges");
    const QString recurring = QStringLiteral("Recurring Charges");
    f.number("0100", {"Sales"});
    f.number("0200", {"Finance"});
    f.add(Date(2012, 1, 31), "0100", {{usage, pounds(100)}, {recurring, pounds(20)}});
    f.add(Date(2012, 1, 31), "0200",
          {{usage, pounds(50.25)},
           {recurring, pounds(10)},
           {"One Off Charges and Credits", pounds(5)},
           {"Adjustments", pounds(-1)}});
    f.add(Date(2012, 2, 29), "0100", {{usage, pounds(120)}, {recurring, pounds(20)}});
    f.add(Date(2012, 2, 29), "0200", {{usage, pounds(30.75)}, {recurring, pounds(10)}});
    f.add(Date(2012, 3, 31), "0100", {{usage, pounds(200)}, {recurring, pounds(20)}});
    f.add(Date(2012, 3, 31), "0200", {{recurring, pounds(10)}});
}

void selectProject(TrendFixture& f) {
    f.ctx.projectPath = f.dir.path(QStringLiteral("project.mdb"));
    f.ctx.trendEnabled = true;
}

void clickGrid(ReportGridView* grid, const QPoint& at) {
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, at);
}

void clickCell(ReportGridView* grid, int row, int col) {
    const QRect cell = grid->cellRect(row, col);
    QVERIFY2(cell.isValid(), "the cell is not shown");
    clickGrid(grid, cell.center());
}
