#include "output/ReportPages.h"

#include "app/BrandFont.h"
#include "app/Format.h"
#include "output/ReportDisclaimer.h"
#include "reports/Report.h"

#include <QFile>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <functional>
#include <memory>

namespace {

constexpr double TitlePoints = 10;
constexpr double TablePoints = 8;
constexpr double DisclaimerPoints = 7;
constexpr double PageMarginMm = 10;
constexpr double HeaderRuleWidth = 1.5; // points
constexpr double GridRuleWidth = 0.5;
constexpr double LogoHeight = 28; // points, under the footer's rule
const QColor RuleColour(118, 17, 37);
const QColor GridRuleColour(110, 110, 110);

QFont unshaped(QFont font) {
    font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}

// Lengths of the page in the device's units.
struct Units {
    double perPoint;
    double operator()(double points) const { return points * perPoint; }
};

class PagePainter {
public:
    PagePainter(QPagedPaintDevice& device, QPainter& painter, const Report& report, const PageDecor& decor)
        : device_(device)
        , painter_(painter)
        , report_(report)
        , decor_(decor)
        , frame_(pageFrameOf(device))
        , pt_{frame_.unitsPerPoint} {}

    bool paint(const PagePlan& plan, QString* error) {
        for (size_t i = 0; i < plan.pages.size(); ++i) {
            if (i > 0 && !device_.newPage()) {
                if (error)
                    *error = QStringLiteral("a new page could not be started");
                return false;
            }
            const PlannedPage& page = plan.pages[i];
            page_ = int(i);
            header();
            if (!page.chart.isNull() && decor_.paintChart)
                chart(page.chart, report_.charts.front());
            area(page);
            table(plan, page);
            footer();
        }
        return true;
    }

private:
    void header() {
        const QFont font = pageTitleFont();
        painter_.setFont(font);
        painter_.setPen(Qt::black);
        const double line = QFontMetricsF(font, &device_).height();
        // An empty line, then the title.
        painter_.drawText(QRectF(0, line, frame_.size.width(), line), Qt::AlignLeft | Qt::AlignVCenter,
                          pageTitle(report_.caption, decor_.moment));
        rule(pt_(PagePoints::HeaderRule));
    }

    void rule(double y) {
        painter_.setPen(QPen(RuleColour, pt_(HeaderRuleWidth)));
        painter_.drawLine(QPointF(0, y), QPointF(frame_.size.width(), y));
    }

    void footer() {
        const double top = frame_.size.height() - pt_(PagePoints::FooterRule);
        rule(top);
        double logoWidth = 0;
        if (!decor_.logo.isNull()) {
            const double height = pt_(LogoHeight);
            logoWidth = height * decor_.logo.width() / std::max(1, decor_.logo.height());
            const QRectF place(frame_.size.width() - logoWidth, top + pt_(PagePoints::FooterGap), logoWidth,
                               height);
            painter_.drawImage(place, decor_.logo);
        }
        // Centred on the page, clear of the logo on either side.
        const double side = logoWidth > 0 ? logoWidth + pt_(PagePoints::Gap) : 0;
        QFont font = pageTableFont();
        font.setPointSizeF(DisclaimerPoints);
        painter_.setFont(font);
        painter_.setPen(Qt::black);
        painter_.drawText(QRectF(side, top + pt_(PagePoints::FooterGap), frame_.size.width() - 2 * side,
                                 pt_(PagePoints::FooterRule - PagePoints::FooterGap)),
                          Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, ReportDisclaimer);
        if (decor_.firstPageNumber > 0) {
            painter_.drawText(
                QRectF(0, top + pt_(PagePoints::FooterGap), frame_.size.width() - side,
                       pt_(PagePoints::FooterRule - PagePoints::FooterGap)),
                Qt::AlignRight | Qt::AlignBottom,
                QStringLiteral("Page %1 of %2").arg(decor_.firstPageNumber + page_).arg(decor_.pageCount));
        }
    }

    void chart(const QRectF& place, const ReportChart& chart) {
        painter_.save();
        painter_.fillRect(place, Qt::white);
        decor_.paintChart(painter_, place, chart);
        painter_.restore();
    }

