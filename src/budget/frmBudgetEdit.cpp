#include "budget/frmBudgetEdit.h"
#include "ui/FormFrame.h"

#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/ErrorLog.h"
#include "app/HelpTopics.h"
#include "budget/BudgetCellText.h"
#include "budget/BudgetGridModel.h"
#include "budget/BudgetStatus.h"
#include "budget/frmBudgetAddMaster.h"
#include "ui/Branding.h"
#include "ui/ClickableLabel.h"
#include "ui/ControlColours.h"
#include "ui/HelpWindow.h"
#include "ui/HoverHints.h"
#include "ui/WindowIcon.h"
#include "ui/uctFooter.h"
#include "ui/uctHeader.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>
#include <QValueAxis>
#include <cmath>

namespace {

constexpr int LabelColumnWidth = 112;
constexpr int PeriodColumnWidth = 92;

// Applies the typing rules of a figure to its editor: only digits, one point and the
// editing keys are typed; "-" turns the sign round.
class FigureKeyFilter : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* edit = qobject_cast<QLineEdit*>(watched);
        if (!edit || event->type() != QEvent::KeyPress)
            return QObject::eventFilter(watched, event);
        const QString typed = static_cast<QKeyEvent*>(event)->text();
        if (typed.isEmpty())
            return false; // movement keys carry no character
        QString remaining = edit->text();
        if (edit->hasSelectedText())
            remaining.remove(edit->selectionStart(), edit->selectedText().size());
        switch (budgetCellKey(remaining, typed.front())) {
        case BudgetCellKey::Accept:
            return false;
        case BudgetCellKey::Drop:
            return true;
        case BudgetCellKey::ToggleMinus: {
            const QString before = edit->text();
            const int cursor = edit->cursorPosition();
            const QString after = toggleLeadingMinus(before);
            edit->setText(after);
            edit->setCursorPosition(qBound(0, cursor + int(after.size() - before.size()), int(after.size())));
            return true;
        }
        }
        return false;
    }
};

class FigureDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override {
        QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
        if (auto* edit = qobject_cast<QLineEdit*>(editor)) {
            edit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            edit->installEventFilter(new FigureKeyFilter(edit));
        }
        return editor;
    }
};

} // namespace

