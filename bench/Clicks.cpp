#include "Program.h"

#include "desktop/DesktopWindow.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QEvent>
#include <QMouseEvent>

// How long after the mouse button is released the page on the screen shows the edit. Without a display the window
// stands on a screen in memory.

using namespace quorrin;

namespace {

/// Tells when a widget has been painted.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }
    void waitForNext()
    {
        for (painted_ = false; !painted_;)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QGuiApplication::sync();
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        painted_ = painted_ || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }

private:
    bool painted_ = false;
};

void send(QWidget& widget, QEvent::Type type, QPoint place)
{
    const bool pressed = type == QEvent::MouseButtonPress;
    QMouseEvent event(type, QPointF(place), QPointF(widget.mapToGlobal(place)), Qt::LeftButton,
                      pressed ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

void clickToScreen(benchmark::State& state, Density density)
{
    Program program(density);
    auto& window = program.window;
    DesktopWindow view(window);
    view.Open();
    window.TabPanel1.Value = 3;
    auto& canvas = *static_cast<WidgetView*>(window.Canvas1.View)->Widget();
    PaintWatch watch(canvas);
    canvas.update();
    watch.waitForNext();
    std::int64_t object = 0;
    for (auto _ : state) {
        state.PauseTiming();
        window.pmObjects.ListIndex = object = 1 + object % 2;
        QCoreApplication::processEvents();
        state.ResumeTiming();
        send(canvas, QEvent::MouseButtonPress, {100, 100});
        send(canvas, QEvent::MouseButtonRelease, {100, 100});
        watch.waitForNext();
    }
    if (window.mySquares(2, 1)->thisObject != object)
        state.SkipWithError("The click has set nothing.");
    window.isDirty = false;
}

BENCHMARK_CAPTURE(clickToScreen, ordinary, Density::Ordinary)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(clickToScreen, densest, Density::Densest)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
