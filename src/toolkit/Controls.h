#pragma once

#include "toolkit/Color.h"
#include "toolkit/Graphics.h"
#include "toolkit/Menu.h"
#include "toolkit/Property.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// Controls are plain observable values. A person's change arrives by setting the same property that code sets, so the
// handlers run alike; the desktop builds real widgets from what stands here and keeps them equal to it.

namespace quorrin {

class Window;
class Control;

/// Place and size in window pixels.
struct Frame {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
};

/// Where a control lies: on the window itself, on one page of a tab or page panel, or in a group box.
struct Place {
    Window* window = nullptr;
    /// The TabPanel, PagePanel or GroupBox around it, nil on the window itself.
    Control* container = nullptr;
    /// The page of the container, from 0; 0 in a group box.
    int page = 0;
};

/// The real widget of a control, told when to look at its control again.
class ControlView {
public:
    virtual ~ControlView() = default;
    /// A property of the control has changed.
    virtual void Sync() = 0;
    /// The picture of the control is out of date.
    virtual void Repaint() = 0;
    virtual void TakeFocus() = 0;
};

enum class ControlKind {
    Label,
    Separator,
    PushButton,
    BevelButton,
    CheckBox,
    PopupMenu,
    ListBox,
    TextField,
    TextArea,
    Rectangle,
    GroupBox,
    TabPanel,
    PagePanel,
    Canvas,
};

class Control {
public:
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const ControlKind Kind;
    const Place place;
    Property<std::string> Caption;
    Property<bool> Enabled;
    Property<bool> Visible;
    Property<int> Width;
    Property<int> Height;
    int Left() const { return frame_.Left; }
    int Top() const { return frame_.Top; }
    /// What a screen reader says where the caption does not tell it.
    std::string AccessibleName;
    /// One line that explains the control where its caption does not, shown while the mouse rests on it.
    std::string ToolTip;

    void SetFocus();
    /// Asks for a new painting; the two differ only in haste, which a modern desktop does not need.
    void Invalidate(bool eraseBackground);
    void Refresh(bool eraseBackground);

    ControlView* View = nullptr;

protected:
    Control(ControlKind kind, const Place& place, const Frame& frame, std::string caption);
    /// A handler of the window in which the control lies.
    template <typename W>
    static std::function<void()> handler(const Place& place, void (W::*method)())
    {
        return [window = place.window, method] { (static_cast<W*>(window)->*method)(); };
    }
    void sync();

private:
    Frame frame_;
};

class Label : public Control {
public:
    Label(const Place& place, const Frame& frame, std::string text)
        : Control(ControlKind::Label, place, frame, std::move(text))
    {}
};

/// A horizontal line, 4 pixels high.
class Separator : public Control {
public:
    Separator(const Place& place, const Frame& frame) : Control(ControlKind::Separator, place, frame, {}) {}
};

class PushButton : public Control {
public:
    enum class Role { Plain, Default, Cancel, DefaultAndCancel };