frmBudgetEdit::frmBudgetEdit(AppContext& ctx, QWidget* parent)
    : QDialog(parent)
    , ctx_(ctx)
    , header_(new uctHeader(this))
    , footer_(new uctFooter(this))
    , hints_(nullptr)
    , lblHint_(new QLabel(this))
    , txtTitle_(new QLineEdit(this))
    , grdBudget_(new QTableView(this))
    , model_(new BudgetGridModel(this))
    , chtBudget_(new QChartView(this))
    , lblSave_(new ClickableLabel(QStringLiteral("Save Changes"), this))
    , lblCancel_(new ClickableLabel(QStringLiteral("Cancel Changes"), this))
    , lblEdit_(new ClickableLabel(QStringLiteral("Edit Dates"), this)) {
    setObjectName(QStringLiteral("frmBudgetEdit"));
    setWindowTitle(QStringLiteral("Edit Dates"));
    SetIcon(this);
    header_->setObjectName(QStringLiteral("uctHeader1"));
    footer_->setObjectName(QStringLiteral("uctFooter1"));
    lblHint_->setObjectName(QStringLiteral("lblHint"));
    txtTitle_->setObjectName(QStringLiteral("txtTitle"));
    grdBudget_->setObjectName(QStringLiteral("grdBudget"));
    chtBudget_->setObjectName(QStringLiteral("chtBudget"));
    lblSave_->setObjectName(QStringLiteral("lblSave"));
    lblCancel_->setObjectName(QStringLiteral("lblCancel"));
    lblEdit_->setObjectName(QStringLiteral("lblEdit"));

    header_->setHeaderType(uctHeader::Type::Compact);
    header_->setTitle(QStringLiteral("Vantrel"));
    header_->setDetail(QStringLiteral("Budget figures"));
    header_->Refresh();

    footer_->setHintLabel(lblHint_);
    footer_->RegisterButton(lblSave_);
    footer_->RegisterButton(lblCancel_);
    footer_->RegisterButton(lblEdit_);
    footer_->setExitButtonText(QStringLiteral("Back"));
    footer_->setExitToolTipText(QStringLiteral("Back"));
    hints_ = footer_->hints();
    hints_->watch(lblSave_, QStringLiteral("Save changes"));
    hints_->watch(lblCancel_, QStringLiteral("Revert to previously saved changes"));
    hints_->watch(lblEdit_, QStringLiteral("Save changes"));
    connect(lblSave_, &ClickableLabel::clicked, this, &frmBudgetEdit::cmdSave_Click);
    connect(lblCancel_, &ClickableLabel::clicked, this, &frmBudgetEdit::cmdCancel_Click);
    connect(lblEdit_, &ClickableLabel::clicked, this, &frmBudgetEdit::cmdDates_Click);
    connect(footer_, &uctFooter::ButtonClicked, this, [this](int value) {
        if (value == uctFooter::ExitButton)
            cmdExit_Click();
    });
    connect(footer_, &uctFooter::HelpClicked, this, &frmBudgetEdit::cmdHelp_Click);

    txtTitle_->setReadOnly(true);
    txtTitle_->setFocusPolicy(Qt::NoFocus);
    QFont titleFont = txtTitle_->font();
    titleFont.setPointSize(titleFont.pointSize() + 2);
    titleFont.setBold(true);
    txtTitle_->setFont(titleFont);

    grdBudget_->setModel(model_);
    grdBudget_->setItemDelegate(new FigureDelegate(grdBudget_));
    grdBudget_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                                QAbstractItemView::AnyKeyPressed | QAbstractItemView::SelectedClicked);
    grdBudget_->setSelectionMode(QAbstractItemView::SingleSelection);
    grdBudget_->setSelectionBehavior(QAbstractItemView::SelectItems);
    grdBudget_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    grdBudget_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grdBudget_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    grdBudget_->verticalHeader()->setDefaultSectionSize(30);
    grdBudget_->verticalHeader()->setFixedWidth(14);
    grdBudget_->horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    grdBudget_->horizontalHeader()->setHighlightSections(false);
    grdBudget_->setWordWrap(false);
    SetTDBGrid(ctx_.colours, grdBudget_);
    connect(model_, &BudgetGridModel::figureChanged, this, &frmBudgetEdit::figureEdited);
    // Moving to another row redraws too, as the grid always did.
    connect(grdBudget_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { SetupChart(); });

    auto* chart = new QChart;
    chart->setAnimationOptions(QChart::NoAnimation);
    chart->legend()->setAlignment(Qt::AlignBottom);
    chart->setBackgroundRoundness(0);
    chart->setMargins(QMargins(6, 6, 6, 6));
    chtBudget_->setChart(chart);
    chtBudget_->setRenderHint(QPainter::Antialiasing);
    chtBudget_->setMinimumHeight(280);

    auto* body = new QVBoxLayout;
    body->setContentsMargins(20, 14, 20, 14);
    body->setSpacing(10);
    body->addWidget(txtTitle_);
    body->addWidget(grdBudget_);
    body->addWidget(chtBudget_, 1);

    layOutFormPage(this, header_, body, footer_);

    ApplyBrandFont(this);
    resize(LabelColumnWidth + 12 * PeriodColumnWidth + 60, 700);
}

int frmBudgetEdit::periodCount() const {
    return model_->periodCount();
}

QChart* frmBudgetEdit::chart() const {
    return chtBudget_->chart();
}

void frmBudgetEdit::Setup(int budgetId) {
    const BudgetGrid grid = loadBudgetGrid(ctx_.budgetDb, budgetId);
    budgetId_ = budgetId;
    txtTitle_->setText(budgetGridTitle(grid));
    txtTitle_->setCursorPosition(0);
    // Only a master's dates can be edited.
    lblEdit_->setVisible(grid.isMaster());

    model_->setGrid(grid);
    QHeaderView* columns = grdBudget_->horizontalHeader();
    columns->setSectionResizeMode(BudgetGridModel::LabelColumn, QHeaderView::Fixed);
    grdBudget_->setColumnWidth(BudgetGridModel::LabelColumn, LabelColumnWidth);
    for (int n = 1; n <= BudgetGrid::MaxPeriods; ++n) {
        const int column = BudgetGridModel::columnOfPeriod(n);
        const bool used = n <= model_->periodCount();
        grdBudget_->setColumnHidden(column, !used);
        columns->setSectionResizeMode(column, used ? QHeaderView::Interactive : QHeaderView::Fixed);
        if (used)
            grdBudget_->setColumnWidth(column, PeriodColumnWidth);
    }
    sizeGridToRows();
    SetupChart();
    loaded_ = true;
    changed_ = false;
}