    void area(const PlannedPage& page) {
        for (const AreaItem& item : page.area) {
            switch (item.kind) {
            case AreaItem::Kind::Chart:
                if (decor_.paintChart && item.chart >= 0 && item.chart < int(report_.charts.size()))
                    chart(item.rect, report_.charts[size_t(item.chart)]);
                break;
            case AreaItem::Kind::KeyFrame:
                painter_.setPen(QPen(GridRuleColour, pt_(GridRuleWidth)));
                painter_.setBrush(Qt::NoBrush);
                painter_.drawRect(item.rect);
                break;
            case AreaItem::Kind::Swatch:
                painter_.fillRect(item.rect, item.colour);
                break;
            case AreaItem::Kind::Label:
            case AreaItem::Kind::Note: {
                QFont font = pageTableFont();
                font.setItalic(item.kind == AreaItem::Kind::Note);
                painter_.setFont(font);
                painter_.setPen(Qt::black);
                painter_.drawText(item.rect, Qt::AlignLeft | Qt::AlignVCenter, item.text);
                break;
            }
            }
        }
    }

    void table(const PagePlan& plan, const PlannedPage& page) {
        if (page.rows.empty())
            return;
        const ReportGrid& grid = report_.grid;
        QFont regular = pageTableFont();
        regular.setPointSizeF(regular.pointSizeF() * plan.tableScale);
        QFont bold = regular;
        bold.setBold(true);
        const double padX = pt_(PagePoints::CellPadX) * plan.tableScale;
        const double padY = pt_(PagePoints::CellPadY) * plan.tableScale;
        const double right = plan.tableWidth();
        const QPen rulePen(GridRuleColour, pt_(GridRuleWidth));

        painter_.setPen(rulePen);
        painter_.drawLine(QPointF(0, page.rows.front().top), QPointF(right, page.rows.front().top));
        for (const PlannedRow& row : page.rows) {
            const double bottom = row.top + row.height;
            for (size_t i = 0; i < plan.columns.size(); ++i) {
                if (row.span[i] == 0)
                    continue;
                const int col = plan.columns[i];
                const ReportCell& cell = grid.cell(row.row, col);
                double width = 0;
                for (size_t k = i; k < i + size_t(row.span[i]); ++k)
                    width += plan.columnWidths[k];
                const QRectF place(plan.columnLefts[i], row.top, width, row.height);
                painter_.setFont(row.heading || cell.bold ? bold : regular);
                painter_.setPen(cell.foreColor.isValid() ? cell.foreColor : QColor(Qt::black));
                painter_.drawText(place.adjusted(padX, padY, -padX, -padY),
                                  alignmentOf(grid.column(col), row.span[i] > 1) | Qt::AlignVCenter,
                                  row.lines[i].join(QLatin1Char('\n')));
                // The rule on the cell's left; the table's right edge closes the row.
                painter_.setPen(rulePen);
                painter_.drawLine(place.topLeft(), place.bottomLeft());
            }
            painter_.setPen(rulePen);
            painter_.drawLine(QPointF(right, row.top), QPointF(right, bottom));
            painter_.drawLine(QPointF(0, bottom), QPointF(right, bottom));
        }
    }

    // Figures line up on the right; anything else as the grid shows it. A merged cell is
    // centred over the columns it covers.
    static Qt::Alignment alignmentOf(const ReportColumn& column, bool merged) {
        if (merged)
            return Qt::AlignHCenter;
        if (column.colData == int(ColumnKind::Value))
            return Qt::AlignRight;
        const Qt::Alignment horizontal = column.alignment & Qt::AlignHorizontal_Mask;
        return horizontal ? horizontal : Qt::AlignLeft;
    }

    QPagedPaintDevice& device_;
    QPainter& painter_;
    const Report& report_;
    const PageDecor& decor_;
    int page_ = 0; // the page being painted, from 0
    PageFrame frame_;
    Units pt_;
};

} // namespace

QString pageTitle(const QString& caption, const DateTime& moment) {
    return caption + QStringLiteral(" (") + formatDateTime(moment, QStringLiteral("dd-mm-yyyy hh:mm")) +
           QLatin1Char(')');
}

QImage loadReportLogo(const QString& appFolder) {
    const QString path = appFolder + QLatin1Char('/') + ReportPageText::LogoFile;
    return QFile::exists(path) ? QImage(path) : QImage();
}

PageDecor reportPageDecor(const QString& appFolder) {
    PageDecor decor;
    decor.moment = DateTime::now();
    decor.logo = loadReportLogo(appFolder);
    return decor;
}

QFont pageTitleFont() {
    QFont font(QStringLiteral("Times New Roman"));
    font.setStyleHint(QFont::Serif);
    font.setPointSizeF(TitlePoints);
    return unshaped(font);
}

QFont pageTableFont() {
    QFont font(brandFontFamily());
    font.setPointSizeF(TablePoints);
    return unshaped(font);
}

PageFrame pageFrameOf(const QPaintDevice& device) {
    return {QSizeF(device.width(), device.height()), device.logicalDpiY() / 72.0};
}

