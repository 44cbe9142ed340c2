#include "desktop/LastResort.h"
#include "desktop/MouseWidget.h"
#include "desktop/QtText.h"
#include "desktop/WidgetView.h"

#include "toolkit/QtBridge.h"

#include <QCursor>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOptionButton>

#include <optional>

// Canvases and rectangles.

namespace quorrin {

namespace {

QRect qtRect(const Frame& frame)
{
    return {frame.Left, frame.Top, frame.Width, frame.Height};
}

/// A canvas is white paper, on dark desktops too.
class CanvasWidget : public MouseWidget {
public:
    CanvasWidget(Canvas& canvas, QWidget* parent) : MouseWidget(canvas, QAccessible::Canvas, parent), canvas_(canvas) {}

    /// Tells what a canvas without places of its own shows, and whether it can be clicked.
    void Refresh()
    {
        if (!hasPlaces())
            pointedAt(rect().center());
        refreshPointer();
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.fillRect(rect(), Qt::white);
        paintCanvas(painter);
        if (!isEnabled())
            painter.fillRect(rect(), QColor(255, 255, 255, 160));
        if (hasPlaces() && mousePlace() && answersAt(*mousePlace()))
            drawOutline(painter, areaAt(*mousePlace()));
        if (!ShowsFocus())
            return;
        drawFocusFrame(painter, rect());
        if (hasPlaces())
            drawFocusFrame(painter, areaAt(keyboardPlace()).adjusted(-1, -1, 1, 1));
        else if (canvas_.AnswersDrag())
            drawCrosshair(painter, keyboardPlace());
    }

    QPoint keyboardPlace() override
    {
        if (!hasPlaces() && !canvas_.AnswersDrag())
            return rect().center();
        if (!place_ || !rect().contains(*place_) || areaAt(*place_).isEmpty())
            place_ = firstPlace();
        return *place_;
    }

    /// Goes to the next area that a click means, where the canvas has such, else a step; stays where there is none.
    void moveKeyboardPlace(QPoint direction) override
    {
        const QPoint from = keyboardPlace();
        if (!hasPlaces()) {
            constexpr int step = 10;
            const QPoint to = from + direction * step;
            place_ = QPoint(qBound(0, to.x(), width() - 1), qBound(0, to.y(), height() - 1));
            return;
        }
        const QRect here = areaAt(from);
        for (QPoint to = from + direction; rect().contains(to); to += direction) {
            const QRect area = areaAt(to);
            if (!area.isEmpty() && area != here) {
                place_ = area.center();
                return;
            }
        }
    }

    void pointedAt(QPoint place) override
    {
        if (canvas_.DescribePlace)
            setAccessibleDescription(descriptionOf(place));
    }

    QRect areaAt(QPoint point) const override
    {
        if (!hasPlaces())
            return rect();
        QRect area;
        guarded([&] { area = qtRect(canvas_.PlaceAt(point.x(), point.y())); }, false);
        return area;
    }

    bool answersAt(QPoint place) const override
    {
        return MouseWidget::answersAt(place) && (!canvas_.AnswersNow || canvas_.AnswersNow());
    }

    QString tipAt(QPoint place) const override
    {
        QStringList lines{canvas_.DescribePlace ? descriptionOf(place) : QString(), toolTip()};
        lines.removeAll({});
        return lines.join('\n');
    }

private:
    /// A handler that fails tells it once, and again only after it has worked between.
    void paintCanvas(QPainter& painter)
    {
        const auto graphics = QtBridge::graphics(painter, width(), height());
        paintFailed_ = !guarded([&] { canvas_.Paint(*graphics); }, !paintFailed_);
    }

    bool hasPlaces() const { return static_cast<bool>(canvas_.PlaceAt); }

    QString descriptionOf(QPoint place) const
    {
        std::string description;
        guarded([&] { description = canvas_.DescribePlace(place.x(), place.y()); });
        return qtText(description);
    }

    QPoint firstPlace() const
    {
        constexpr int step = 10;
        for (int y = 0; hasPlaces() && y < height(); y += step)
            for (int x = 0; x < width(); x += step)
                if (const QRect area = areaAt({x, y}); !area.isEmpty())
                    return area.center();
        return rect().center();
    }

    /// Shows on any ground: light inside of the colour in which the desktop marks things.
    void drawOutline(QPainter& painter, const QRect& area) const
    {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(area.adjusted(-1, -1, 0, 0));
        painter.setPen(QColor(255, 255, 255, 180));
        painter.drawRect(area.adjusted(0, 0, -1, -1));
    }

    void drawCrosshair(QPainter& painter, QPoint center) const
    {
        constexpr int reach = 6;
        painter.setPen(QPen(palette().highlight(), 2));
        painter.drawLine(center - QPoint(reach, 0), center + QPoint(reach, 0));
        painter.drawLine(center - QPoint(0, reach), center + QPoint(0, reach));
    }

    Canvas& canvas_;
    std::optional<QPoint> place_;
    bool paintFailed_ = false;
};

class CanvasView : public WidgetView {
public:
    CanvasView(Canvas& canvas, QWidget* parent) : WidgetView(canvas, new CanvasWidget(canvas, parent)), canvas_(canvas)
    {}

    void Repaint() override { static_cast<CanvasWidget*>(Widget())->Refresh(); }

private:
    void show() override
    {
        Repaint();
        const auto& cursor = canvas_.MouseCursor;
        if (cursor.Image)
            Widget()->setCursor(
                QCursor(QPixmap::fromImage(QtBridge::drawnImage(*cursor.Image, Widget()->devicePixelRatioF())),
                        cursor.HotX, cursor.HotY));
    }
    Canvas& canvas_;
};

/// A plain box, or a colour well when it answers the mouse.
class RectangleWidget : public MouseWidget {
public:
    RectangleWidget(Rectangle& rectangle, QWidget* parent)
        : MouseWidget(rectangle, rectangle.AnswersMouse() ? QAccessible::ColorChooser : QAccessible::Whitespace,
                      parent),
          rectangle_(rectangle)
    {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        QRect inside = rect();
        if (rectangle_.AnswersMouse()) {
            constexpr int bevel = 3;
            QStyleOptionButton option;
            option.initFrom(this);
            option.state |= QStyle::State_Raised;
            style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, this);
            inside.adjust(bevel, bevel, -bevel, -bevel);
        }
        const Color fill = rectangle_.FillColor;
        painter.fillRect(inside, Qt::black);
        painter.fillRect(inside.adjusted(1, 1, -1, -1), QColor(fill.red, fill.green, fill.blue));
        if (ShowsFocus())
            drawFocusFrame(painter, rect());
    }

private:
    Rectangle& rectangle_;
};

class RectangleView : public WidgetView {
public:
    RectangleView(Rectangle& rectangle, QWidget* parent)
        : WidgetView(rectangle, new RectangleWidget(rectangle, parent)), rectangle_(rectangle)
    {}

private:
    void show() override
    {
        if (!rectangle_.AnswersMouse())
            return;
        const Color fill = rectangle_.FillColor;
        Widget()->setAccessibleDescription(QColor(fill.red, fill.green, fill.blue).name());
    }
    Rectangle& rectangle_;
};

} // namespace

std::unique_ptr<WidgetView> makeCanvasView(Canvas& canvas, QWidget* parent)
{
    return std::make_unique<CanvasView>(canvas, parent);
}

std::unique_ptr<WidgetView> makeRectangleView(Rectangle& rectangle, QWidget* parent)
{
    return std::make_unique<RectangleView>(rectangle, parent);
}

} // namespace quorrin
