#include "app/App.h"

#include "document/Module1.h"
#include "toolkit/Text.h"

namespace quorrin {

void App::Event_Open()
{
    AutoQuit = true;
    SetupPreferences();
    Module1::sep = Chr(187);
}

void App::Event_OpenDocument(const Ref<FolderItem>& item)
{
    const bool isMap = Lowercase(Right(item->Name(), 4)) == "qrnm";
    Module1::gOpenFile = isMap ? item : nullptr;
}

} // namespace quorrin
