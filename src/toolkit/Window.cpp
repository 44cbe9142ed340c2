#include "toolkit/Window.h"

#include "toolkit/Platform.h"

namespace quorrin {

Window::Window(Kind kind, std::string title, int width, int height)
    : kind(kind), Width(width), Height(height), Title(std::move(title),
                                                      [this](const auto&) {
                                                          if (View)
                                                              View->Sync();
                                                      }),
      ContentsChanged(false, [this](const bool& before) {
          if (View && ContentsChanged != before)
              View->Sync();
          if (AfterContentsChanged)
              AfterContentsChanged();
      })
{}

bool Window::ChooseMenu(const std::string& name)
{
    Event_EnableMenuItems();
    const auto item = MenuBar ? MenuBar->Find(name) : nullptr;
    const auto handler = handlers_.find(name);
    return item && item->Enabled && handler != handlers_.end() && handler->second();
}

void Window::Close()
{
    if (View)
        View->Close();
}

void Window::ShowModal()
{
    platform().ShowModal(*this);
}

} // namespace quorrin
