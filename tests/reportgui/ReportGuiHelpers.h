#pragma once
// What the report window tests share: ways to look into and click on windows, also those
// that open modally. Their bills are the report tests' fillThreeBills().
#include "../reports/TrendFixture.h"
#include "output/gui/ReportGridView.h"
#include "reports/ReportNavigation.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

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
