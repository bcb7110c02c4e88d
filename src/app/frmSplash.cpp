#include "app/frmSplash.h"

#include "app/cColours.h"
#include "ui/Branding.h"
#include "ui/WindowIcon.h"

#include <QEvent>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QScreen>

namespace {

// The backdrop: the brand gradient with a soft band of lighter indigo.
class SplashBackdrop : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override {
        const cColours colours;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QLinearGradient back(0, 0, width(), height());
        back.setColorAt(0, qColor(colours.Indigo(5)));
        back.setColorAt(1, qColor(colours.Indigo(6)));
        painter.fillRect(rect(), back);
        // Two faint rising bars of a chart in the corner: the trend of a bill.
        painter.setPen(Qt::NoPen);
        QColor faint = qColor(colours.Indigo(4));
        faint.setAlpha(110);
        painter.setBrush(faint);
        const int base = height() - 46;
        for (int i = 0; i < 5; ++i) {
            const int h = 40 + i * 28;
            painter.drawRoundedRect(QRectF(width() - 230 + i * 40, base - h, 26, h), 4, 4);
        }
        painter.fillRect(QRect(0, height() - 46, width(), 46), qColor(colours.Indigo(6)));
        painter.fillRect(QRect(0, height() - 49, width(), 3), qColor(colours.CoreColour_Coral()));
    }
};

void paintLabel(QLabel* label, const QColor& colour, int pointSize, QFont::Weight weight) {
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, colour);
    label->setPalette(palette);
    QFont font(brandFontFamily());
    font.setPointSize(pointSize);
    font.setWeight(weight);
    label->setFont(font);
    label->adjustSize();
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
}

} // namespace

frmSplash::frmSplash(const QString& version, QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint)
    , Picture1_(new SplashBackdrop(this))
    , lblTitle_(new QLabel(QStringLiteral("Vantrel"), Picture1_))
    , lblVersion_(new QLabel(QStringLiteral("Version: ") + version, Picture1_))
    , Picture3_(new QLabel(Picture1_))
    , lblSlogan_(new QLabel(QStringLiteral("Bringing it all together"), Picture1_))
    , imgFooterLogo_(new QLabel(Picture1_)) {
    setObjectName(QStringLiteral("frmSplash"));
    Picture1_->setObjectName(QStringLiteral("Picture1"));
    lblTitle_->setObjectName(QStringLiteral("lblTitle"));
    lblVersion_->setObjectName(QStringLiteral("lblVersion"));
    Picture3_->setObjectName(QStringLiteral("Picture3"));
    lblSlogan_->setObjectName(QStringLiteral("lblSlogan"));
    imgFooterLogo_->setObjectName(QStringLiteral("imgFooterLogo"));
    setWindowTitle(QStringLiteral("Vantrel"));
    SetIcon(this);
    ApplyBrandFont(this);

    const cColours colours;
    paintLabel(lblTitle_, Qt::white, 40, QFont::DemiBold);
    paintLabel(lblSlogan_, qColor(colours.Indigo(2)), 15, QFont::Normal);
    paintLabel(lblVersion_, qColor(colours.Indigo(2)), 10, QFont::Normal);

    const QIcon icon = resourceIcon(QStringLiteral("AAB"));
    const qreal ratio = devicePixelRatioF();
    QPixmap picture = icon.pixmap(QSize(96, 96) * ratio);
    picture.setDevicePixelRatio(ratio);
    Picture3_->setPixmap(picture);
    Picture3_->setFixedSize(96, 96);
    Picture3_->setAttribute(Qt::WA_TransparentForMouseEvents);
    QPixmap logo = icon.pixmap(QSize(28, 28) * ratio);
    logo.setDevicePixelRatio(ratio);
    imgFooterLogo_->setPixmap(logo);
    imgFooterLogo_->setFixedSize(28, 28);
    imgFooterLogo_->setAttribute(Qt::WA_TransparentForMouseEvents);

    Picture1_->installEventFilter(this);
    resize(600, 340);
    if (QScreen* screen = this->screen())
        move(screen->availableGeometry().center() - rect().center());
}

void frmSplash::unload() {
    up_ = false;
    hide();
    deleteLater();
}

bool frmSplash::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Picture1_ && event->type() == QEvent::MouseButtonRelease) {
        unload();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void frmSplash::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placeControls();
}

void frmSplash::placeControls() {
    Picture1_->setGeometry(rect());
    const int left = 48;
    Picture3_->move(left, 64);
    const int textLeft = left + Picture3_->width() + 24;
    lblTitle_->move(textLeft, 64 + (Picture3_->height() - lblTitle_->height() - lblSlogan_->height()) / 2);
    lblSlogan_->move(textLeft + 2, lblTitle_->y() + lblTitle_->height());
    const int footerMiddle = height() - 23;
    imgFooterLogo_->move(left, footerMiddle - imgFooterLogo_->height() / 2);
    lblVersion_->move(width() - left - lblVersion_->width(), footerMiddle - lblVersion_->height() / 2);
}
