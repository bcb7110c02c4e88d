#pragma once
// The hint of the control under the pointer: it goes into the form's hint label
// while the pointer is over the control, and shows as a balloon (a tool tip whose
// first line, the control's caption, is bold) half a second after the pointer arrives.
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

class QLabel;
class QWidget;

class HoverHints : public QObject {
    Q_OBJECT
public:
    // hintLabel may be null and set later; its text at that moment is its resting text.
    explicit HoverHints(QLabel* hintLabel = nullptr, QObject* parent = nullptr);

    void setHintLabel(QLabel* hintLabel);
    QLabel* hintLabel() const { return label_; }

    // Gives the control its hint and balloon and watches the pointer over it. The
    // balloon's title is the control's caption (button or label text) unless given.
    void watch(QWidget* control, const QString& hint, const QString& title = QString());

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowHoverHint(QWidget* control);
    void HideHoverHint(QWidget* control);
    void showBalloon();

    QPointer<QLabel> label_;
    QString restingText_;
    QPointer<QWidget> current_;
    // The balloon waits a moment after the pointer arrives, and stays a few seconds.
    QTimer balloonDelay_;
};

// The hint a control was given; "" when none.
QString hintOf(const QWidget* control);
// The caption of a button or label, "" for other controls.
QString captionOf(const QWidget* control);
