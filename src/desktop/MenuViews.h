#pragma once

#include "toolkit/Menu.h"

#include <QAction>
#include <QPoint>
#include <QPointer>
#include <QWidget>

#include <optional>
#include <utility>
#include <vector>

class QMenu;
class QMenuBar;

namespace quorrin {

class Window;

/// While it lives, menus pop up at this place of the screen and not at the mouse: for what the keyboard asked for.
class PopUpPlace {
public:
    explicit PopUpPlace(QPoint place) : before_(std::exchange(current_, place)) {}
    ~PopUpPlace() { current_ = before_; }
    PopUpPlace(const PopUpPlace&) = delete;
    PopUpPlace& operator=(const PopUpPlace&) = delete;
    static QPoint Current();

private:
    static std::optional<QPoint> current_;
    std::optional<QPoint> before_;
};

/// The menu bar of a window in a real one, and the state of its entries.
class MenuBarView : public QObject {
public:
    MenuBarView(Window& window, QMenuBar& bar);
    /// Brings what is enabled up to date; to be called before a shortcut can act.
    void Refresh();

private:
    void addMenu(const MenuItem& menu, QMenuBar& bar);
    void addItems(const MenuItem& menu, QMenu& widget);
    bool isEnabled(const MenuItem& item) const;
    bool pastesPicture(const MenuItem& item) const;
    void choose(const MenuItem& item);

    Window& window_;
    QWidget* mainWidget_;
    std::vector<std::pair<QAction*, Ref<MenuItem>>> actions_;
    /// The widget that the standard edit items work on: the last in focus that is no menu bar.
    QPointer<QWidget> editTarget_;
};

} // namespace quorrin
