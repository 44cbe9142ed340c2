#include "Pages.h"
#include "Pictures.h"
#include "app/App.h"

#include <cstdio>
#include <exception>

namespace {

/// The application without a person: it leaves the preferences alone.
class HelpApp : public quorrin::App {
    void SetupPreferences() override {}
};

} // namespace

/// Makes the help from the pages in SOURCE and an example map.
int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fputs("usage: build-help SOURCE MAP TARGET\n", stderr);
        return 2;
    }
    try {
        const quorrin::ScreenlessToolkit toolkit(argc, argv);
        HelpApp().Event_Open();
        quorrin::writeHelpPictures(std::string(argv[3]) + "/images", argv[2]);
        quorrin::writeHelpPages(argv[1], argv[3]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "build-help: %s\n", error.what());
        return 1;
    }
}