    template <typename W>
    PushButton(const Place& place, const Frame& frame, std::string caption, void (W::*action)(),
               Role role = Role::Plain)
        : Control(ControlKind::PushButton, place, frame, std::move(caption)), role(role), Action(handler(place, action))
    {}
    /// Which keys press it: Return for Default, Escape for Cancel.
    const Role role;
    const std::function<void()> Action;
    /// What a click does: nothing while the button is disabled.
    void Push();
};

/// A button that either stays in (Value) or shows a menu arrow and answers the mouse.
class BevelButton : public Control {
public:
    /// A toggle: `action` runs after each click.
    template <typename W>
    BevelButton(const Place& place, const Frame& frame, std::string caption, void (W::*action)())
        : Control(ControlKind::BevelButton, place, frame, std::move(caption)), HasMenu(false), Value(false, changed()),
          Action(handler(place, action))
    {}
    /// A button with a menu arrow: `mouseDown` gets the place of the click and answers whether it wants the release.
    template <typename W>
    BevelButton(const Place& place, const Frame& frame, std::string caption, bool (W::*mouseDown)(int, int))
        : Control(ControlKind::BevelButton, place, frame, std::move(caption)), HasMenu(true), Value(false, changed()),
          MouseDown([place, mouseDown](int x, int y) { return (static_cast<W*>(place.window)->*mouseDown)(x, y); })
    {}
    const bool HasMenu;
    /// Whether a toggle is in. Setting it from code shows it and runs nothing: it answers clicks alone.
    Property<bool> Value;
    const std::function<void()> Action;
    const std::function<bool(int x, int y)> MouseDown;
    /// What a click does: nothing while the button is disabled.
    void Push();

private:
    std::function<void(const bool&)> changed();
};

/// Fires `action` when its value changes.
class CheckBox : public Control {
public:
    template <typename W>
    CheckBox(const Place& place, const Frame& frame, std::string caption, void (W::*action)(), bool value = false)
        : Control(ControlKind::CheckBox, place, frame, std::move(caption)),
          Value(value, changed(handler(place, action)))
    {}
    Property<bool> Value;

private:
    std::function<void(const bool&)> changed(std::function<void()> action);
};

/// A list of rows of which one is chosen. Fires `change` at every setting, also of the row that it shows already.
class PopupMenu : public Control {
public:
    template <typename W>
    PopupMenu(const Place& place, const Frame& frame, std::vector<std::string> rows, void (W::*change)())
        : PopupMenu(place, frame, std::move(rows), handler(place, change))
    {}
    /// One whose rows nobody watches: its value is read when it is needed.
    PopupMenu(const Place& place, const Frame& frame, std::vector<std::string> rows)
        : PopupMenu(place, frame, std::move(rows), std::function<void()>())
    {}
    /// The chosen row from 0, or -1 for none; any row beyond the list raises OutOfBoundsException.
    Property<std::int64_t> ListIndex;
    std::int64_t ListCount() const { return static_cast<std::int64_t>(rows_.size()); }
    /// The text of a row from 0; raises OutOfBoundsException.
    const std::string& List(std::int64_t row) const;

private:
    PopupMenu(const Place& place, const Frame& frame, std::vector<std::string> rows, std::function<void()> change);
    std::vector<std::string> rows_;
};

/// Rows that are all in sight, or as many as there is room for, of which one is chosen.
class ListBox : public Control {
public:
    ListBox(const Place& place, const Frame& frame, std::vector<std::string> rows)
        : Control(ControlKind::ListBox, place, frame, {}), Rows(std::move(rows)), ListIndex(0, changed())
    {}
    const std::vector<std::string> Rows;
    /// The chosen row from 0.
    Property<std::int64_t> ListIndex;

private:
    std::function<void(const std::int64_t&)> changed();
};

/// One line (TextField) or many (TextArea, with a vertical scroll bar). Fires `textChange` when the text changes.
class TextControl : public Control {
public:
    Property<std::string> Text;

protected:
    TextControl(ControlKind kind, const Place& place, const Frame& frame, std::function<void()> textChange);
};

class TextField : public TextControl {
public:
    template <typename W>
    TextField(const Place& place, const Frame& frame, void (W::*textChange)())
        : TextControl(ControlKind::TextField, place, frame, handler(place, textChange))
    {}
};

class TextArea : public TextControl {
public:
    template <typename W>
    TextArea(const Place& place, const Frame& frame, void (W::*textChange)())
        : TextControl(ControlKind::TextArea, place, frame, handler(place, textChange))
    {}
};

/// A frame around other controls, which are disabled with it.
class GroupBox : public Control {
public:
    GroupBox(const Place& place, const Frame& frame) : Control(ControlKind::GroupBox, place, frame, {}) {}
    operator Place() { return {place.window, this, 0}; }
};

/// Pages chosen by tabs. Fires `change` when Value changes.
class TabPanel : public Control {
public:
    template <typename W>
    TabPanel(const Place& place, const Frame& frame, std::vector<std::string> tabs, void (W::*change)())
        : TabPanel(place, frame, std::move(tabs), handler(place, change))
    {}
    /// One whose tabs nobody watches.
    TabPanel(const Place& place, const Frame& frame, std::vector<std::string> tabs)
        : TabPanel(place, frame, std::move(tabs), std::function<void()>())
    {}
    const std::vector<std::string> Tabs;
    /// The tab that shows, from 0.
    Property<int> Value;
    /// The place of the controls on one of its pages, from 0.
    Place Page(int page) { return {place.window, this, page}; }

private:
    TabPanel(const Place& place, const Frame& frame, std::vector<std::string> tabs, std::function<void()> change);
};

/// Pages that only code turns.
class PagePanel : public Control {
public:
    PagePanel(const Place& place, const Frame& frame, int pages);
    const int Pages;
    Property<int> Value;
    Place Page(int page) { return {place.window, this, page}; }
};

/// A mouse pointer that the program carries as a picture.
struct MouseCursor {
    Ref<Picture> Image;
    int HotX = 0;
    int HotY = 0;
};

/// What a window does about one of its canvases or rectangles; any member may stay empty. Coordinates are pixels from
/// the control's top left corner. MouseDown answers whether the drag and the release are wanted.
template <typename W>
struct MouseHandlers {
    void (W::*Paint)(Graphics&) = nullptr;
    bool (W::*MouseDown)(int, int) = nullptr;
    void (W::*MouseDrag)(int, int) = nullptr;
    void (W::*MouseUp)(int, int) = nullptr;
    bool (W::*ConstructContextualMenu)(MenuItem&, int, int) = nullptr;
    bool (W::*ContextualMenuAction)(const MenuItem&) = nullptr;
};

/// A control that the mouse works on.
class MouseControl : public Control {
public:
    /// The person's side: the button goes down, the mouse moves with it down, the button comes up. A contextual press
    /// shows the contextual menu.
    void Press(int x, int y, bool contextual = false);
    void Drag(int x, int y);
    void Release(int x, int y);
    /// Whether a press does anything here.
    bool AnswersMouse() const { return static_cast<bool>(mouseDown_); }
    /// Whether it matters which way the mouse takes with the button down.
    bool AnswersDrag() const { return static_cast<bool>(mouseDrag_); }
    bool HasContextualMenu() const { return static_cast<bool>(constructMenu_); }

