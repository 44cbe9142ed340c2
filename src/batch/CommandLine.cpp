#include "batch/CommandLine.h"

#include "output/StripSheet.h"
#include "toolkit/Picture.h"

#include <getopt.h>

#include <algorithm>
#include <charconv>
#include <set>
#include <string_view>
#include <thread>

namespace quorrin {

// A screen of 24 lines of 80 characters holds it; the manual page tells everything.
const char* const usage = R"(Makes pictures, prints and table top maps of Quorrin maps, without a window.

  quorrin-map-batch COMMAND [OPTION]... MAP.qrnm...

  export     pictures: all four with --set, sharper with --scale N; with --board
             --cell N cut to the squares, N pixels each
  sheet      pictures of the paper characters
  print      PDF files of --what map, script or sheet, with --copies N, on
             --paper A4|Letter, --landscape; in true size with --square LENGTH
             (1in, 25mm), the map also with --board, --bw, --markers
  vtt        Universal VTT files with walls, doors and lights, --cell N pixels a
             square; Fantasy Grounds Unity, MapTool and EncounterPlus open them,
             Foundry VTT and Roll20 with an importer
  thumbnail  a picture of one map, --size N pixels, -o FILE
  upgrade    newer map files of older ones, into another folder

  -o, --output DIR   where the files go (the current folder)
  -j, --jobs N       maps worked on at a time (as many as there are processors)
  -h, --help         shows this; "man quorrin-map-batch" tells all
      --version      shows the version
The exit status is 1 when a map was skipped, 2 when the command makes no sense.
)";

namespace {

using Command = Request::Command;

struct CommandRow {
    Command command;
    const char* name;
};
constexpr CommandRow commands[] = {
    {Command::Export, "export"}, {Command::Sheet, "sheet"},         {Command::Print, "print"},
    {Command::Vtt, "vtt"},       {Command::Thumbnail, "thumbnail"}, {Command::Upgrade, "upgrade"},
};

/// A set of commands.
template <typename... Rest>
constexpr unsigned of(Rest... members)
{
    return ((1U << static_cast<unsigned>(members)) | ...);
}
constexpr unsigned all = ~0U;
constexpr unsigned allOfManyMaps = all & ~of(Command::Thumbnail);

/// What takes the place of a command and of all else.
constexpr unsigned insteadOfAny = 0;

/// Raises UsageError, which names the option.
struct Value {
    std::string option;
    std::string text;

    [[noreturn]] void refuse(const std::string& taken) const
    {
        throw UsageError("--" + option + " takes " + taken + ", not \"" + text + "\"");
    }

    int number(int lowest, int highest) const
    {
        int result = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), result);
        if (error != std::errc() || end != text.data() + text.size() || result < lowest || result > highest)
            refuse("a number from " + std::to_string(lowest) + " to " + std::to_string(highest));
        return result;
    }

    /// In points. Bare numbers are millimetres.
    double length() const
    {
        constexpr double shortest = 5;
        constexpr double longest = 100;
        double result = 0;
        const auto [end, error] =
            std::from_chars(text.data(), text.data() + text.size(), result, std::chars_format::fixed);
        const std::string_view unit(end, static_cast<std::size_t>(text.data() + text.size() - end));
        if (unit == "in")
            result *= 25.4;
        if (error != std::errc() || !(unit.empty() || unit == "mm" || unit == "in")
            || !(result >= shortest && result <= longest))
            refuse("a length from 5mm to 100mm, as 1in or 25mm");
        return millimetres(result);
    }

    template <typename T>
    T choice(const char* taken, std::initializer_list<std::pair<const char*, T>> choices) const
    {
        for (const auto& [name, value] : choices)
            if (text == name)
                return value;
        refuse(taken);
    }
};

/// An option: the commands that it belongs to and how it is set. One of insteadOfAny ends the reading.
struct Option {
    const char* name;
    char letter;
    bool takesValue;
    unsigned commands;
    void (*set)(Request& request, const Value& value);
};

const Option options[] = {
    {"output", 'o', true, all,
     [](Request& request, const Value& value) {
         if (value.text.empty())
             throw UsageError("-o needs a name");
         request.output = value.text;
     }},
    {"jobs", 'j', true, allOfManyMaps,
     [](Request& request, const Value& value) { request.jobs = value.number(1, 256); }},
    {"set", 0, false, of(Command::Export), [](Request& request, const Value&) { request.pictureSet = true; }},
    {"scale", 0, true, of(Command::Export),
     [](Request& request, const Value& value) { request.scale = value.number(1, largestPictureScale); }},
    {"board", 0, false, of(Command::Export, Command::Print),
     [](Request& request, const Value&) { request.board = true; }},
    {"cell", 0, true, of(Command::Export, Command::Vtt),
     [](Request& request, const Value& value) { request.cell = value.number(20, 512); }},
    {"what", 0, true, of(Command::Print),
     [](Request& request, const Value& value) {
         request.what = value.choice<Print>("map, script or sheet",
                                            {{"map", Print::Map}, {"script", Print::Script}, {"sheet", Print::Sheet}});
     }},
    {"square", 0, true, of(Command::Print),
     [](Request& request, const Value& value) { request.square = value.length(); }},
    {"bw", 0, false, of(Command::Print), [](Request& request, const Value&) { request.blackAndWhite = true; }},
    {"markers", 0, false, of(Command::Print), [](Request& request, const Value&) { request.markers = true; }},
    {"paper", 0, true, of(Command::Print),
     [](Request& request, const Value& value) {
         request.paper.name = value.choice<const char*>("A4 or Letter", {{"A4", "A4"}, {"Letter", "Letter"}});
     }},
    {"landscape", 0, false, of(Command::Print), [](Request& request, const Value&) { request.paper.landscape = true; }},
    {"copies", 0, true, of(Command::Print),
     [](Request& request, const Value& value) { request.copies = value.number(1, 999); }},
    {"size", 0, true, of(Command::Thumbnail),
     [](Request& request, const Value& value) { request.size = value.number(16, 1024); }},
    {"help", 'h', false, insteadOfAny, [](Request& request, const Value&) { request.command = Command::Help; }},
    {"version", 0, false, insteadOfAny, [](Request& request, const Value&) { request.command = Command::Version; }},
};

