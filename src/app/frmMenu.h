#pragma once
// The main window: the selected project, the trend and budget buttons, help and exit.
#include <QWidget>
#include <functional>

class HoverHints;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class uctFooter;
class uctHeader;
struct AppContext;

class frmMenu : public QWidget {
    Q_OBJECT
public:
    enum class Opener { TrendManagement, TrendReports, BudgetManagement, BudgetReports };

    explicit frmMenu(AppContext& ctx, QWidget* parent = nullptr);

    // Plugs in the form a button opens (it shows the form modally and returns when the
    // form closes). A button without one stays disabled.
    void setOpener(Opener which, std::function<void()> open);
    bool hasOpener(Opener which) const;
    QPushButton* button(Opener which) const;

    // Puts the project selector in its place beside "Selected Project". cancel closes
    // its drop-down, refresh re-reads the selection after a form was closed. Connect the
    // selector's project change to projectChanged().
    void setProjectSelector(QWidget* selector, std::function<void()> cancel, std::function<void()> refresh);
    QWidget* projectSelectorPlace() const { return projectPlace_; }

    // What the pointer is over goes here; a click on it opens help.
    QLabel* hintLabel() const { return lblHelp_; }
    uctHeader* header() const { return header_; }
    uctFooter* footer() const { return footer_; }

public slots:
    // The selected project changed: the trend buttons follow whether it may feed trends.
    void projectChanged();
    void cmdHelp_Click();
    void cmdExit_Click();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    struct Slot {
        QPushButton* button = nullptr;
        std::function<void()> open;
    };
    Slot& slot(Opener which);
    const Slot& slot(Opener which) const;
    void open(Opener which);
    void updateButtons();
    void cancelSelector();

    AppContext& ctx_;
    uctHeader* header_;
    uctFooter* footer_;
    HoverHints* hints_;
    QLabel* lblProject_;
    QWidget* projectPlace_;
    QGroupBox* frameTrend_;
    QGroupBox* frameBudget_;
    QPushButton* cmdHelp_;
    QPushButton* cmdExit_;
    QLabel* lblHelp_;
    QLabel* lblVersion_;
    Slot slots_[4];
    std::function<void()> selectorCancel_;
    std::function<void()> selectorRefresh_;
    bool closingThroughShutDown_ = false;
};