    void Paint(Graphics& g) const
    {
        if (paint_)
            paint_(g);
    }

protected:
    template <typename W>
    MouseControl(ControlKind kind, const Place& place, const Frame& frame, const MouseHandlers<W>& handlers)
        : Control(kind, place, frame, {}), paint_(bind<W>(handlers.Paint)), mouseDown_(bind<W>(handlers.MouseDown)),
          mouseDrag_(bind<W>(handlers.MouseDrag)), mouseUp_(bind<W>(handlers.MouseUp)),
          constructMenu_(bind<W>(handlers.ConstructContextualMenu)), menuAction_(bind<W>(handlers.ContextualMenuAction))
    {}

private:
    template <typename W, typename R, typename... A>
    std::function<R(A...)> bind(R (W::*method)(A...))
    {
        if (!method)
            return {};
        return [window = place.window, method](A... arguments) -> R {
            return (static_cast<W*>(window)->*method)(static_cast<A>(arguments)...);
        };
    }
    void showContextualMenu(int x, int y);

    std::function<void(Graphics&)> paint_;
    std::function<bool(int, int)> mouseDown_;
    std::function<void(int, int)> mouseDrag_;
    std::function<void(int, int)> mouseUp_;
    std::function<bool(MenuItem&, int, int)> constructMenu_;
    std::function<bool(const MenuItem&)> menuAction_;
    bool pressed_ = false;
};

/// An area that the window paints.
class Canvas : public MouseControl {
public:
    template <typename W>
    Canvas(const Place& place, const Frame& frame, const MouseHandlers<W>& handlers)
        : MouseControl(ControlKind::Canvas, place, frame, handlers)
    {}
    /// The pointer over the canvas; the arrow when its picture is nil.
    quorrin::MouseCursor MouseCursor;
    /// What a screen reader says about a place on the canvas, and what shows while the mouse rests there; may be empty.
    std::function<std::string(int x, int y)> DescribePlace;
    /// The area around a point that one click means, without area where there is none: the arrow keys go from one such
    /// area to the next. May be empty.
    std::function<Frame(int x, int y)> PlaceAt;
    /// Whether a click does anything now; empty where one always does.
    std::function<bool()> AnswersNow;
};

/// A filled rectangle with a 1-pixel black border; one that answers the mouse is a colour well.
class Rectangle : public MouseControl {
public:
    Rectangle(const Place& place, const Frame& frame, Color fill);
    template <typename W>
    Rectangle(const Place& place, const Frame& frame, Color fill, const MouseHandlers<W>& handlers)
        : MouseControl(ControlKind::Rectangle, place, frame, handlers), FillColor(fill, changed())
    {}
    Property<Color> FillColor;

private:
    std::function<void(const Color&)> changed();
};

} // namespace quorrin
