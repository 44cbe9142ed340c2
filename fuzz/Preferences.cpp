#include "Fuzz.h"

#include "app/iniClass.h"
#include "toolkit/Platform.h"
#include "toolkit/Printing.h"
#include "toolkit/Text.h"

// Reads the page setup from any bytes as the preferences file, puts another one in, and prints with the bytes as setup.

using namespace quorrin;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string section = "PageSetup", key = "Settings", value = "c2l6ZT0x";
    const auto before = fuzz::text(data, size);
    const auto file = New<FolderItem>(fuzz::file(before));
    const auto content = [&] { return TextInputStream::Open(file)->ReadAll(); };
    const iniClass preferences(file);

    std::string found;
    fuzz::expect(preferences.GetPreference(section, key, found) == Len(found), "the length of the value is told");
    fuzz::expect(content() == before, "reading changes nothing");

    // A header without its line end swallows the first assignment; the second one stands on a line of its own.
    preferences.SetPreference(section, key, value);
    preferences.SetPreference(section, key, value);
    const auto after = content();
    fuzz::expect(InStr(after, key + "=" + value + "\r") > 0, "what was set stands in the file");
    preferences.SetPreference(section, key, value);
    fuzz::expect(content() == after, "setting a value again changes nothing");

    const auto page = printToPdf(fuzz::file(""), PrinterSetup{before}, 1);
    fuzz::expect(page->Width() > 0 && page->Height() > 0, "any setup leaves an area to print on");
    return 0;
}
