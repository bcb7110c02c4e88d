#include "output/gui/ReportGridView.h"

#include "app/cColours.h"
#include "ui/ControlColours.h"

#include <QAbstractButton>
#include <QEvent>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

namespace {

constexpr int RowHeight = 26;
constexpr int CellPadding = 18;
constexpr int TextInset = 6;
constexpr int TwipsPerInch = 1440;

// One heading cell: its own background or the headings' colour, a line at its right and
// foot, the text in its weight and colour, aligned as its column.
void paintHeadingCell(QPainter& painter, const QRect& r, const ReportCell& cell, Qt::Alignment alignment,
                      QFont font, const cColours& colours) {
    painter.fillRect(r, cell.backColor.isValid() ? cell.backColor : qColor(colours.Indigo(2)));
    painter.setPen(qColor(colours.Indigo(3)));
    painter.drawLine(r.topRight(), r.bottomRight());
    painter.drawLine(r.bottomLeft(), r.bottomRight());
    font.setBold(cell.bold);
    painter.setFont(font);
    painter.setPen(cell.foreColor.isValid() ? cell.foreColor : qColor(colours.Grey(6)));
    painter.drawText(r.adjusted(TextInset, 0, -TextInset, 0),
                     int(alignment & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter, cell.text);
}

// The band of a heading area that shows heading row `row` of `rows`.
QRect headingSlice(const QRect& area, int row, int rows) {
    const int top = area.top() + area.height() * row / rows;
    const int bottom = area.top() + area.height() * (row + 1) / rows;
    return QRect(area.left(), top, area.width(), bottom - top);
}

// The heading row under a point `y` pixels down a heading area.
int headingRowAt(int y, int height, int rows) {
    if (rows <= 0 || height <= 0)
        return 0;
    return std::clamp(y * rows / height, 0, rows - 1);
}

} // namespace

// The column headings: one band per heading row, each cell painted as the grid holds it,
// and a click tells which band it fell on.
class ReportHeadingView : public QHeaderView {
public:
    ReportHeadingView(const ReportGrid& grid, const cColours& colours, QWidget* parent)
        : QHeaderView(Qt::Horizontal, parent)
        , grid_(grid)
        , colours_(colours) {}

    void setBands(int rows, int left) {
        rows_ = rows;
        left_ = left;
        updateGeometry();
        viewport()->update();
    }
    int pressedRow() const { return pressedRow_; }

    QSize sizeHint() const override {
        QSize size = QHeaderView::sizeHint();
        size.setHeight(std::max(1, rows_) * RowHeight + 2);
        return size;
    }

protected:
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override {
        const int col = logicalIndex + left_;
        if (rows_ <= 0 || col >= grid_.colCount()) {
            QHeaderView::paintSection(painter, rect, logicalIndex);
            return;
        }
        painter->save();
        for (int r = 0; r < rows_; ++r)
            paintHeadingCell(*painter, headingSlice(rect, r, rows_), grid_.cell(r, col),
                             grid_.column(col).alignment, font(), colours_);
        painter->restore();
    }

    void mousePressEvent(QMouseEvent* event) override {
        pressedRow_ = headingRowAt(event->position().toPoint().y(), viewport()->height(), rows_);
        QHeaderView::mousePressEvent(event);
    }

private:
    const ReportGrid& grid_;
    const cColours& colours_;
    int rows_ = 1;
    int left_ = 1;
    int pressedRow_ = 0;
};

ReportGridView::ReportGridView(const cColours& colours, QWidget* parent)
    : QTableWidget(parent)
    , colours_(colours)
    , headings_(new ReportHeadingView(grid_, colours, this)) {
    setHorizontalHeader(headings_);
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
            emit cellChosen(headings_->pressedRow(), col + headingCols());
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
    if (cell.backColor.isValid())
        item->setBackground(cell.backColor);
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
    headings_->setBands(top, left);
    horizontalHeader()->setVisible(top > 0);
    verticalHeader()->setVisible(left > 0);

    for (int r = 0; r < grid.rowCount(); ++r) {
        for (int c = 0; c < grid.colCount(); ++c) {
            // The corner, and the second heading row, are painted from the grid itself.
            if ((r < top && c < left) || (r > 0 && r < top))
                continue;
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
    horizontalHeader()->viewport()->update();
    if (corner_)
        corner_->update();
}

QTableWidgetItem* ReportGridView::shownItem(int row, int col) const {
    if (row < 0 || col < 0 || row >= grid_.rowCount() || col >= grid_.colCount())
        return nullptr;
    const int top = headingRows();
    const int left = headingCols();
    if ((row < top && col < left) || (row > 0 && row < top))
        return nullptr;
    if (row < top)
        return horizontalHeaderItem(col - left);
    if (col < left)
        return verticalHeaderItem(row - top);
    return item(row - top, col - left);
}

QString ReportGridView::shownText(int row, int col) const {
    // The headings are painted from the grid as it was given.
    if (row >= 0 && row < headingRows() && col >= 0 && col < grid_.colCount())
        return grid_.text(row, col);
    const QTableWidgetItem* it = shownItem(row, col);
    return it ? it->text() : QString();
}

QWidget* ReportGridView::headingSurface(int col) const {
    if (col < headingCols())
        return corner_;
    return horizontalHeader()->viewport();
}

QRect ReportGridView::headingRect(int row, int col) const {
    const int top = headingRows();
    const int left = headingCols();
    if (row < 0 || row >= top || col < 0 || col >= grid_.colCount())
        return {};
    if (col < left)
        return corner_ ? headingSlice(corner_->rect(), row, top) : QRect();
    const QHeaderView* header = horizontalHeader();
    const QRect section(header->sectionViewportPosition(col - left), 0, header->sectionSize(col - left),
                        header->viewport()->height());
    return headingSlice(section, row, top);
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
    const bool cornerShown = headingRows() > 0 && headingCols() > 0;
    if (watched == corner_ && cornerShown && event->type() == QEvent::Paint) {
        paintCorner(corner_);
        return true;
    }
    // The corner heads the row headings' column: a click on it is a click on that heading.
    if (watched == corner_ && cornerShown && event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::LeftButton && corner_->rect().contains(mouse->position().toPoint()))
            emit cellChosen(headingRowAt(mouse->position().toPoint().y(), corner_->height(), headingRows()),
                            0);
        return true;
    }
    return QTableWidget::eventFilter(watched, event);
}

void ReportGridView::paintCorner(QWidget* corner) {
    QPainter painter(corner);
    const int rows = headingRows();
    for (int r = 0; r < rows; ++r)
        paintHeadingCell(painter, headingSlice(corner->rect(), r, rows), grid_.cell(r, 0),
                         grid_.column(0).alignment, font(), colours_);
}
