#include "Fuzz.h"

#include "document/Window1.h"
#include "toolkit/ScriptedPlatform.h"

// Opens any bytes as a map, shows all that came of them, and saves it. Whatever was opened, its first saving is final:
// it opens without a message and saves the same again.

using namespace quorrin;

namespace {

/// A window with a map file opened in it, as at the start of the program.
struct Opened {
    explicit Opened(const std::string& content)
    {
        window.Event_Open();
        window.mOpen(New<FolderItem>(fuzz::file(content)));
    }
    ScriptedPlatform nobody;
    Window1 window;
};

void showEverything(Window1& window)
{
    window.RenderMap(false);
    window.DescribeSquare(100, 100);
    const auto sheet = New<Picture>(756, 576, 32);
    window.cvCharacters_Paint(sheet->Graphics());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string saved;
    {
        Opened first(fuzz::text(data, size));
        showEverything(first.window);
        saved = first.window.MapText();
    }
    Opened second(saved);
    fuzz::expect(second.nobody.messages.empty(), "what was saved opens");
    fuzz::expect(second.window.MapText() == saved, "a map that was opened and saved stays as it is");
    return 0;
}
