#pragma once
// The strip at the top of every form: a picture, the application's title, and a
// title with a line of detail.
#include <QWidget>

class QLabel;

class uctHeader : public QWidget {
    Q_OBJECT
public:
    // Banner: the application's title large beside the picture (the main menu).
    // Compact: a slimmer strip for the forms opened from the menu.
    enum class Type { Banner = 0, Compact = 1 };

    explicit uctHeader(QWidget* parent = nullptr);

    void SetPicture(const QPixmap& picture);
    Type HeaderType() const { return type_; }
    void setHeaderType(Type type);
    QString Title() const;
    // Writes both the title and the application's title.
    void setTitle(const QString& title);
    QString Detail() const;
    void setDetail(const QString& detail);
    // Lays the strip out again after a change.
    void Refresh();

    QLabel* titleLabel() const { return lblTitle_; }
    QLabel* appTitleLabel() const { return lblAppTitle_; }
    QLabel* detailLabel() const { return lblDetail_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Type type_ = Type::Banner;
    QLabel* picTitle_;
    QLabel* lblTitle_;
    QLabel* lblAppTitle_;
    QLabel* lblDetail_;
    QPixmap picture_;
};
