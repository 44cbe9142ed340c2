#pragma once

#include <QObject>

class QSessionManager;
class QWidget;

namespace quorrin {

class Recovery;
class Window1;

/// Keeps what is unsaved when the program is ended by others than the person at it: by a signal, with the screen, or
/// with the session, whose manager gets an answer. There is one, and it outlives the event loop.
class ForcedEnd : public QObject {
public:
    ForcedEnd(Window1& window, const QWidget& view, Recovery& recovery);
    ~ForcedEnd() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void answer(QSessionManager& manager);

    Window1& window_;
    const QWidget& view_;
    Recovery& recovery_;
};

} // namespace quorrin
