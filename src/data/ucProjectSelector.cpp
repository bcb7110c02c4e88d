#include "data/ucProjectSelector.h"

#include "app/AppContext.h"
#include "app/DialogService.h"
#include "data/ProjectHistory.h"
#include "data/ProjectSelection.h"
#include "ui/ProgressDialog.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <algorithm>

namespace {

const QString MoreProjects = QStringLiteral("More projects....");
const QString SelectCaption = QStringLiteral("Select");
const QString CancelCaption = QStringLiteral("Cancel");
// Room before the text of a line.
constexpr int LinePadding = 5;

QString fileNameOf(const QString& path) {
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

} // namespace

ucProjectSelector::ucProjectSelector(AppContext& ctx, QWidget* parent)
    : QWidget(parent)
    , ctx_(ctx)
    , txtProject_(new QLineEdit(this))
    , cmdBrowse_(new QPushButton(SelectCaption, this))
    , lstProjects_(new QListWidget(this)) {
    setObjectName(QStringLiteral("ucProject"));
    txtProject_->setObjectName(QStringLiteral("txtProject"));
    cmdBrowse_->setObjectName(QStringLiteral("cmdBrowse"));
    lstProjects_->setObjectName(QStringLiteral("lstProjects"));

    txtProject_->setReadOnly(true);
    txtProject_->setText(SelectionText::PleaseSelect);
    txtProject_->installEventFilter(this);
    cmdBrowse_->setCursor(Qt::PointingHandCursor);
    // Wide enough for either caption, so the box does not move when it changes.
    cmdBrowse_->setFixedWidth(std::max(cmdBrowse_->sizeHint().width(), 90));

    lstProjects_->setUniformItemSizes(true);
    lstProjects_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstProjects_->setFrameShape(QFrame::Box);
    // It hangs over other controls: a frame in the brand colour sets it apart from them.
    lstProjects_->setStyleSheet(
        QStringLiteral(
            "QListWidget#lstProjects { border: 1px solid %1; padding-left: %2px; background-color: white; }")
            .arg(qColor(ctx_.colours.Indigo(3)).name())
            .arg(LinePadding));
    lstProjects_->hide();

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    row->addWidget(txtProject_, 1);
    row->addWidget(cmdBrowse_);

    connect(cmdBrowse_, &QPushButton::clicked, this, &ucProjectSelector::cmdBrowse_Click);
    connect(lstProjects_, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { lstProjects_Click(lstProjects_->row(item)); });
}

ucProjectSelector::~ucProjectSelector() {
    // The drop-down stands in the window, over the other controls, not in this widget.
    if (lstProjects_ && lstProjects_->parent() != this)
        delete lstProjects_.data();
}

bool ucProjectSelector::SelectProject(const QString& path) {
    bool ok = false;
    {
        // Only an Access project reports while it is read, and only a large one lasts long
        // enough for the window to show.
        ProgressDialog reading(window(), QStringLiteral("Reading the project..."));
        ok = ::SelectProject(ctx_, path, reading.fn());
    }
    txtProject_->setText(ok && !ctx_.projectPath.isEmpty() ? fileNameOf(ctx_.projectPath)
                                                           : SelectionText::PleaseSelect);
    txtProject_->setCursorPosition(0);
    emit ProjectChanged(ctx_.projectPath);
    return ok;
}

void ucProjectSelector::Refresh() {
    const QString current = ctx_.projectPath;
    SelectProject(current);
}

void ucProjectSelector::Cancel() {
    if (!isDroppedDown())
        return;
    closeList();
    QCoreApplication::processEvents();
}

QListWidget* ucProjectSelector::projectList() const {
    return lstProjects_;
}

bool ucProjectSelector::isDroppedDown() const {
    return lstProjects_->isVisibleTo(lstProjects_->parentWidget());
}

void ucProjectSelector::cmdBrowse_Click() {
    if (isDroppedDown())
        closeList();
    else
        dropDown();
}

void ucProjectSelector::lstProjects_Click(int line) {
    if (line < 0)
        return;
    QString candidate;
    if (line == 0) {
        candidate = ctx_.dialogs.openFile(QStringLiteral("Select a project"),
                                          QStringLiteral("Project file (*.mdb)|*.mdb"),
                                          ctx_.paths ? ctx_.paths->ProjectFolder : QString());
        if (candidate.isEmpty()) {
            closeList();
            return;
        }
    } else {
        candidate = history_.value(line - 1);
    }
    if (!ProjectExists(candidate)) {
        ctx_.dialogs.message(SelectionText::DoesNotExist, MessageIcon::None);
        return;
    }
    SelectProject(candidate);
    closeList();
}

void ucProjectSelector::FillProjectList() {
    history_ = ctx_.paths ? LoadHistory(ctx_.paths->AppFolder) : QStringList();
    lstProjects_->clear();
    lstProjects_->addItem(MoreProjects);
    const QFontMetrics metrics(lstProjects_->font());
    const int room = lstProjects_->width() - 2 * lstProjects_->frameWidth() - LinePadding;
    const auto fits = [&](const QString& text) {
        return metrics.horizontalAdvance(text + QStringLiteral("WW")) <= room;
    };
    for (const QString& path : std::as_const(history_)) {
        auto* item = new QListWidgetItem(shortenPath(path, fits), lstProjects_);
        item->setToolTip(path);
    }
    for (int i = 0; i < lstProjects_->count(); ++i)
        lstProjects_->item(i)->setSizeHint(QSize(room, lineHeight()));
}

void ucProjectSelector::dropDown() {
    // Over the window, so that it can hang below the box across the other controls.
    QWidget* host = window();
    if (host != this && lstProjects_->parentWidget() != host)
        lstProjects_->setParent(host);
    // Placed first, since the paths are shortened to the list's width; the lines then
    // give its height.
    placeList();
    FillProjectList();
    lstProjects_->show();
    lstProjects_->raise();
    placeList();
    cmdBrowse_->setText(CancelCaption);
    emit DropDownChanged(false);
}

void ucProjectSelector::closeList() {
    emit DropDownChanged(true);
    lstProjects_->hide();
    cmdBrowse_->setText(SelectCaption);
}

int ucProjectSelector::lineHeight() const {
    lstProjects_->ensurePolished();
    return lstProjects_->fontMetrics().height() + 6;
}

void ucProjectSelector::placeList() {
    QWidget* host = lstProjects_->parentWidget();
    const QPoint below = host == this ? QPoint(0, height()) : mapTo(host, QPoint(0, height() + 2));
    const int line = std::max(lstProjects_->sizeHintForRow(0), lineHeight());
    lstProjects_->setGeometry(below.x(), below.y(), width(),
                              line * ListLines + 2 * lstProjects_->frameWidth());
}

bool ucProjectSelector::eventFilter(QObject* watched, QEvent* event) {
    // No text can be typed: the focus moves on to the button.
    if (watched == txtProject_ && event->type() == QEvent::FocusIn) {
        cmdBrowse_->setFocus(Qt::OtherFocusReason);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void ucProjectSelector::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (isDroppedDown())
        placeList();
}
