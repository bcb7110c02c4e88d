#pragma once
// A scrolling surface on which a report places its charts and labels. The area measures
// the extent of what it holds and offers scroll bars for whatever lies beyond its view.
#include <QList>
#include <QScrollArea>

class ucReportArea : public QScrollArea {
    Q_OBJECT
public:
    explicit ucReportArea(QWidget* parent = nullptr);

    // Places a control on the surface at a position in the surface's pixels. The area
    // owns it from then on.
    void addControl(QWidget* control, const QRect& geometry);
    // Removes and deletes every control.
    void clearControls();
    QList<QWidget*> controls() const;
    QWidget* surface() const { return surface_; }

    QColor BackColor() const;
    void setBackColor(const QColor& colour);
    // Whether the horizontal or vertical scroll bar may appear at all.
    bool ScrollBarH() const { return scrollH_; }
    void setScrollBarH(bool allowed);
    bool ScrollBarV() const { return scrollV_; }
    void setScrollBarV(bool allowed);
    int ScrollBarWidth() const { return scrollBarWidth_; }
    void setScrollBarWidth(int pixels);

    // Measures the shown controls and sizes the surface, and so the scroll bars, to
    // them. Controls that stick out above or left of the margin are shifted back in.
    void RecalculateBoundries();
    // The rectangle that the shown controls cover, in the surface's pixels.
    QRect extent() const;

    // Room kept around the contents.
    static constexpr int Margin = 12;

signals:
    // The visible part of the area changed its size: a report may lay itself out again.
    void viewResized(const QSize& size);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void shiftContents(int dx, int dy);

    QWidget* surface_;
    bool scrollH_ = true;
    bool scrollV_ = true;
    int scrollBarWidth_ = -1;
};
