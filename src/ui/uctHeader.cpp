#include "ui/uctHeader.h"

#include "app/cColours.h"
#include "ui/Branding.h"
#include "ui/WindowIcon.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QVBoxLayout>

namespace {

// Room kept beside the detail text, as the strip always had.
constexpr int DetailMargin = 33;

QFont headerFont(int pointSize, QFont::Weight weight) {
    QFont font(brandFontFamily());
    font.setPointSize(pointSize);
    font.setWeight(weight);
    return font;
}

void paintText(QLabel* label, const QColor& colour) {
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, colour);
    label->setPalette(palette);
}

} // namespace

uctHeader::uctHeader(QWidget* parent)
    : QWidget(parent)
    , picTitle_(new QLabel(this))
    , lblTitle_(new QLabel(this))
    , lblAppTitle_(new QLabel(this))
    , lblDetail_(new QLabel(this)) {
    setObjectName(QStringLiteral("uctHeader"));
    picTitle_->setObjectName(QStringLiteral("picTitle"));
    lblTitle_->setObjectName(QStringLiteral("lblTitle"));
    lblAppTitle_->setObjectName(QStringLiteral("lblAppTitle"));
    lblDetail_->setObjectName(QStringLiteral("lblDetail"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    const cColours colours;
    paintText(lblTitle_, Qt::white);
    paintText(lblAppTitle_, Qt::white);
    paintText(lblDetail_, qColor(colours.Indigo(2)));
    lblDetail_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addStretch(1);
    texts->addWidget(lblAppTitle_);
    texts->addWidget(lblTitle_);
    texts->addStretch(1);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(20, 10, 20, 10);
    row->setSpacing(14);
    row->addWidget(picTitle_, 0, Qt::AlignVCenter);
    row->addLayout(texts, 0);
    row->addStretch(1);
    row->addWidget(lblDetail_, 0, Qt::AlignVCenter);
    row->addSpacing(DetailMargin);

    picture_ = resourceIcon(QStringLiteral("AAB")).pixmap(256, 256);
    Refresh();
}

void uctHeader::SetPicture(const QPixmap& picture) {
    picture_ = picture;
    Refresh();
}

void uctHeader::setHeaderType(Type type) {
    type_ = type;
    Refresh();
}

QString uctHeader::Title() const {
    return lblTitle_->text();
}

void uctHeader::setTitle(const QString& title) {
    lblTitle_->setText(title);
    lblAppTitle_->setText(title);
}

QString uctHeader::Detail() const {
    return lblDetail_->text();
}

void uctHeader::setDetail(const QString& detail) {
    lblDetail_->setText(detail);
    lblDetail_->setVisible(!detail.isEmpty());
}

void uctHeader::Refresh() {
    const bool banner = type_ == Type::Banner;
    const int pictureSize = banner ? 52 : 34;
    const qreal ratio = devicePixelRatioF();
    QPixmap scaled = picture_.isNull() ? QPixmap()
                                       : picture_.scaled(QSize(pictureSize, pictureSize) * ratio,
                                                         Qt::KeepAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(ratio);
    picTitle_->setPixmap(scaled);
    picTitle_->setFixedSize(pictureSize, pictureSize);
    picTitle_->setVisible(!picture_.isNull());

    lblAppTitle_->setFont(headerFont(banner ? 24 : 16, QFont::DemiBold));
    lblTitle_->setFont(headerFont(16, QFont::DemiBold));
    lblDetail_->setFont(headerFont(10, QFont::Normal));
    // Both labels hold the same title; the type chooses which one is seen.
    lblAppTitle_->setVisible(banner);
    lblTitle_->setVisible(!banner);
    lblDetail_->setVisible(!lblDetail_->text().isEmpty());
    setFixedHeight(banner ? 84 : 58);
    update();
}

void uctHeader::paintEvent(QPaintEvent*) {
    const cColours colours;
    QPainter painter(this);
    QLinearGradient band(0, 0, width(), 0);
    band.setColorAt(0, qColor(colours.Indigo(5)));
    band.setColorAt(1, qColor(colours.Indigo(6)));
    painter.fillRect(rect(), band);
    // A thin coral rule under the strip, the brand's second colour.
    painter.fillRect(QRect(0, height() - 3, width(), 3), qColor(colours.CoreColour_Coral()));
}
