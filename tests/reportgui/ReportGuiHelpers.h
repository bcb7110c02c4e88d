#pragma once
// What the report window tests share: the bill they report on, and ways to look into and
// click on windows, also those that open modally.
#include "../reports/TrendFixture.h"
#include "output/gui/ReportGridView.h"
#include "reports/ReportNavigation.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

// Three monthly bills of two numbers under two cost centres of level 1:
//             31/01/2012                29/02/2012               31/03/2012
// 0100 Sales  usage 100, rec 20         usage 120, rec 20        usage 200, rec 20
// 0200 Fin.   usage 50.25, rec 10,      usage 30.75, rec 10      rec 10
//             one off 5, adj -1
inline void fillThreeBills(TrendFixture& f) {
    const QString usage = QStringLiteral("Usage Charges"), recurring = QStringLiteral("Recurring Charges");
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

// Marks the fixture's project as selected and fit for trend reports, with the bills added
// so far summed into their totals, as gathering leaves them.
inline void selectProject(TrendFixture& f) {
    f.ctx.projectPath = f.dir.path(QStringLiteral("project.mdb"));
    f.ctx.trendEnabled = true;
    f.context();
}

// Every report gets its own builder back, every window of a test goes, before the next test.
inline void resetReports() {
    for (int number = ReportNumber::First; number <= ReportNumber::Last; ++number)
        setReportBuilder(number, {});
    for (QWidget* w : QApplication::topLevelWidgets())
        w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Runs `inspect` on the first window of class T that becomes modal, then closes it unless
// `inspect` did. Gives up after about five seconds.
template <typename T> void whenModal(std::function<void(T*)> inspect) {
    auto* timer = new QTimer;
    timer->setInterval(20);
    auto tries = std::make_shared<int>(0);
    QObject::connect(timer, &QTimer::timeout, [timer, tries, inspect] {
        auto* window = qobject_cast<T*>(QApplication::activeModalWidget());
        if (!window && ++*tries < 250)
            return;
        timer->stop();
        timer->deleteLater();
        if (!window)
            return;
        inspect(window);
        if (window->isVisible())
            window->reject();
    });
    timer->start();
}

// Clicks the middle of a body cell (row and column of the report grid); false when the
// cell is not shown.
[[nodiscard]] inline bool clickCell(ReportGridView* grid, int row, int col) {
    const QRect cell = grid->cellRect(row, col);
    if (cell.isValid())
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    return cell.isValid();
}
