#include "toolkit/Controls.h"

#include "toolkit/Errors.h"
#include "toolkit/Platform.h"
#include "toolkit/Window.h"

namespace quorrin {

Control::Control(ControlKind kind, const Place& place, const Frame& frame, std::string caption)
    : Kind(kind), place(place), Caption(std::move(caption), [this](const auto&) { sync(); }),
      Enabled(true, [this](const auto&) { sync(); }), Visible(true, [this](const auto&) { sync(); }),
      Width(frame.Width, [this](const auto&) { sync(); }), Height(frame.Height, [this](const auto&) { sync(); }),
      frame_(frame)
{
    place.window->Controls.push_back(this);
}

void Control::sync()
{
    if (View)
        View->Sync();
}

void Control::SetFocus()
{
    if (View)
        View->TakeFocus();
}

void Control::Invalidate(bool)
{
    if (View)
        View->Repaint();
}

void Control::Refresh(bool eraseBackground)
{
    Invalidate(eraseBackground);
}

void PushButton::Push()
{
    if (Enabled)
        Action();
}

std::function<void(const bool&)> BevelButton::changed()
{
    return [this](const bool&) { sync(); };
}

void BevelButton::Push()
{
    if (!Enabled)
        return;
    if (HasMenu) {
        MouseDown(0, 0);
        return;
    }
    Value = !Value;
    Action();
}

std::function<void(const bool&)> CheckBox::changed(std::function<void()> action)
{
    return [this, action = std::move(action)](const bool& before) {
        sync();
        if (Value != before)
            action();
    };
}

PopupMenu::PopupMenu(const Place& place, const Frame& frame, std::vector<std::string> rows,
                     std::function<void()> change)
    : Control(ControlKind::PopupMenu, place, frame, {}), ListIndex(0,
                                                                   [this, change = std::move(change)](const auto&) {
                                                                       sync();
                                                                       if (change)
                                                                           change();
                                                                   }),
      rows_(std::move(rows))
{
    ListIndex.check = [this](std::int64_t row) {
        if (row < -1 || row >= ListCount())
            throw OutOfBoundsException(row);
    };
}

const std::string& PopupMenu::List(std::int64_t row) const
{
    if (row < 0 || row >= ListCount())
        throw OutOfBoundsException(row);
    return rows_[static_cast<std::size_t>(row)];
}

std::function<void(const std::int64_t&)> ListBox::changed()
{
    return [this](const auto&) { sync(); };
}

TextControl::TextControl(ControlKind kind, const Place& place, const Frame& frame, std::function<void()> textChange)
    : Control(kind, place, frame, {}), Text({}, [this, textChange = std::move(textChange)](const std::string& before) {
          sync();
          if (Text.get() != before)
              textChange();
      })
{}

TabPanel::TabPanel(const Place& place, const Frame& frame, std::vector<std::string> tabs, std::function<void()> change)
    : Control(ControlKind::TabPanel, place, frame, {}), Tabs(std::move(tabs)),
      Value(0, [this, change = std::move(change)](const int& before) {
          sync();
          if (change && Value != before)
              change();
      })
{
    Value.check = [this](int tab) {
        if (tab < 0 || tab >= static_cast<int>(Tabs.size()))
            throw OutOfBoundsException(tab);
    };
}

PagePanel::PagePanel(const Place& place, const Frame& frame, int pages)
    : Control(ControlKind::PagePanel, place, frame, {}), Pages(pages), Value(0, [this](const auto&) { sync(); })
{
    Value.check = [this](int page) {
        if (page < 0 || page >= Pages)
            throw OutOfBoundsException(page);
    };
}

void MouseControl::Press(int x, int y, bool contextual)
{
    platform().IsContextualClick = contextual;
    pressed_ = Enabled && mouseDown_ && mouseDown_(x, y);
    if (contextual && Enabled && constructMenu_)
        showContextualMenu(x, y);
}

void MouseControl::Drag(int x, int y)
{
    if (pressed_ && mouseDrag_)
        mouseDrag_(x, y);
}

void MouseControl::Release(int x, int y)
{
    if (std::exchange(pressed_, false) && mouseUp_)
        mouseUp_(x, y);
}

void MouseControl::showContextualMenu(int x, int y)
{
    MenuItem base;
    constructMenu_(base, x, y);
    if (base.Items().empty())
        return;
    if (const auto chosen = platform().PopUp(base))
        menuAction_(*chosen);
}

Rectangle::Rectangle(const Place& place, const Frame& frame, Color fill)
    : MouseControl(ControlKind::Rectangle, place, frame, MouseHandlers<Window>{}), FillColor(fill, changed())
{}

std::function<void(const Color&)> Rectangle::changed()
{
    return [this](const Color&) {
        sync();
        Invalidate(true);
    };
}

} // namespace quorrin
