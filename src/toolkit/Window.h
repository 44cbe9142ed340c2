#pragma once

#include "toolkit/Controls.h"
#include "toolkit/Menu.h"
#include "toolkit/Property.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace quorrin {

/// A one-shot on the event loop, started when its window opens.
class Timer {
public:
    template <typename W>
    Timer(W* window, int period, void (W::*action)());
    const int Period; // milliseconds
    const std::function<void()> Action;
};

/// The real window, told when to look at its window again.
class WindowView {
public:
    virtual ~WindowView() = default;
    virtual void Sync() = 0;
    virtual void Close() = 0;
};

/// A window: its controls in the order of their making, its menu bar and its events.
class Window {
public:
    /// How a window stands on the screen: the main one, or a dialog before its parent.
    enum class Kind { Main, Modal, ModalWithCloseBox };

    Window(Kind kind, std::string title, int width, int height);
    virtual ~Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    const Kind kind;
    const int Width;
    const int Height;
    Property<std::string> Title;
    /// Whether the title carries the platform's mark of unsaved changes.
    Property<bool> ContentsChanged;
    /// Runs whenever that is set, to whatever value; may be empty.
    std::function<void()> AfterContentsChanged;
    std::vector<Control*> Controls;
    std::vector<Timer*> Timers;
    /// Nil for a window without one.
    Ref<quorrin::MenuBar> MenuBar;
    /// Whether pictures can be dropped on the window and pasted into it.
    bool TakesPictures = false;

    virtual void Event_Open() {}
    /// Asked before the window closes; true keeps it open.
    virtual bool Event_CancelClose(bool appQuitting) { return static_cast<void>(appQuitting), false; }
    /// The person asks for help.
    virtual void Event_Help() {}
    /// A picture was dropped or pasted: the bytes of its file, which may be anything; none when it cannot be read.
    virtual void Event_TakePicture(const std::optional<std::string>& bytes) { static_cast<void>(bytes); }
    /// Called before a menu is shown; sets `Enabled` of the items that depend on something.
    virtual void Event_EnableMenuItems() {}

    /// Binds the item of that name in the menu bar to an operation of the window; a name that no item bears does no
    /// harm.
    template <typename W>
    void AddMenuHandler(const std::string& name, bool (W::*action)())
    {
        handlers_[name] = [window = static_cast<W*>(this), action] { return (window->*action)(); };
    }
    /// Whether something is bound to the name.
    bool HandlesMenu(const std::string& name) const { return handlers_.contains(name); }
    /// What choosing an enabled item does; true when the command was handled.
    bool ChooseMenu(const std::string& name);

    void Close();
    /// Shows the window and returns when it has closed.
    void ShowModal();

    WindowView* View = nullptr;

protected:
    /// The place of controls that lie on the window itself.
    Place surface() { return {this, nullptr, 0}; }

private:
    std::map<std::string, std::function<bool()>> handlers_;
};

template <typename W>
Timer::Timer(W* window, int period, void (W::*action)())
    : Period(period), Action([window, action] { (window->*action)(); })
{
    window->Timers.push_back(this);
}

} // namespace quorrin
