#include "ui/ControlColours.h"

#include "app/cColours.h"

#include <QHeaderView>
#include <QTableView>
#include <QTreeView>

namespace {

QString headerStyle(const cColours& colours) {
    return QStringLiteral("QHeaderView::section { background-color: %1; color: %2; padding: 3px 6px;"
                          " border: none; border-right: 1px solid %3; border-bottom: 1px solid %3; }")
        .arg(qColor(colours.Indigo(2)).name(), qColor(colours.Grey(6)).name(),
             qColor(colours.Indigo(3)).name());
}

void colourHeader(const cColours& colours, QHeaderView* header) {
    if (!header)
        return;
    QPalette palette = header->palette();
    palette.setColor(QPalette::Button, qColor(colours.Indigo(2)));
    palette.setColor(QPalette::Window, qColor(colours.Indigo(2)));
    header->setPalette(palette);
    header->setStyleSheet(headerStyle(colours));
}

} // namespace

void SetMSFlexGrid(const cColours& colours, QAbstractItemView* grid) {
    if (!grid)
        return;
    QPalette palette = grid->palette();
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Highlight, qColor(colours.Indigo(6)));
        palette.setColor(group, QPalette::HighlightedText, qColor(White));
    }
    grid->setPalette(palette);
    if (auto* table = qobject_cast<QTableView*>(grid)) {
        colourHeader(colours, table->horizontalHeader());
        colourHeader(colours, table->verticalHeader());
    } else if (auto* tree = qobject_cast<QTreeView*>(grid)) {
        colourHeader(colours, tree->header());
    }
}

void SetTDBGrid(const cColours& colours, QTableView* grid) {
    SetMSFlexGrid(colours, grid);
}
