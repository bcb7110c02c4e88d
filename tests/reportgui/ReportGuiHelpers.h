#pragma once
// What the report window tests share: the bill they report on, and a way to look into a
// window that opens modally.
#include "../reports/TrendFixture.h"

#include <QApplication>
#include <QTimer>
#include <functional>
#include <memory>

class ReportGridView;
class QWidget;

// Three monthly bills of two numbers under two cost centres of level 1:
//             31/01/2012                29/02/2012               31/03/2012
// 0100 Sales  usage 100, rec 20         usage 120, rec 20        usage 200, rec 20
// 0200 Fin.   usage 50.25, rec 10,      usage 30.75, rec 10      rec 10
//             one off 5, adj -1
void fillThreeBills(TrendFixture& f);

// Marks the fixture's project as selected and fit for trend reports.
void selectProject(TrendFixture& f);

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

// Clicks a point of the grid's viewport.
void clickGrid(ReportGridView* grid, const QPoint& at);
// Clicks the middle of a body cell (row and column of the report grid).
void clickCell(ReportGridView* grid, int row, int col);