void frmBudgetEdit::sizeGridToRows() {
    QHeaderView* columns = grdBudget_->horizontalHeader();
    int height = columns->sizeHint().height() + 2 * grdBudget_->frameWidth();
    for (int row = 0; row < model_->rowCount(); ++row)
        height += grdBudget_->rowHeight(row);
    int width = 0;
    for (int column = 0; column < model_->columnCount(); ++column)
        if (!grdBudget_->isColumnHidden(column))
            width += grdBudget_->columnWidth(column);
    width += grdBudget_->verticalHeader()->width() + 2 * grdBudget_->frameWidth();
    // Room for a scroll bar when the window is narrower than the grid.
    if (grdBudget_->width() > 0 && width > grdBudget_->width())
        height += grdBudget_->horizontalScrollBar()->sizeHint().height();
    grdBudget_->setFixedHeight(height);
}

void frmBudgetEdit::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    sizeGridToRows();
}

void frmBudgetEdit::SetupChart() {
    QChart* chart = chtBudget_->chart();
    chart->removeAllSeries();
    for (QAbstractAxis* axis : chart->axes())
        chart->removeAxis(axis);

    const BudgetGrid& grid = model_->grid();
    const int periods = model_->periodCount();
    auto* series = new QBarSeries;
    double low = 0;
    double high = 0;
    for (const BudgetCostTypeInfo& type : budgetCostTypes()) {
        auto* set = new QBarSet(type.label);
        const QColor colour = qColor(ctx_.colours.Colour(type.colourIndex));
        set->setColor(colour);
        set->setBorderColor(colour);
        for (int p = 0; p < periods; ++p) {
            const double value = grid.amount(type.type, p).toDouble();
            set->append(value);
            low = std::min(low, value);
            high = std::max(high, value);
        }
        series->append(set);
    }
    chart->addSeries(series);

    QStringList labels;
    for (int n = 1; n <= periods; ++n)
        labels << QStringLiteral("p%1").arg(n);
    auto* categories = new QBarCategoryAxis;
    categories->append(labels);
    chart->addAxis(categories, Qt::AlignBottom);
    series->attachAxis(categories);

    auto* values = new QValueAxis;
    values->setRange(low, high > low ? high : low + 1);
    values->applyNiceNumbers();
    // The label format goes through printf, which cannot write the pound sign: the title says it.
    values->setLabelFormat(QStringLiteral("%.0f"));
    values->setTitleText(QStringLiteral("£"));
    chart->addAxis(values, Qt::AlignLeft);
    series->attachAxis(values);
}

void frmBudgetEdit::figureEdited() {
    changed_ = true;
    SetupChart();
}

void frmBudgetEdit::cmdSave_Click() {
    commitPendingFigure();
    try {
        saveBudgetGrid(ctx_.budgetDb, model_->grid());
        Setup(budgetId_);
    } catch (const std::exception& e) {
        if (ctx_.paths)
            LogError(*ctx_.paths, QStringLiteral("frmBudgetEdit.cmdSave_Click"), 0,
                     QString::fromUtf8(e.what()));
        ctx_.dialogs.critical(QStringLiteral("The budget could not be saved: ") +
                              QString::fromUtf8(e.what()));
        return;
    }
    ctx_.dialogs.information(BudgetText::BudgetSaved);
}

void frmBudgetEdit::commitPendingFigure() {
    // A figure still being typed counts as entered.
    QWidget* editor = grdBudget_->indexWidget(grdBudget_->currentIndex());
    if (!editor)
        return;
    QAbstractItemDelegate* delegate = grdBudget_->itemDelegate();
    emit delegate->commitData(editor);
    emit delegate->closeEditor(editor, QAbstractItemDelegate::NoHint);
}

bool frmBudgetEdit::mayLoseChanges() {
    commitPendingFigure();
    return !changed_ || ctx_.dialogs.question(BudgetText::LoseChanges) == Answer::Yes;
}

void frmBudgetEdit::cmdCancel_Click() {
    commitPendingFigure();
    if (changed_ && ctx_.dialogs.question(BudgetText::LoseChanges) == Answer::Yes)
        Setup(budgetId_);
}

void frmBudgetEdit::cmdDates_Click() {
    // Unsaved figures are lost here without a question: the dates form works on the store.
    {
        frmBudgetAddMaster dates(ctx_, this);
        dates.SetupForEdit(budgetId_);
        dates.exec();
    }
    Setup(budgetId_);
}

void frmBudgetEdit::cmdExit_Click() {
    reject();
}

void frmBudgetEdit::reject() {
    if (mayLoseChanges())
        QDialog::reject();
}

void frmBudgetEdit::cmdHelp_Click() {
    ShowHelp(ctx_, HelpTopic::BudgetForms);
}
