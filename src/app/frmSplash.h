#pragma once
// The window shown while the program starts: name, version and slogan on the brand
// backdrop. A click on it closes it at once.
#include <QWidget>

class QLabel;

class frmSplash : public QWidget {
    Q_OBJECT
public:
    explicit frmSplash(const QString& version, QWidget* parent = nullptr);

    QWidget* backdrop() const { return Picture1_; }
    // True until the splash was closed, by a click or by the start-up.
    bool isUp() const { return up_; }
    // Closes the splash and lets it go.
    void unload();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void placeControls();

    QWidget* Picture1_;
    QLabel* lblTitle_;
    QLabel* lblVersion_;
    QLabel* Picture3_;
    QLabel* lblSlogan_;
    QLabel* imgFooterLogo_;
    bool up_ = true;
};
