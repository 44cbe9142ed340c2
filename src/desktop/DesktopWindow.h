#pragma once

#include "desktop/MenuViews.h"
#include "desktop/WidgetView.h"
#include "toolkit/Window.h"

#include <QEventLoop>
#include <QMainWindow>

#include <memory>
#include <vector>

class QScrollArea;

namespace quorrin {

/// A toolkit window on the screen, built from its controls: any window, with nothing in here about one of them.
/// The content has the window's own size; where the screen is smaller, it scrolls.
class DesktopWindow final : public QMainWindow, public WindowView {
public:
    explicit DesktopWindow(Window& window, QWidget* parent = nullptr);
    ~DesktopWindow() override;

    /// Shows the window, which has had its Event_Open, and starts its timers.
    void Open();
    /// The same for a dialog; returns when it has closed.
    void RunModal();

    void Sync() override;
    void Close() override;
    /// The widget whose pixels are the window's coordinates.
    QWidget* Content() const { return content_; }

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void build();
    QWidget* parentOf(const Control& control) const;
    void fitToScreen();
    void moveOver(const QWidget& parent);
    void startTimers();
    bool push(PushButton::Role role);

    Window& window_;
    QWidget* content_;
    QScrollArea* scroll_;
    std::vector<std::unique_ptr<WidgetView>> views_;
    std::unique_ptr<MenuBarView> menuBar_;
    QEventLoop modalLoop_;
    bool closingByProgram_ = false;
};

} // namespace quorrin
