#include "batch/CommandLine.h"

#include "toolkit/Picture.h"

#include <getopt.h>

#include <algorithm>
#include <charconv>
#include <string_view>
#include <thread>

namespace quorrin {

const char* const usage = R"(Makes pictures and prints of Quorrin maps, and newer map files of older ones,
without a window.

  quorrin-map-batch export [--set] [--scale N] [-o DIR] MAP.qrnm...
      writes "Quorrin Map NAME.png" for each map; with --set the four pictures
      for players and Dungeon Master, in color and in black and white; with
      --scale N times as sharp (1 to 8)
  quorrin-map-batch sheet [-o DIR] MAP.qrnm...
      writes "NAME Character Sheet.jpg" for each map
  quorrin-map-batch print [--what map|script|sheet] [--paper A4|Letter]
                          [--landscape] [--copies N] [-o DIR] MAP.qrnm...
      prints "NAME Map.pdf", "NAME Script.pdf" or "NAME Character Sheet.pdf"
      for each map; the map in portrait on A4 when not told otherwise
  quorrin-map-batch upgrade -o DIR MAP.qrnm...
      writes each map, of whatever age, in the newest form under its own name

  -o, --output DIR   where the files go; made when it is not there
                     (the current folder when not given)
  -j, --jobs N       how many maps are worked on at a time (as many as there
                     are processors)
  -h, --help         shows this
      --version      shows the version

A map that cannot be read is told and skipped; the exit status is 1 then, and
2 when the command itself makes no sense. A picture in a map that cannot be
read is told and left out; the exit status is 0 then.
)";

namespace {

/// The value of that name, or a UsageError that begins with the complaint.
template <typename T>
T choice(const char* complaint, std::string_view name, std::initializer_list<std::pair<const char*, T>> choices)
{
    for (const auto& [known, value] : choices)
        if (name == known)
            return value;
    throw UsageError(std::string(complaint) + " \"" + std::string(name) + "\"");
}

Request::Command commandNamed(std::string_view name)
{
    using Command = Request::Command;
    return choice<Command>("there is no command", name,
                           {{"export", Command::Export},
                            {"sheet", Command::Sheet},
                            {"print", Command::Print},
                            {"upgrade", Command::Upgrade}});
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

enum LongOnly { setOption = 1000, scaleOption, whatOption, paperOption, landscapeOption, copiesOption, versionOption };

constexpr option options[] = {
    {"output", required_argument, nullptr, 'o'},
    {"jobs", required_argument, nullptr, 'j'},
    {"help", no_argument, nullptr, 'h'},
    {"set", no_argument, nullptr, setOption},
    {"scale", required_argument, nullptr, scaleOption},
    {"what", required_argument, nullptr, whatOption},
    {"paper", required_argument, nullptr, paperOption},
    {"landscape", no_argument, nullptr, landscapeOption},
    {"copies", required_argument, nullptr, copiesOption},
    {"version", no_argument, nullptr, versionOption},
    {nullptr, 0, nullptr, 0},
};

void check(const Request& request, bool exportOptions, bool printOptions)
{
    if (printOptions && request.command != Request::Command::Print)
        throw UsageError("--what, --paper, --landscape and --copies belong to print");
    if (exportOptions && request.command != Request::Command::Export)
        throw UsageError("--set and --scale belong to export");
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
    bool exportOptions = false;
    bool printOptions = false;
    while ((chosen = getopt_long(argc, argv, ":o:j:h", options, nullptr)) != -1) {
        exportOptions = exportOptions || chosen == setOption || chosen == scaleOption;
        printOptions = printOptions || (chosen >= whatOption && chosen <= copiesOption);
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
        case scaleOption:
            request.scale = numberFrom1("--scale", optarg, largestPictureScale);
            break;
        case whatOption:
            request.what = choice<Print>(
                "--what takes map, script or sheet, not", optarg,
                {{"map", Print::Map}, {"script", Print::Script}, {"sheet", Print::Sheet}});
            break;
        case paperOption:
            request.paper =
                choice<const char*>("--paper takes A4 or Letter, not", optarg, {{"A4", "A4"}, {"Letter", "Letter"}});
            break;
        case landscapeOption:
            request.landscape = true;
            break;
        case copiesOption:
            request.copies = numberFrom1("--copies", optarg, 999);
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
    check(request, exportOptions, printOptions);
    return request;
}

} // namespace quorrin
