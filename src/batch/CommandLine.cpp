#include "batch/CommandLine.h"

#include <getopt.h>

#include <algorithm>
#include <charconv>
#include <string_view>
#include <thread>

namespace quorrin {

const char* const usage = R"(Makes pictures of Quorrin maps, and newer map files of older ones, without a window.

  quorrin-map-batch export [--set] [-o DIR] MAP.qrnm...
      writes "Quorrin Map NAME.png" for each map; with --set the four pictures
      for players and Dungeon Master, in color and in black and white
  quorrin-map-batch upgrade -o DIR MAP.qrnm...
      writes each map, of whatever age, in the newest form under its own name

  -o, --output DIR   where the files go; made when it is not there
                     (export: the current folder when not given)
  -j, --jobs N       how many maps are worked on at a time (as many as there
                     are processors)
  -h, --help         shows this
      --version      shows the version

A map that cannot be read is told and skipped; the exit status is 1 then, and
2 when the command itself makes no sense.
)";

namespace {

Request::Command commandNamed(std::string_view name)
{
    if (name == "export")
        return Request::Command::Export;
    if (name == "upgrade")
        return Request::Command::Upgrade;
    throw UsageError("there is no command \"" + std::string(name) + "\"");
}

int numberFrom1(const std::string& option, std::string_view text, int highest)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < 1 || number > highest)
        throw UsageError(option + " takes a number from 1 to " + std::to_string(highest) + ", not \""
                         + std::string(text) + "\"");
    return number;
}

enum LongOnly { setOption = 1000, versionOption };

constexpr option options[] = {
    {"output", required_argument, nullptr, 'o'},
    {"jobs", required_argument, nullptr, 'j'},
    {"help", no_argument, nullptr, 'h'},
    {"set", no_argument, nullptr, setOption},
    {"version", no_argument, nullptr, versionOption},
    {nullptr, 0, nullptr, 0},
};

void check(const Request& request)
{
    if (request.pictureSet && request.command != Request::Command::Export)
        throw UsageError("--set belongs to export");
    if (request.command == Request::Command::Upgrade && request.folder.empty())
        throw UsageError("upgrade needs -o DIR");
    if (request.maps.empty())
        throw UsageError("no map is named");
}

} // namespace

Request parseCommandLine(int argc, char** argv)
{
    Request request;
    request.jobs = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
    opterr = 0;
    optind = 0;
    int chosen = 0;
    while ((chosen = getopt_long(argc, argv, ":o:j:h", options, nullptr)) != -1) {
        switch (chosen) {
        case 'o':
            request.folder = optarg;
            if (request.folder.empty())
                throw UsageError("-o needs a folder");
            break;
        case 'j':
            request.jobs = numberFrom1("--jobs", optarg, 256);
            break;
        case setOption:
            request.pictureSet = true;
            break;
        case 'h':
            request.command = Request::Command::Help;
            return request;
        case versionOption:
            request.command = Request::Command::Version;
            return request;
        case ':':
            throw UsageError(std::string("\"") + argv[optind - 1] + "\" needs a value");
        default:
            throw UsageError(std::string("there is no option \"") + argv[optind - 1] + "\"");
        }
    }
    if (optind == argc)
        throw UsageError("no command is given");
    request.command = commandNamed(argv[optind]);
    request.maps.assign(argv + optind + 1, argv + argc);
    check(request);
    return request;
}

} // namespace quorrin
