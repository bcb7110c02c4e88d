#pragma once
// The strip at the foot of every form: the form's hint line and report details on
// the left, its buttons on the right. Labels given to it become buttons in the brand
// colour; it has its own exit and help buttons.
#include <QList>
#include <QWidget>

class ClickableLabel;
class HoverHints;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QVBoxLayout;

class uctFooter : public QWidget {
    Q_OBJECT
public:
    // The value of ButtonClicked that forms treat as their exit.
    static constexpr int ExitButton = 1;

    explicit uctFooter(QWidget* parent = nullptr);

    bool ExitButtonVisible() const;
    void setExitButtonVisible(bool visible);
    // The width the buttons take, for the form's layout.
    int ButtonPanelWidth() const;
    void setDetailVisible(bool visible);
    // Both empty hides the invoice and tax-point labels; otherwise they show the texts
    // and the free detail lines are hidden.
    void SetReportDetails(const QString& invoiceText, const QString& taxPointText);
    void Refresh();
    bool HelpVisible() const;
    void setHelpVisible(bool visible);
    // Fits every button to its caption.
    void CheckButtonWidth();

    // Makes the control one of the strip's buttons: it moves into the button row and
    // takes the brand colour with white text and the brand font.
    void RegisterButton(QWidget* control);
    int registeredCount() const { return int(registered_.size()); }
    QWidget* registeredButton(int index) const { return registered_.value(index); }

    // The free detail lines.
    void AddDetail(const QString& text);
    int DetailCount() const { return int(detailLines_.size()); }
    void ClearDetails();
    // Hides the report details and removes the free lines.
    void RemoveDetails();

    QString ExitToolTipText() const;
    void setExitToolTipText(const QString& hint);
    bool ExitEnabled() const;
    void setExitEnabled(bool enabled);
    QString ExitButtonText() const;
    void setExitButtonText(const QString& text);

    // Enables or disables every registered button.
    void EnableButtons(bool enabled);

    // The form's hint line: it moves into the strip and shows the hints of the
    // strip's own buttons too.
    void setHintLabel(QLabel* hintLabel);
    HoverHints* hints() const { return hints_; }

    QLabel* invoiceTitleLabel() const { return lblInvoiceTitle_; }
    QLabel* invoiceTextLabel() const { return lblInvoiceText_; }
    QLabel* taxPointTitleLabel() const { return lblTaxPointTitle_; }
    QLabel* taxPointTextLabel() const { return lblTaxPointText_; }
    QLabel* detailLine(int index) const { return detailLines_.value(index); }
    ClickableLabel* exitButton() const { return lblExit_; }
    ClickableLabel* helpButton() const { return buttonHelp_; }

signals:
    void ButtonClicked(int value);
    void HelpClicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void styleButton(QWidget* button, bool primary, bool hovered);

    HoverHints* hints_;
    QVBoxLayout* left_;
    QWidget* details_;
    QGridLayout* detailGrid_;
    QHBoxLayout* buttonRow_;
    ClickableLabel* lblExit_;
    ClickableLabel* buttonHelp_;
    QLabel* lblInvoiceTitle_;
    QLabel* lblInvoiceText_;
    QLabel* lblTaxPointTitle_;
    QLabel* lblTaxPointText_;
    QList<QLabel*> detailLines_;
    QList<QWidget*> registered_;
    bool detailVisible_ = true;
};
