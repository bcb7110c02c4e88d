#pragma once
// The trend entries of the selected project's account: lists them with their totals,
// creates one from a bill project and deletes one or all of them.
#include "app/Date.h"

#include <QDialog>

class HoverHints;
class QLabel;
class QPushButton;
class QTreeWidget;
class uctFooter;
class uctHeader;
class ucProjectSelector;
struct AppContext;

class frmTrendManagement : public QDialog {
    Q_OBJECT
public:
    explicit frmTrendManagement(AppContext& ctx, QWidget* parent = nullptr);

    // Reloads the list for the selected account; no entry is selected afterwards.
    void FillTrendList();

    // The bill date of the entry clicked last; null when none since the last refill.
    const Date& selectedBillDate() const { return selectedBillDate_; }

    ucProjectSelector* projectSelector() const { return ucProject_; }
    QTreeWidget* trendList() const { return lstTrend_; }
    QLabel* hintLabel() const { return lblHelp_; }
    uctHeader* header() const { return header_; }
    uctFooter* footer() const { return footer_; }

public slots:
    void cmdCreate_Click();
    void cmdDelete_Click();
    void cmdDeleteAll_Click();
    void cmdExit_Click();
    void cmdHelp_Click();
    // The selected project changed: the actions follow whether it may feed trends.
    void ucProject_ProjectChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void layOut();
    void watchHints();
    // Fills the list; a store error goes to the caller.
    void fillList();
    void enableActions();
    void takeClickedEntry();

    AppContext& ctx_;
    uctHeader* header_;
    uctFooter* footer_;
    HoverHints* hints_;
    ucProjectSelector* ucProject_;
    QLabel* lblProject_;
    QLabel* lblNotes_;
    QLabel* lblHelp_;
    QTreeWidget* lstTrend_;
    QPushButton* cmdCreate_;
    QPushButton* cmdDelete_;
    QPushButton* cmdDeleteAll_;
    QPushButton* cmdExit_;
    QPushButton* cmdHelp_;
    Date selectedBillDate_;
};
