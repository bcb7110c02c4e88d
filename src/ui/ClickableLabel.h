#pragma once
// A label that acts as a button: the strips use such labels for their buttons. It
// answers the mouse and, when it has the focus, the space and return keys.
#include <QLabel>

class ClickableLabel : public QLabel {
    Q_OBJECT
public:
    explicit ClickableLabel(const QString& text = QString(), QWidget* parent = nullptr);

signals:
    void clicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool pressed_ = false;
};
