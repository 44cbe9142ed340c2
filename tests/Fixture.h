#pragma once

#include "app/App.h"
#include "document/Module1.h"
#include "document/Window1.h"
#include "toolkit/ScriptedPlatform.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <tuple>

/// A folder of its own for each test. Preferences and recovery copies land there too.
class TestFolder {
public:
    TestFolder() : path((std::filesystem::temp_directory_path() / "quorrin-XXXXXX").string())
    {
        if (!mkdtemp(path.data()))
            throw std::runtime_error("cannot make " + path);
        setenv("XDG_DATA_HOME", path.c_str(), true);
        setenv("XDG_STATE_HOME", path.c_str(), true);
    }
    ~TestFolder() { std::filesystem::remove_all(path); }

    quorrin::Ref<quorrin::FolderItem> file(const std::string& name) const
    {
        return quorrin::New<quorrin::FolderItem>(path + "/" + name);
    }

    std::string operator/(const std::string& name) const { return path + "/" + name; }

    std::string path;
};

inline std::string contentOf(const std::string& path)
{
    std::ostringstream all;
    all << std::ifstream(path, std::ios::binary).rdbuf();
    return all.str();
}

inline void writeFile(const std::string& path, const std::string& content)
{
    std::ofstream(path, std::ios::binary) << content;
}

inline quorrin::Color pixelOf(const quorrin::Ref<quorrin::Picture>& picture, std::int64_t x, std::int64_t y)
{
    return picture->RGBSurface().Pixel(x, y);
}

template <typename Visit>
void forEachPixel(std::int64_t width, std::int64_t height, Visit visit)
{
    for (std::int64_t at = 0; at < width * height; ++at)
        visit(at % width, at / width);
}

constexpr quorrin::Color clear = quorrin::RGB(0, 0, 0, 255);

// How failures show values.
namespace quorrin {
inline void PrintTo(const Color& color, std::ostream* out)
{
    *out << "RGB(" << +color.red << ", " << +color.green << ", " << +color.blue << ", " << +color.transparency << ")";
}
inline void PrintTo(const cWall& wall, std::ostream* out)
{
    *out << "wall " << wall.toSave();
}
inline void PrintTo(const Ref<cSquare>& square, std::ostream* out)
{
    *out << "square " << (square ? square->toSave() : "nil");
}
inline void PrintTo(const Ref<Picture>& picture, std::ostream* out)
{
    *out << "picture " << picture.get();
}
} // namespace quorrin

/// Whether two pictures are alike, or which pixel is the first that differs by more than this in a channel.
inline testing::AssertionResult alike(const quorrin::Ref<quorrin::Picture>& got,
                                      const quorrin::Ref<quorrin::Picture>& wanted, int tolerance = 0)
{
    const std::pair size(got->Width(), got->Height()), wantedSize(wanted->Width(), wanted->Height());
    if (size != wantedSize)
        return testing::AssertionFailure()
               << testing::PrintToString(size) << ", not " << testing::PrintToString(wantedSize);
    auto result = testing::AssertionSuccess();
    forEachPixel(size.first, size.second, [&](auto x, auto y) {
        const auto a = pixelOf(got, x, y), b = pixelOf(wanted, x, y);
        const auto apart = [=](int one, int other) { return std::abs(one - other) > tolerance; };
        if (result
            && (apart(a.red, b.red) || apart(a.green, b.green) || apart(a.blue, b.blue)
                || apart(a.transparency, b.transparency)))
            result = testing::AssertionFailure()
                     << testing::PrintToString(a) << " at " << x << "," << y << ", not " << testing::PrintToString(b);
    });
    return result;
}

inline std::string bytesOf(const quorrin::Ref<quorrin::Picture>& picture)
{
    return picture->ToData(quorrin::PictureFormat::Png, 100);
}

/// The program as it stands after its start, with nobody at it.
class Program : public testing::Test {
private:
    struct StartedApp : quorrin::App {
        StartedApp()
        {
            quorrin::Module1::gOpenFile = nullptr;
            quorrin::Module1::myPrinterSetup = nullptr;
            Event_Open();
        }
    };

protected:
    Program() { window.Event_Open(); }