TextMeasure pageTextMeasure(const QPaintDevice& device) {
    const QFont regular = pageTableFont();
    QFont bold = regular;
    bold.setBold(true);
    auto metrics = std::make_shared<std::pair<QFontMetricsF, QFontMetricsF>>(QFontMetricsF(regular, &device),
                                                                             QFontMetricsF(bold, &device));
    TextMeasure measure;
    measure.lineHeight = metrics->first.height();
    measure.width = [metrics](const QString& text, bool isBold) {
        return (isBold ? metrics->second : metrics->first).horizontalAdvance(text);
    };
    return measure;
}

void setReportPageLayout(QPagedPaintDevice& device, const QPageSize& pageSize) {
    device.setPageLayout(QPageLayout(pageSize, QPageLayout::Landscape,
                                     QMarginsF(PageMarginMm, PageMarginMm, PageMarginMm, PageMarginMm),
                                     QPageLayout::Millimeter));
}

bool paintReportPages(QPagedPaintDevice& device, const Report& report, const PageDecor& decor,
                      QString* error) {
    const PagePlan plan = planReportPages(report, pageFrameOf(device), pageTextMeasure(device));
    QPainter painter;
    if (!painter.begin(&device)) {
        if (error)
            *error = QStringLiteral("the pages could not be started");
        return false;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    const bool painted = PagePainter(device, painter, report, decor).paint(plan, error);
    painter.end();
    return painted;
}

namespace {

// A PDF file written whole or not at all: `paint` fills the writer's pages.
bool writePdfFile(const QString& path, const QString& title, const PageDecor& decor, QString* error,
                  const std::function<bool(QPdfWriter&)>& paint) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        if (error)
            *error = file.errorString();
        return false;
    }
    {
        QPdfWriter writer(&file);
        writer.setTitle(title);
        writer.setCreator(QStringLiteral("Vantrel"));
        setReportPageLayout(writer, decor.pageSize);
        if (!paint(writer)) {
            file.cancelWriting();
            return false;
        }
    }
    if (!file.commit()) {
        if (error)
            *error = file.errorString();
        return false;
    }
    return true;
}

} // namespace

bool writeReportPdf(const Report& report, const QString& path, const PageDecor& decor, QString* error) {
    return writePdfFile(path, report.caption, decor, error,
                        [&](QPdfWriter& writer) { return paintReportPages(writer, report, decor, error); });
}

bool writeReportsPdf(std::span<const Report> reports, const QString& path, const PageDecor& decor,
                     QString* error) {
    return writePdfFile(path, QStringLiteral("Reports"), decor, error, [&](QPdfWriter& writer) {
        const PageFrame frame = pageFrameOf(writer);
        const TextMeasure measure = pageTextMeasure(writer);
        std::vector<PagePlan> plans;
        std::vector<int> firstPages;
        int pages = 1; // the contents
        for (const Report& report : reports) {
            plans.push_back(planReportPages(report, frame, measure));
            firstPages.push_back(pages + 1);
            pages += int(plans.back().pages.size());
        }
        QPainter painter;
        if (!painter.begin(&writer)) {
            if (error)
                *error = QStringLiteral("the pages could not be started");
            return false;
        }
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setRenderHint(QPainter::TextAntialiasing);
        // The contents: each report's title and the page it starts on.
        const QFont title = pageTitleFont();
        const QFont line = pageTableFont();
        const double titleHeight = QFontMetricsF(title, &writer).height();
        const double lineHeight = QFontMetricsF(line, &writer).height() * 1.4;
        painter.setFont(title);
        painter.drawText(QRectF(0, titleHeight, frame.size.width(), titleHeight), Qt::AlignLeft,
                         QStringLiteral("Contents"));
        painter.setFont(line);
        double y = titleHeight * 3;
        for (size_t i = 0; i < reports.size(); ++i, y += lineHeight) {
            const QRectF row(0, y, frame.size.width() * 0.7, lineHeight);
            painter.drawText(row, Qt::AlignLeft, QStringLiteral("%1. %2").arg(i + 1).arg(reports[i].caption));
            painter.drawText(row, Qt::AlignRight, QString::number(firstPages[i]));
        }
        bool painted = true;
        for (size_t i = 0; i < reports.size() && painted; ++i) {
            PageDecor numbered = decor;
            numbered.firstPageNumber = firstPages[i];
            numbered.pageCount = pages;
            painted =
                writer.newPage() && PagePainter(writer, painter, reports[i], numbered).paint(plans[i], error);
        }
        painter.end();
        return painted;
    });
}
