#include "Person.h"

#include <QColorDialog>
#include <QHelpEvent>
#include <QToolButton>
#include <QToolTip>

using namespace quorrin;

namespace {

/// The main window under a mouse that moves.
class MouseOver : public DesktopProgram {
protected:
    /// Moves the mouse to a place on a control.
    void point(const Control& control, QPoint place)
    {
        auto& widget = widgetOf<QWidget>(control);
        QEnterEvent enter(place, place, widget.mapToGlobal(place));
        QCoreApplication::sendEvent(&widget, &enter);
        QMouseEvent move(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(&widget, &move);
    }
    bool handOver(const Control& control, QPoint place)
    {
        point(control, place);
        return widgetOf<QWidget>(control).cursor().shape() == Qt::PointingHandCursor;
    }
    QString tipOver(const Control& control, QPoint place)
    {
        auto& widget = widgetOf<QWidget>(control);
        QHelpEvent rest(QEvent::ToolTip, place, widget.mapToGlobal(place));
        QCoreApplication::sendEvent(&widget, &rest);
        return QToolTip::text();
    }
    QImage imageOf(const Control& control) { return widgetOf<QWidget>(control).grab().toImage(); }
};

constexpr QPoint firstSquare(7 + 30, 42 + 30);
constexpr QPoint betweenSquares(7 + 61, 42 + 30);

} // namespace

TEST_F(MouseOver, TheMapShowsWhatAClickWouldHit)
{
    EXPECT_FALSE(handOver(window.Canvas1, firstSquare)) << "a click does nothing on the tab Background";
    const QImage plain = imageOf(window.Canvas1);
    for (const int tool : {Window1::WallTool, Window1::ObjectTool, Window1::MarkerTool}) {
        window.TabPanel1.Value = tool;
        EXPECT_EQ(widgetOf<QWidget>(window.Canvas1).cursor().shape(), Qt::PointingHandCursor) << "the mouse rested";
        EXPECT_FALSE(handOver(window.Canvas1, betweenSquares));
        EXPECT_EQ(imageOf(window.Canvas1), plain);
        EXPECT_TRUE(handOver(window.Canvas1, firstSquare));
        const QImage framed = imageOf(window.Canvas1);
        const QRect frame(6, 41, 63, 63), inside(8, 43, 59, 59);
        forEachPixel(plain.width(), plain.height(), [&](auto x, auto y) {
            const QPoint at(static_cast<int>(x), static_cast<int>(y));
            const bool isFrame = frame.contains(at) && !inside.contains(at);
            ASSERT_EQ(isFrame ? plain.pixel(at) : framed.pixel(at), plain.pixel(at)) << x << "," << y;
        });
        EXPECT_NE(framed, plain);
    }
    EXPECT_EQ(pixelOf(window.myImage, 7, 42), RGB(255, 255, 255)) << "the page itself has no frame";
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&widgetOf<QWidget>(window.Canvas1), &leave);
    EXPECT_EQ(imageOf(window.Canvas1), plain);
}

TEST_F(MouseOver, WhatNoCaptionExplainsIsToldWhileTheMouseRests)
{
    window.TabPanel1.Value = Window1::ObjectTool;
    window.pmObjects.ListIndex = 9;
    EXPECT_EQ(tipOver(window.Canvas3, {30, 30}), "Barrel Vert\nClick for a menu with pictures");
    EXPECT_TRUE(handOver(window.Canvas3, {30, 30}));
    person.click(326 + 7, 22 + 42);
    EXPECT_EQ(tipOver(window.Canvas1, firstSquare), "Column 1, row 1: Barrel Vert");
    tipOver(window.Canvas1, betweenSquares);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
    window.TabPanel1.Value = Window1::WallTool;
    window.CheckBox1.Value = window.CheckBox3.Value = window.cbDoorTop.Value = true;
    EXPECT_TRUE(tipOver(window.Canvas2, {30, 30}).startsWith("walls top, left; door top\n"));
    EXPECT_FALSE(handOver(window.Canvas2, {30, 30}));
    EXPECT_TRUE(handOver(window.rWallColor, {30, 9}));

    window.TabPanel1.Value = Window1::MarkerTool;
    EXPECT_TRUE(handOver(window.cvDMPreview, {30, 30}));
    window.cbShowDMObjects.Value = false;
    EXPECT_EQ(widgetOf<QWidget>(window.cvDMPreview).cursor().shape(), Qt::ArrowCursor);
    window.btnCharacterTool.Push();
    EXPECT_EQ(tipOver(window.cvCharacters, {40, 0}), "Character 1, no picture");
}

TEST_F(MouseOver, TheFirstPickFromBlackShowsItsColour)
{
    window.TabPanel1.Value = Window1::WallTool;
    Answer<QColorDialog> pick([](QColorDialog& dialog) {
        for (QWidget* part : dialog.findChildren<QWidget*>())
            if (QByteArrayView(part->metaObject()->className()).endsWith("ColorPicker"))
                QTest::mouseClick(part, Qt::LeftButton, {}, {part->width() / 3, part->height() / 8});
        EXPECT_GT(dialog.currentColor().value(), 200);
        EXPECT_GT(dialog.currentColor().saturation(), 128);
        dialog.accept();
    });
    window.rWallColor.Press(5, 5);
    window.rWallColor.Release(5, 5);
    ASSERT_EQ(pick.count, 1);
    const Color picked = window.rWallColor.FillColor;
    EXPECT_FALSE(picked == black);

    window.rWallColor.FillColor = black;
    Answer<QColorDialog> pickAgain([](QColorDialog& dialog) {
        dialog.findChild<QToolButton*>()->click();
        dialog.accept();
    });
    window.rWallColor.Press(5, 5);
    window.rWallColor.Release(5, 5);
    EXPECT_EQ(window.rWallColor.FillColor.get(), picked) << "the colour used before stands ready";
}
