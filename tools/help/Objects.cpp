#include "Objects.h"

#include "document/Window1.h"
#include "toolkit/ScriptedPlatform.h"

#include <fstream>
#include <stdexcept>

namespace quorrin {

void writeObjectList(const std::string& path)
{
    const ScriptedPlatform nobody;
    Window1 window;
    window.Event_Open();
    MenuItem menu;
    window.ShowObjectPopupMenu(menu, "");

    std::ofstream list(path, std::ios::binary);
    for (const auto& group : menu.Items())
        for (const auto& object : group->Items())
            list << group->Text << '\t' << object->Tag << '\t' << object->Text << '\n';
    if (!list.flush())
        throw std::runtime_error("cannot write " + path);
}

} // namespace quorrin
