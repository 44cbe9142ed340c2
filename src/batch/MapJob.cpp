#include "batch/MapJob.h"

#include "app/App.h"
#include "app/Module1.h"
#include "characters/Roster.h"
#include "document/DocumentName.h"
#include "document/Window1.h"
#include "output/Export.h"
#include "toolkit/Printing.h"
#include "toolkit/ScriptedPlatform.h"
#include "toolkit/Text.h"

#include <unistd.h>

#include <filesystem>
#include <stdexcept>

namespace quorrin {

namespace fs = std::filesystem;

namespace {

/// A folder beside the results in which they are made, so that they come into place whole and together.
class Staging {
public:
    explicit Staging(fs::path target) : target_(std::move(target))
    {
        fs::create_directories(target_);
        std::string pattern = (target_ / ".quorrin-map-XXXXXX").string();
        if (!mkdtemp(pattern.data()))
            throw std::runtime_error("The folder \"" + target_.string() + "\" cannot be written to.");
        folder_ = pattern;
    }
    ~Staging()
    {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    Staging(const Staging&) = delete;
    Staging& operator=(const Staging&) = delete;

    Ref<FolderItem> file(const std::string& name) const { return New<FolderItem>((folder_ / name).string()); }

    void publish(const std::vector<std::string>& names) const
    {
        for (const auto& name : names)
            if (fs::is_directory(target_ / name))
                throw std::runtime_error("\"" + (target_ / name).string() + "\" is a folder.");
        for (const auto& name : names)
            fs::rename(folder_ / name, target_ / name);
    }

private:
    fs::path target_;
    fs::path folder_;
};

fs::path targetFolder(const Request& request)
{
    return request.folder.empty() ? fs::path(".") : fs::path(request.folder);
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

void print(Print what, Window1& window)
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

void carryOut(const Request& request, Window1& window)
{
    switch (request.command) {
    case Request::Command::Export:
        window.exportScale = request.scale;
        window.ChooseMenu(request.pictureSet ? "mnuExportPictureSeries" : "mnuSavePicture");
        break;
    case Request::Command::Sheet:
        window.btnSaveCharacters.Push();
        break;
    case Request::Command::Print:
        print(request.what, window);
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
    open(window, platform, map);

    const Staging staging(targetFolder(request));
    const bool keepsFileName = request.command == Request::Command::Upgrade;
    platform.save = [&](const std::string& proposed) { return staging.file(keepsFileName ? names[0] : proposed); };
    Module1::myPrinterSetup = New<PrinterSetup>(setupOfPaper(request.paper, request.landscape));
    platform.printer = [&](const PrinterSetup& setup) {
        return printToPdf(staging.file(names[0])->Path(), setup, request.copies,
                          [&](const std::string& fault) { platform.MsgBox(fault); });
    };
    carryOut(request, window);
    if (!platform.messages.empty())
        throw std::runtime_error(platform.messages.front());
    staging.publish(names);
    return window.UnreadPictures;
}

} // namespace quorrin
