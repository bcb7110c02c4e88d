#include "ui/ListViewHelpers.h"

#include "app/ListSortRules.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <algorithm>

namespace {

constexpr char SortColumnProperty[] = "vantrelSortColumn";
constexpr char SortAscendingProperty[] = "vantrelSortAscending";
constexpr int TagRole = Qt::UserRole + 1;

} // namespace

void setListColumnTag(QTreeWidget* list, int column, const QString& tag) {
    if (list && list->headerItem())
        list->headerItem()->setData(column, TagRole, tag);
}

QString listColumnTag(const QTreeWidget* list, int column) {
    return list && list->headerItem() ? list->headerItem()->data(column, TagRole).toString() : QString();
}

int listSortColumn(const QTreeWidget* list) {
    const QVariant v = list ? list->property(SortColumnProperty) : QVariant();
    return v.isValid() ? v.toInt() : -1;
}

bool listSortAscending(const QTreeWidget* list) {
    return list && list->property(SortAscendingProperty).toBool();
}

void SortListByColumn(QTreeWidget* list, int column) {
    if (!list || column < 0 || column >= list->columnCount())
        return;
    const int previous = listSortColumn(list);
    const bool ascending = previous == column ? !listSortAscending(list) : true;

    QTreeWidgetItem* header = list->headerItem();
    if (previous >= 0 && previous < list->columnCount())
        header->setText(previous, headerWithoutSortMark(header->text(previous)));
    header->setText(column, headerWithSortMark(header->text(column), ascending));
    list->setProperty(SortColumnProperty, column);
    list->setProperty(SortAscendingProperty, ascending);

    // The list's own sort compares text; dates and numbers need their values. Turning
    // it off also makes the headers unclickable, which would end the sorting by click.
    const bool clickable = list->header()->sectionsClickable();
    list->setSortingEnabled(false);
    list->header()->setSectionsClickable(clickable);
    QTreeWidgetItem* current = list->currentItem();
    const QList<QTreeWidgetItem*> selected = list->selectedItems();
    QList<QTreeWidgetItem*> items;
    while (list->topLevelItemCount() > 0)
        items << list->takeTopLevelItem(0);
    const ListColumnKind kind = listColumnKind(listColumnTag(list, column));
    std::stable_sort(items.begin(), items.end(), [&](QTreeWidgetItem* a, QTreeWidgetItem* b) {
        const int c = compareListCells(a->text(column), b->text(column), kind);
        return ascending ? c < 0 : c > 0;
    });
    list->addTopLevelItems(items);
    for (QTreeWidgetItem* item : selected)
        item->setSelected(true);
    if (current)
        list->setCurrentItem(current, 0, QItemSelectionModel::NoUpdate);
}

void sortListOnHeaderClick(QTreeWidget* list) {
    if (!list)
        return;
    list->header()->setSectionsClickable(true);
    list->header()->setSortIndicatorShown(false);
    QObject::connect(list->header(), &QHeaderView::sectionClicked, list,
                     [list](int column) { SortListByColumn(list, column); });
}

void FitListViewColumns(QTreeWidget* list) {
    if (!list)
        return;
    for (int column = 0; column < list->columnCount(); ++column) {
        list->resizeColumnToContents(column);
        const int headerWidth = list->header()->sectionSizeHint(column);
        if (list->columnWidth(column) < headerWidth)
            list->setColumnWidth(column, headerWidth);
    }
}