    /// Opens a file of this content and tells the messages that were shown.
    std::vector<std::string> open(const std::string& content)
    {
        writeFile(folder / "Map.qrnm", content);
        person.messages.clear();
        window.mOpen(folder.file("Map.qrnm"));
        return person.messages;
    }

    /// The flags of a wall set with their boxes and their entries in the contextual menu.
    std::vector<std::tuple<quorrin::CheckBox*, bool quorrin::cWall::*, const char*>> wallFlags()
    {
        using quorrin::cWall;
        auto& w = window;
        return {{&w.CheckBox1, &cWall::Top, "Toggle Top Wall"},
                {&w.CheckBox2, &cWall::Bottom, "Toggle Bottom Wall"},
                {&w.CheckBox3, &cWall::Left, "Toggle Left Wall"},
                {&w.CheckBox4, &cWall::Right, "Toggle Right Wall"},
                {&w.CheckBox5, &cWall::Slash, "Toggle Slash Wall"},
                {&w.CheckBox6, &cWall::BackSlash, "Toggle Backslash Wall"},
                {&w.cbDoorTop, &cWall::DoorTop, "Toggle Door Top"},
                {&w.cbDoorBottom, &cWall::DoorBottom, "Toggle Door Bottom"},
                {&w.cbDoorLeft, &cWall::DoorLeft, "Toggle Door Left"},
                {&w.cbDoorRight, &cWall::DoorRight, "Toggle Door Right"}};
    }

    /// The entry of a menu, or of a submenu, that has this text.
    static quorrin::Ref<quorrin::MenuItem> entryOf(const quorrin::MenuItem& menu, const std::string& text)
    {
        for (const auto& item : menu.Items()) {
            if (item->Text == text)
                return item;
            if (auto found = entryOf(*item, text))
                return found;
        }
        return nullptr;
    }

    /// From now on answers questions, which are to have this text and these buttons beside "Cancel".
    void answer(quorrin::MessageDialog::Answer given, const std::string& message, const std::string& action,
                const std::string& alternate = "")
    {
        person.ask = [=](const quorrin::MessageDialog& dialog) {
            EXPECT_EQ(dialog.Message, message);
            EXPECT_EQ(dialog.ActionButton.Caption, action);
            const auto& other = dialog.AlternateActionButton;
            EXPECT_EQ(other.Visible ? other.Caption : "", alternate);
            EXPECT_EQ(dialog.CancelButton.Caption, "Cancel");
            EXPECT_EQ(dialog.Icon, 3);
            EXPECT_TRUE(dialog.CancelButton.Visible);
            return given;
        };
    }

    /// Visits every place of the map, whether it lies on the page or not: column, row, and the squares of both layers.
    template <typename Visit>
    void eachSquare(Visit visit)
    {
        for (int n = 0; n < 144; ++n)
            visit(n / 12 + 1, n % 12 + 1, *window.mySquares(n / 12 + 1, n % 12 + 1),
                  *window.mySquaresTop(n / 12 + 1, n % 12 + 1));
    }

    quorrin::Color pixel(std::int64_t x, std::int64_t y) { return pixelOf(window.myImage, x, y); }

    static void click(quorrin::MouseControl& canvas, int x = 5, int y = 5, bool contextual = false)
    {
        canvas.Press(x, y, contextual);
        canvas.Release(x, y);
    }

    /// What an action does beyond its own subject: it composes the page anew, it makes the map dirty.
    struct Effect {
        bool composed;
        bool dirty;
        friend bool operator==(const Effect&, const Effect&) = default;
    };
    static constexpr Effect nothing{false, false};
    static constexpr Effect composed{true, false};
    static constexpr Effect dirty{false, true};
    static constexpr Effect both{true, true};

    template <typename Action>
    Effect effectOf(Action action)
    {
        window.isDirty = false;
        const auto image = window.myImage;
        action();
        return {!(window.myImage == image), window.isDirty};
    }

    /// How often a control is to be painted anew by an action.
    template <typename Action>
    static int paintings(quorrin::Control& control, Action action)
    {
        struct : quorrin::ControlView {
            void Sync() override {}
            void Repaint() override { ++times; }
            void TakeFocus() override {}
            int times = 0;
        } view;
        control.View = &view;
        action();
        control.View = nullptr;
        return view.times;
    }

    TestFolder folder;
    quorrin::ScriptedPlatform person;
    StartedApp app;
    quorrin::Window1 window;
};
