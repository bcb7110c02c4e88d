#include "output/gui/ReportGridView.h"

#include "app/cColours.h"
#include "ui/ControlColours.h"

#include <QAbstractButton>
#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>

namespace {

constexpr int RowHeight = 26;
constexpr int CellPadding = 18;
constexpr int TwipsPerInch = 1440;

} // namespace

ReportGridView::ReportGridView(const cColours& colours, QWidget* parent)
    : QTableWidget(parent)
    , colours_(colours) {
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::NoSelection);
    setFocusPolicy(Qt::NoFocus);
    setWordWrap(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(RowHeight);
    verticalHeader()->setHighlightSections(false);
    verticalHeader()->setSectionsClickable(true);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    horizontalHeader()->setMinimumHeight(RowHeight + 2);
    setStyleSheet(QStringLiteral("QTableWidget { gridline-color: %1; border: 1px solid %2; }")
                      .arg(qColor(colours.Grey(3)).name(), qColor(colours.Indigo(3)).name()));
    SetMSFlexGrid(colours, this);
    connect(this, &QTableWidget::cellClicked, this,
            [this](int row, int col) { emit cellChosen(row + headingRows(), col + headingCols()); });
    connect(verticalHeader(), &QHeaderView::sectionClicked, this, [this](int row) {
        if (headingCols() > 0)
            emit cellChosen(row + headingRows(), 0);
    });
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int col) {
        if (headingRows() > 0)
            emit cellChosen(0, col + headingCols());
    });
    // The corner shows the first cell of the grid, the heading of the row headings.
    corner_ = findChild<QAbstractButton*>();
    if (corner_)
        corner_->installEventFilter(this);
}

int ReportGridView::twipsToPixels(int twips) const {
    return qRound(double(twips) * logicalDpiX() / TwipsPerInch);
}

QTableWidgetItem* ReportGridView::makeItem(const ReportCell& cell, Qt::Alignment alignment) const {
    auto* item = new QTableWidgetItem(cell.text);
    QFont font = this->font();
    font.setBold(cell.bold);
    item->setFont(font);
    if (cell.foreColor.isValid())
        item->setForeground(cell.foreColor);
    item->setTextAlignment(alignment);
    return item;
}

void ReportGridView::showGrid(const ReportGrid& grid) {
    grid_ = grid;
    clear();
    clearSpans();
    const int top = headingRows();
    const int left = headingCols();
    setRowCount(std::max(0, grid.rowCount() - top));
    setColumnCount(std::max(0, grid.colCount() - left));
    horizontalHeader()->setVisible(top > 0);
    verticalHeader()->setVisible(left > 0);

    for (int r = 0; r < grid.rowCount(); ++r) {
        for (int c = 0; c < grid.colCount(); ++c) {
            if (r < top && c < left)
                continue; // the corner
            QTableWidgetItem* item = makeItem(grid.cell(r, c), grid.column(c).alignment);
            if (r < top)
                setHorizontalHeaderItem(c - left, item);
            else if (c < left)
                setVerticalHeaderItem(r - top, item);
            else
                setItem(r - top, c - left, item);
        }
    }

    // Widths: the report's, but never narrower than what the column holds.
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics boldMetrics(bold);
    for (int c = 0; c < grid.colCount(); ++c) {
        int contents = 0;
        for (int r = 0; r < grid.rowCount(); ++r)
            contents = std::max(contents, boldMetrics.horizontalAdvance(grid.text(r, c)) + CellPadding);
        const int twips = grid.column(c).widthTwips;
        const int width = std::max(twips >= 0 ? twipsToPixels(twips) : 0, contents);
        if (c < left)
            verticalHeader()->setFixedWidth(width);
        else
            setColumnWidth(c - left, width);
    }

    for (int r = top; r < grid.rowCount(); ++r) {
        const ReportRow& row = grid.row(r);
        setRowHidden(r - top, row.hidden);
        if (!row.merge)
            continue;
        for (int c = left; c < grid.colCount();) {
            int end = c + 1;
            while (end < grid.colCount() && grid.text(r, end) == grid.text(r, c))
                ++end;
            if (end - c > 1)
                setSpan(r - top, c - left, 1, end - c);
            c = end;
        }
    }
    viewport()->update();
}

QTableWidgetItem* ReportGridView::shownItem(int row, int col) const {
    if (row < 0 || col < 0 || row >= grid_.rowCount() || col >= grid_.colCount())
        return nullptr;
    const int top = headingRows();
    const int left = headingCols();
    if (row < top && col < left)
        return nullptr;
    if (row < top)
        return horizontalHeaderItem(col - left);
    if (col < left)
        return verticalHeaderItem(row - top);
    return item(row - top, col - left);
}

QString ReportGridView::shownText(int row, int col) const {
    if (row == 0 && col == 0 && headingRows() > 0 && headingCols() > 0)
        return grid_.text(0, 0);
    const QTableWidgetItem* it = shownItem(row, col);
    return it ? it->text() : QString();
}

bool ReportGridView::isRowShown(int row) const {
    if (row < 0 || row >= grid_.rowCount())
        return false;
    return row < headingRows() || !isRowHidden(row - headingRows());
}

QRect ReportGridView::cellRect(int row, int col) const {
    const int top = headingRows();
    const int left = headingCols();
    if (row < top || col < left || !isRowShown(row) || col >= grid_.colCount())
        return {};
    return visualRect(model()->index(row - top, col - left));
}

int ReportGridView::shownRowCount() const {
    int n = 0;
    for (int r = headingRows(); r < grid_.rowCount(); ++r)
        if (!grid_.row(r).hidden)
            ++n;
    return n;
}

int ReportGridView::fittingHeight(int rows) const {
    int height = 2 * frameWidth();
    if (horizontalHeader()->isVisible() || headingRows() > 0)
        height += std::max(horizontalHeader()->sizeHint().height(), horizontalHeader()->minimumHeight());
    height += std::min(rows, shownRowCount()) * verticalHeader()->defaultSectionSize();
    int columns = verticalHeader()->isVisible() ? verticalHeader()->width() : 0;
    for (int c = 0; c < columnCount(); ++c)
        columns += columnWidth(c);
    if (columns + 2 * frameWidth() > width())
        height += horizontalScrollBar()->sizeHint().height();
    return height;
}

bool ReportGridView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == corner_ && event->type() == QEvent::Paint && headingRows() > 0 && headingCols() > 0) {
        paintCorner(corner_);
        return true;
    }
    return QTableWidget::eventFilter(watched, event);
}

void ReportGridView::paintCorner(QWidget* corner) {
    QPainter painter(corner);
    const QRect r = corner->rect();
    painter.fillRect(r, qColor(colours_.Indigo(2)));
    painter.setPen(qColor(colours_.Indigo(3)));
    painter.drawLine(r.topRight(), r.bottomRight());
    painter.drawLine(r.bottomLeft(), r.bottomRight());
    const ReportCell& cell = grid_.cell(0, 0);
    QFont font = this->font();
    font.setBold(cell.bold);
    painter.setFont(font);
    painter.setPen(cell.foreColor.isValid() ? cell.foreColor : qColor(colours_.Grey(6)));
    painter.drawText(r.adjusted(6, 0, -6, 0), Qt::AlignLeft | Qt::AlignVCenter, cell.text);
}
