#include "desktop/StartArguments.h"

#include "toolkit/Application.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

namespace quorrin {

namespace {

constexpr auto usage = R"(Makes one-page maps for tabletop role-playing games.

  quorrin-map-maker [MAP.qrnm]
      opens the map, or a blank page when none is named

  -h, --help      shows this
      --version   shows the version

quorrin-map-batch exports and prints many maps without a window.
)";

void tell(const std::string& fault)
{
    std::fprintf(stderr, "quorrin-map-maker: %s\n", fault.c_str());
}

/// Says on the terminal what the window keeps quiet about: that there is nothing to open.
void tellUnreadable(const std::string& map)
{
    std::error_code error;
    const std::filesystem::path path(map);
    if (!std::filesystem::exists(path, error))
        tell("there is no file \"" + map + "\"");
    else if (!std::filesystem::is_regular_file(path, error) || !std::ifstream(path))
        tell("the file \"" + map + "\" cannot be read");
}

StartArguments answered(int status)
{
    return {{}, status};
}

} // namespace

StartArguments readArguments(int argc, char** argv)
{
    StartArguments arguments;
    bool optionsEnd = false;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        const bool isOption = !optionsEnd && argument.size() > 1 && argument.front() == '-';
        if (isOption && argument == "--") {
            optionsEnd = true;
        } else if (isOption && (argument == "--help" || argument == "-h")) {
            std::fputs(usage, stdout);
            return answered(0);
        } else if (isOption && argument == "--version") {
            std::printf("quorrin-map-maker %s\n", Application::Version().c_str());
            return answered(0);
        } else if (isOption) {
            tell("there is no option \"" + std::string(argument) + "\"\nTry \"quorrin-map-maker --help\".");
            return answered(2);
        } else if (arguments.map.empty()) {
            arguments.map = argument;
        } else {
            tell("only one map can be open; \"" + std::string(argument) + "\" is left out");
        }
    }
    if (!arguments.map.empty())
        tellUnreadable(arguments.map);
    return arguments;
}

} // namespace quorrin