using Given = std::set<std::string_view>;

/// What makes no sense together within a command.
struct Rule {
    Command command;
    bool (*broken)(const Request& request, const Given& given);
    const char* complaint;
};

const Rule rules[] = {
    {Command::Upgrade, [](const Request& request, const Given&) { return request.output.empty(); },
     "upgrade needs -o DIR"},
    {Command::Thumbnail, [](const Request& request, const Given&) { return request.output.empty(); },
     "thumbnail needs -o FILE"},
    {Command::Thumbnail, [](const Request& request, const Given&) { return request.maps.size() > 1; },
     "thumbnail makes the picture of one map only"},
    {Command::Export,
     [](const Request&, const Given& given) { return given.contains("board") != given.contains("cell"); },
     "--board and --cell N belong together"},
    {Command::Export,
     [](const Request&, const Given& given) { return given.contains("board") && given.contains("scale"); },
     "--scale does not go with --board: --cell N says how many pixels there are"},
    {Command::Print,
     [](const Request& request, const Given&) { return request.square > 0 && request.what == Print::Script; },
     "--square belongs to prints of the map and of the sheet"},
    {Command::Print,
     [](const Request& request, const Given& given) {
         const bool trueSizeMap = request.square > 0 && request.what == Print::Map;
         return !trueSizeMap && (given.contains("board") || given.contains("bw") || given.contains("markers"));
     },
     "--board, --bw and --markers belong to prints of the map with --square LENGTH"},
    {Command::Print,
     [](const Request& request, const Given&) {
         return request.square > 0 && request.what == Print::Sheet && !stripSheet(request.square, 1, request.paper);
     },
     "characters for squares of that size do not fit on the paper"},
};

Command commandNamed(std::string_view name)
{
    const auto* row = std::ranges::find_if(commands, [&](const CommandRow& known) { return name == known.name; });
    if (row == std::end(commands))
        throw UsageError("there is no command \"" + std::string(name) + "\"");
    return row->command;
}

std::string namesOf(unsigned members)
{
    std::string names;
    for (const auto& [command, name] : commands)
        if (members & of(command))
            names += (names.empty() ? "" : " and ") + std::string(name);
    return names;
}

void check(const Request& request, const Given& given)
{
    for (const Option& option : options)
        if (given.contains(option.name) && !(option.commands & of(request.command)))
            throw UsageError("--" + std::string(option.name)
                             + (option.commands == allOfManyMaps ? " does not belong to " + namesOf(of(request.command))
                                                                 : " belongs to " + namesOf(option.commands)));
    if (request.maps.empty())
        throw UsageError("no map is named");
    for (const Rule& rule : rules)
        if (rule.command == request.command && rule.broken(request, given))
            throw UsageError(rule.complaint);
}

/// The next option of the command line, nil when there is none.
const Option* nextOption(int argc, char** argv)
{
    constexpr int firstLong = 1000;
    static const auto longForms = [] {
        std::vector<option> forms;
        for (const Option& known : options)
            forms.push_back({known.name, known.takesValue ? required_argument : no_argument, nullptr,
                             firstLong + static_cast<int>(forms.size())});
        forms.push_back({});
        return forms;
    }();
    const int found = getopt_long(argc, argv, ":o:j:h", longForms.data(), nullptr);
    if (found == -1)
        return nullptr;
    if (found == ':')
        throw UsageError(std::string("\"") + argv[optind - 1] + "\" needs a value");
    if (found == '?')
        throw UsageError(std::string("there is no option \"") + argv[optind - 1] + "\"");
    return found >= firstLong ? &options[found - firstLong]
                              : std::ranges::find(options, static_cast<char>(found), &Option::letter);
}

} // namespace

Request parseCommandLine(int argc, char** argv)
{
    Request request;
    request.jobs = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
    opterr = 0;
    optind = 0;
    Given given;
    while (const Option* known = nextOption(argc, argv)) {
        known->set(request, {known->name, optarg ? optarg : ""});
        if (known->commands == insteadOfAny)
            return request;
        given.insert(known->name);
    }
    if (optind == argc)
        throw UsageError("no command is given");
    request.command = commandNamed(argv[optind]);
    request.maps.assign(argv + optind + 1, argv + argc);
    check(request, given);
    return request;
}

} // namespace quorrin
