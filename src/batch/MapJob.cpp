#include "batch/MapJob.h"

#include "app/App.h"
#include "characters/Roster.h"
#include "document/DocumentName.h"
#include "document/Module1.h"
#include "document/Window1.h"
#include "output/Export.h"
#include "output/StripSheet.h"
#include "output/TiledPrint.h"
#include "output/UniversalVtt.h"
#include "toolkit/Printing.h"
#include "toolkit/ScriptedPlatform.h"
#include "toolkit/SystemFiles.h"

#include <filesystem>
#include <functional>
#include <random>
#include <stdexcept>

namespace quorrin {

namespace fs = std::filesystem;

namespace {

/// How the names of the folders begin in which the workers of this run make their results. They inherit it.
const std::string stagingPrefix = ".quorrin-map-" + std::to_string(std::random_device()()) + "-";

/// A folder beside the results in which they are made, so that they come into place whole and together.
class Staging {
public:
    explicit Staging(fs::path target) : target_(std::move(target))
    {
        fs::create_directories(target_);
        std::error_code error;
        folder_ = makeUnusedPrivateFolder((target_ / stagingPrefix).string(), error);
        if (error)
            throw std::runtime_error("The folder \"" + target_.string() + "\" cannot be written to.");
    }
    ~Staging()
    {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    Staging(const Staging&) = delete;
    Staging& operator=(const Staging&) = delete;

    Ref<FolderItem> file(const std::string& name) const { return New<FolderItem>((folder_ / name).string()); }

    /// All of them, or none and everything as it was.
    void publish(const std::vector<std::string>& names) const
    {
        const std::lock_guard lock(publishing);
        std::size_t published = 0;
        try {
            for (; published < names.size(); ++published) {
                const auto place = target_ / names[published];
                if (fs::is_directory(place))
                    throw std::runtime_error("\"" + place.string() + "\" is a folder.");
                if (published + 1 < names.size() && fs::exists(fs::symlink_status(place)))
                    keep(place, earlier(published));
                fs::rename(folder_ / names[published], place);
            }
        } catch (const std::exception&) {
            for (std::size_t i = 0; i <= published; ++i)
                putBack(target_ / names[i], earlier(i), i < published);
            throw;
        }
    }

private:
    /// Where the file is kept whose place the result of that number takes.
    fs::path earlier(std::size_t number) const { return folder_ / std::to_string(number); }

    /// Under a second name, so that there is no moment without the file; or elsewhere, where files have one name only.
    static void keep(const fs::path& place, const fs::path& earlier)
    {
        std::error_code failure;
        fs::create_hard_link(place, earlier, failure);
        if (failure)
            fs::rename(place, earlier);
    }

    static void putBack(const fs::path& place, const fs::path& earlier, bool isTaken)
    {
        std::error_code ignored;
        if (fs::exists(fs::symlink_status(earlier, ignored)))
            fs::rename(earlier, place, ignored);
        else if (isTaken)
            fs::remove(place, ignored);
    }

    fs::path target_;
    fs::path folder_;
};

/// File managers make thumbnails of whatever lies in a folder, unasked.
constexpr std::uintmax_t largestThumbnailMap = 64 << 20;

void refuseHuge(const std::string& map)
{
    std::error_code fault;
    const auto size = fs::file_size(map, fault);
    if (!fault && size > largestThumbnailMap)
        throw std::runtime_error("The file is too large for a thumbnail.");
}

void open(Window1& window, const ScriptedPlatform& platform, const std::string& map)
{
    const auto file = New<FolderItem>(map);
    if (!fs::exists(map))
        throw std::runtime_error("There is no such file.");
    if (!TextInputStream::Open(file))
        throw std::runtime_error("The file cannot be read.");
    window.mOpen(file);
    if (!platform.messages.empty())
        throw std::runtime_error(platform.messages.front());
}

void printFillingPages(Print what, Window1& window)
{
    switch (what) {
    case Print::Map:
        window.ChooseMenu("mnuPrint");
        break;
    case Print::Script:
        window.btnPrint.Push();
        break;
    case Print::Sheet:
        window.btnPrintCharacters.Push();
        break;
    }
}

using OpenPages = std::function<std::unique_ptr<Graphics>(const PrinterSetup& setup)>;

/// Prints on pages of this paper, each copy as a whole.
void printCopies(const Paper& paper, const OpenPages& openPages, const std::function<void(Graphics&)>& print)
{
    const auto g = openPages(setupOfWholePaper(paper.name, paper.landscape));
    for (int copy = 1; copy <= g->Copies; ++copy) {
        print(*g);
        if (copy < g->Copies)
            g->NextPage();
    }
}

void printMapInTrueSize(const Request& request, Window1& window, const OpenPages& openPages)
{
    const PrintedMap map{request.square, request.board};
    inVersions(window, [&](const ComposeVersion& compose) {
        compose({request.markers, request.blackAndWhite});
        const auto tiles = tiledPrint(window, map, request.paper);
        printCopies(tiles.paper, openPages, [&](Graphics& g) { printTiles(g, tiles, window, map); });
    });
}

void printCharactersInTrueSize(const Request& request, const Window1& window, const OpenPages& openPages)
{
    const auto characters = charactersToCut(window);
    if (characters.empty())
        throw std::runtime_error("No character has a figure or a number.");
    const auto sheet = stripSheet(request.square, static_cast<int>(characters.size()), request.paper).value();
    printCopies(sheet.paper, openPages, [&](Graphics& g) { printStrips(g, sheet, characters); });
}

void print(const Request& request, Window1& window, const OpenPages& openPages)
{
    if (request.square == 0)
        printFillingPages(request.what, window);
    else if (request.what == Print::Map)
        printMapInTrueSize(request, window, openPages);
    else
        printCharactersInTrueSize(request, window, openPages);
}

void write(const Ref<FolderItem>& file, const std::string& text)
{
    const auto stream = TextOutputStream::Create(file);
    if (!stream)
        throw std::runtime_error("The file \"" + file->Name() + "\" cannot be created.");
    stream->Write(text);
    stream->Close();
}

/// `file` is the first, for most the only one, that the request writes.
void carryOut(const Request& request, Window1& window, const Ref<FolderItem>& file, const OpenPages& openPages)
{
    switch (request.command) {
    case Request::Command::Export:
        window.exportScale = request.scale;
        window.exportCell = request.board ? request.cell : 0;
        window.ChooseMenu(request.pictureSet ? "mnuExportPictureSeries" : "mnuSavePicture");
        break;
    case Request::Command::Sheet:
        window.btnSaveCharacters.Push();
        break;
    case Request::Command::Print:
        print(request, window, openPages);
        break;
    case Request::Command::Vtt:
        write(file, universalVtt(window, request.cell));
        break;
    case Request::Command::Thumbnail:
        thumbnailPicture(window, request.size)->Save(file, PictureFormat::Png, 100);
        break;
    case Request::Command::Upgrade:
        if (!window.mSave())
            throw std::runtime_error("The map cannot be written.");
        break;
    case Request::Command::Help:
    case Request::Command::Version:
        break;
    }
}

} // namespace

std::mutex publishing;

fs::path targetFolder(const Request& request)
{
    const fs::path output(request.output);
    const auto folder = request.command == Request::Command::Thumbnail ? output.parent_path() : output;
    return folder.empty() ? fs::path(".") : folder;
}

std::vector<std::string> outputNames(const Request& request, const std::string& map)
{
    const auto fileName = fs::path(map).filename().string();
    const auto name = documentName(fileName);
    switch (request.command) {
    case Request::Command::Upgrade:
        return {fileName};
    case Request::Command::Sheet:
        return {sheetFileName(name)};
    case Request::Command::Print:
        return {printTitle(name, request.what) + ".pdf"};
    case Request::Command::Vtt:
        return {vttFileName(name)};
    case Request::Command::Thumbnail:
        return {fs::path(request.output).filename().string()};
    default:
        return request.pictureSet ? seriesFileNames(name) : std::vector{pictureFileName(name)};
    }
}

std::string runJob(const Request& request, const std::string& map)
{
    const auto names = outputNames(request, map);
    std::error_code ignored;
    for (const auto& name : names)
        if (fs::equivalent(targetFolder(request) / name, map, ignored))
            throw std::runtime_error("The result would replace the map itself.");

    ScriptedPlatform platform;
    UnattendedApp app;
    app.Event_Open();
    Window1 window;
    window.Event_Open();
    if (request.command == Request::Command::Thumbnail)
        refuseHuge(map);
    open(window, platform, map);

    const Staging staging(targetFolder(request));
    const bool keepsFileName = request.command == Request::Command::Upgrade;
    platform.save = [&](const std::string& proposed) { return staging.file(keepsFileName ? names[0] : proposed); };
    const auto& paper = request.paper.name.empty() ? "A4" : request.paper.name;
    Module1::myPrinterSetup = New<PrinterSetup>(setupOfPaper(paper, request.paper.landscape));
    platform.printer = [&](const PrinterSetup& setup) {
        return printToPdf(staging.file(names[0])->Path(), setup, request.copies,
                          [&](const std::string& fault) { platform.MsgBox(fault); });
    };
    carryOut(request, window, staging.file(names[0]), platform.printer);
    if (!platform.messages.empty())
        throw std::runtime_error(platform.messages.front());
    staging.publish(names);
    return window.UnreadPictures;
}

void removeBegun(const Request& request)
{
    std::error_code failure;
    std::vector<fs::path> begun;
    for (fs::directory_iterator entry(targetFolder(request), failure), end; !failure && entry != end;
         entry.increment(failure))
        if (entry->path().filename().string().starts_with(stagingPrefix))
            begun.push_back(entry->path());
    for (const auto& folder : begun)
        fs::remove_all(folder, failure);
}

} // namespace quorrin
