#include "Model.h"
#include "PageModel.h"

#include "app/App.h"
#include "characters/frmCharacter.h"
#include "document/Window1.h"
#include "toolkit/Application.h"
#include "toolkit/Printing.h"
#include "toolkit/Random.h"
#include "toolkit/ScriptedPlatform.h"
#include "userpicture/frmEditUserPicture.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <unistd.h>

// A person who never tires: works on maps at random through the real controls, menus and dialogs, and compares the
// document with a plain model of it. usage: quorrin-soak OPERATIONS [SEED]

using namespace quorrin;

namespace {

class Soak {
public:
    Soak(const std::string& folder, std::uint64_t seed) : folder_(folder), random_(seed)
    {
        Random::SeedAll(seed);
        app_.Event_Open();
        window_.Event_Open();
        person_.ask = [this](const MessageDialog&) { return answer_; };
        person_.save = [this](const std::string&) { return saveFile_; };
        person_.open = [this](const FileFilter&) { return openFile_; };
        person_.popUp = [this](const MenuItem& menu) { return chosen_ = chance(10) ? nullptr : leaf(menu); };
        person_.selectColor = [this](Color& color) { return color = colorFromNumber(color_), true; };
        person_.pageSetup = [this](PrinterSetup& setup) { return setup.SetupString = "size=400x600", chance(2); };
        person_.printer = [this](const PrinterSetup& setup) { return printToPdf(folder_ + "/Print.pdf", setup, 1); };
        for (const int side : {20, 90, 300})
            New<Picture>(side, side + 9, 32)->Save(file("Icon" + Str(side)), PictureFormat::Png, 100);
        std::ofstream(folder_ + "/Icon0") << "no picture";
    }

    void operate()
    {
        answer_ = static_cast<MessageDialog::Answer>(upTo(2));
        slot_ = upTo(3);
        saveFile_ = slot_ == 3 ? nullptr : file("Map" + Str(slot_) + ".qrnm");
        color_ = static_cast<unsigned>(upTo(0xFFFFFF));
        chosen_ = nullptr;
        static constexpr struct {
            int weight;
            void (Soak::*run)();
        } operations[] = {
            {30, &Soak::clickMap},   {15, &Soak::clickForMenu}, {10, &Soak::changeTab},  {12, &Soak::changeSetting},
            {6, &Soak::changeTools}, {6, &Soak::changeChecks},  {3, &Soak::clearOrFill}, {2, &Soak::makeMaze},
            {4, &Soak::write},       {3, &Soak::editToken},     {1, &Soak::editPicture}, {2, &Soak::save},
            {3, &Soak::open},        {1, &Soak::begin},         {3, &Soak::look},        {1, &Soak::putOut}};
        int left = static_cast<int>(upTo(101));
        for (const auto& operation : operations)
            if ((left -= operation.weight) < 0)
                return (this->*operation.run)();
    }

    bool isAsTheModel()
    {
        return window_.MapText() == model_.text() && window_.isDirty == model_.dirty
               && window_.mySavedFileName == model_.name && window_.txtMonster.Text == model_.fields[0]
               && window_.txtGameText.Text == model_.fields[1];
    }

    /// The first pixel that the page shows otherwise than its model; empty when there is none.
    std::string wrongPixel()
    {
        const auto got = window_.myImage, wanted = modelPage(window_);
        if (got->Width() != wanted->Width())
            return "It is " + Str(got->Width()) + " wide";
        const auto text = [](const Color& c) { return Str(c.red) + " " + Str(c.green) + " " + Str(c.blue); };
        for (std::int64_t at = 0; at < got->Width() * got->Height(); ++at) {
            const auto x = at % got->Width(), y = at / got->Width();
            const Color shown = got->RGBSurface().Pixel(x, y), rule = wanted->RGBSurface().Pixel(x, y);
            const auto apart = [](int one, int other) { return std::abs(one - other) > 0; };
            if (apart(shown.red, rule.red) || apart(shown.green, rule.green) || apart(shown.blue, rule.blue))
                return Str(x) + "," + Str(y) + " is " + text(shown) + " instead of " + text(rule);
        }
        return {};
    }

private:
    std::int64_t upTo(std::int64_t highest) { return std::uniform_int_distribution<std::int64_t>(0, highest)(random_); }
    bool chance(int oneIn) { return upTo(oneIn - 1) == 0; }
    Ref<FolderItem> file(const std::string& name) { return New<FolderItem>(folder_ + "/" + name); }

    Ref<MenuItem> leaf(const MenuItem& menu)
    {
        const auto& items = menu.Items();
        const auto& item = items[static_cast<std::size_t>(upTo(static_cast<std::int64_t>(items.size()) - 1))];
        return item->IsSeparator() ? leaf(menu) : item->Items().empty() ? item : leaf(*item);
    }
    static std::int64_t numberIn(const std::string& tag)
    {
        return std::strtoll(tag.c_str() + tag.rfind('-') + 1, nullptr, 10);
    }

    static void click(MouseControl& control, int x, int y, bool contextual = false)
    {
        control.Press(x, y, contextual);
        control.Release(x, y);
    }

    Model::Layer& drawingLayer() { return objectLayer_ == 0 ? model_.bottom : model_.top; }

    template <typename Edit>
    void change(Model::Layer& layer, Edit edit)
    {
        for (ModelSquare& square : layer)
            edit(square);
        model_.dirty = true;
    }

    void changeTab() { window_.TabPanel1.Value = tab_ = static_cast<int>(upTo(4)); }

    void clickMap()
    {
        const int x = static_cast<int>(upTo(800)), y = static_cast<int>(upTo(800));
        click(window_.Canvas1, x, y);
        if (tab_ < 2)
            return;
        if (ModelSquare* square = Model::hit(tab_ == 3 ? drawingLayer() : model_.bottom, x, y)) {
            if (tab_ == 2)
                square->walls = walls_, square->color = wallColor_;
            else
                (tab_ == 3 ? square->object : square->marker) = tab_ == 3 ? object_ : marker_;
            model_.dirty = true;
        }
    }

    void clickForMenu()
    {
        const int x = static_cast<int>(upTo(800)), y = static_cast<int>(upTo(800));
        ModelSquare* square = Model::hit(tab_ == 3 ? drawingLayer() : model_.bottom, x, y);
        click(window_.Canvas1, x, y, true);
        if (!chosen_)
            return;
        const std::string text = chosen_->Text;
        if (tab_ < 2) {
            tab_ = text == "Switch to Walls" ? 2 : text == "Switch to Objects" ? 3 : 4;
            return;
        }
        if (tab_ == 3)
            square->object = object_ = numberIn(chosen_->Tag);
        else if (tab_ == 4)
            square->marker = marker_ = numberIn(chosen_->Tag);
        else if (text == "Clear Walls")
            square->walls = {}, square->color = 0;
        static const char* const toggles[] = {"Top Wall",    "Left Wall",      "Bottom Wall", "Right Wall",
                                              "Slash Wall",  "Backslash Wall", "Door Top",    "Door Left",
                                              "Door Bottom", "Door Right"};
        for (std::size_t n = 0; n < 10 && tab_ == 2; ++n)
            square->walls[n] = square->walls[n] != (text == std::string("Toggle ") + toggles[n]);
        model_.dirty = true;
    }

    void changeSetting()
    {
        PopupMenu* const popups[] = {&window_.pmLandscape,  &window_.pmBackground, &window_.pmGrid,
                                     &window_.pmColorBW,    &window_.pmBorderTop,  &window_.pmBorderBottom,
                                     &window_.pmBorderLeft, &window_.pmBorderRight};
        const auto which = static_cast<std::size_t>(upTo(Model::settings - 1));
        model_.setting[which] = upTo(popups[which]->ListCount() - 1);
        popups[which]->ListIndex = model_.setting[which];
        if (which == Model::Landscape)
            model_.place(model_.setting[which]);
        model_.dirty = true;
    }

    void changeTools()
    {
        std::pair<PopupMenu&, std::int64_t&> const popups[] = {{window_.pmVisibleLayers, visibleLayers_},
                                                               {window_.pmObjectLayer, objectLayer_},
                                                               {window_.pmObjects, object_},
                                                               {window_.pmDM, marker_}};
        const auto& [popup, value] = popups[upTo(3)];
        popup.ListIndex = value = upTo(popup.ListCount() - 1);
        MouseControl& palette = chance(2) ? window_.Canvas3 : window_.cvDMPreview;
        click(palette, 1, 1);
        if (chosen_)
            (&palette == &window_.Canvas3 ? object_ : marker_) = numberIn(chosen_->Tag);
    }

    void changeChecks()
    {
        CheckBox* const boxes[] = {&window_.CheckBox1,    &window_.CheckBox3,  &window_.CheckBox2, &window_.CheckBox4,
                                   &window_.CheckBox5,    &window_.CheckBox6,  &window_.cbDoorTop, &window_.cbDoorLeft,
                                   &window_.cbDoorBottom, &window_.cbDoorRight};
        const auto which = static_cast<std::size_t>(upTo(13));
        if (which < 10) {
            boxes[which]->Value = walls_[which] = !walls_[which];
        } else if (which == 10) {
            window_.PushButton3.Push();
            walls_ = {};
        } else if (which == 11) {
            click(window_.rWallColor, 1, 1);
            wallColor_ = color_;
        } else if (which == 12) {
            window_.cbShowClickable.Value = model_.clickable = !model_.clickable;
        } else {
            const bool overlay = chance(2);
            bool& value = overlay ? model_.overlay : model_.showMarkers;
            (overlay ? window_.cbOverlayUserPict : window_.cbShowDMObjects).Value = value = !value;
        }
        model_.dirty |= which == 11 || which == 13;
    }

    void clearOrFill()
    {
        const bool yes = answer_ == MessageDialog::Answer::Action;
        const auto clearObjects = [this](Model::Layer& layer) {
            change(layer, [](auto& square) { square.object = 0; });
        };
        if (chance(4) && window_.ChooseMenu("mnuClearAllObjects") && yes)
            clearObjects(model_.bottom), clearObjects(model_.top);
        if (chance(4) && window_.ChooseMenu("mnuClearObjectCurLayer") && yes)
            clearObjects(drawingLayer());
        if (chance(4) && window_.ChooseMenu("mnuClearAllWalls") && yes)
            change(model_.bottom, [](auto& square) { square.walls = {}, square.color = 0; });
        window_.btnClearAllSquares.Push();
        change(drawingLayer(), [this](auto& square) {
            if (square.visible && square.object == 0)
                square.object = object_;
        });
    }

    /// What a maze is like is chance: the model takes it over, and with it only what a maze may change.
    void makeMaze()
    {
        const bool ofWalls = chance(2);
        (ofWalls ? window_.btnWallMaze : window_.btnMaze).Push();
        if (!ofWalls && object_ == 0)
            return;
        if (!model_.mazeConfirmed && answer_ != MessageDialog::Answer::Action)
            return;
        model_.mazeConfirmed = model_.dirty = true;
        for (int n = 0; n < 144; ++n) {
            const int i = n / 12 + 1, j = n % 12 + 1;
            ModelSquare& square = model_.bottom[static_cast<std::size_t>(n)];
            if (ofWalls) {
                const cWall& wall = *window_.mySquares(i, j)->Wall;
                square.walls = {wall.Top, wall.Left, false, wall.Right};
                square.color = 0;
            } else {
                square.object = window_.mySquares(i, j)->thisObject;
                if (objectLayer_ != 0)
                    model_.top[static_cast<std::size_t>(n)].object = window_.mySquaresTop(i, j)->thisObject;
            }
        }
    }

    void write()
    {
        static constexpr std::string_view bytes("ab, \r\n\xC3\xA4\xBB\xFE\0", 11);
        std::string text;
        for (auto length = upTo(200); length > 0; --length)
            text += bytes[static_cast<std::size_t>(upTo(10))];
        const bool monsters = chance(2);
        (monsters ? window_.txtMonster : window_.txtGameText).Text = text;
        model_.setText(monsters ? 0 : 1, text);
    }

    void editToken()
    {
        const int x = static_cast<int>(upTo(755)), y = static_cast<int>(upTo(575));
        person_.modal = [this, x, y](Window& opened) {
            auto& editor = dynamic_cast<frmCharacter&>(opened);
            Model::Token& token = model_.tokens[static_cast<std::size_t>((x + 35) / 70 - 1 + (y < 290 ? 0 : 10))];
            const auto icon = upTo(3);
            const std::string typed = Str(upTo(300) - 100);
            openFile_ = file(std::array{"Icon0", "Icon20", "Icon90", "Icon300"}[static_cast<std::size_t>(icon)]);
            switch (upTo(3)) {
            case 0:
                editor.PushButton1.Push();
                if (icon != 0)
                    token.data = TextInputStream::Open(openFile_)->ReadAll();
                break;
            case 1:
                editor.BevelButton1.Push();
                if (chosen_)
                    token.data = std::to_string(-numberIn(chosen_->Tag));
                break;
            case 2:
                editor.PushButton2.Push();
                token.data.clear();
                break;
            default:
                editor.TextField1.Text = typed;
                token.number = std::clamp<std::int64_t>(std::stoi(typed), 0, 99);
            }
            paint(editor);
            model_.dirty = true;
        };
        click(window_.cvCharacters, x, y);
    }

    void editPicture()
    {
        bool applied = false;
        person_.modal = [this, &applied](Window& opened) {
            auto& editor = dynamic_cast<frmEditUserPicture&>(opened);
            const auto place = [this] { return static_cast<int>(upTo(800)); };
            for (auto strokes = upTo(4); strokes > 0; --strokes) {
                editor.PopupMenu1.ListIndex = upTo(1);
                editor.PopupMenu2.ListIndex = upTo(4);
                person_.shiftKey = chance(4);
                editor.Canvas1.Press(place(), place());
                editor.Canvas1.Drag(place(), place());
                editor.Canvas1.Release(place(), place());
            }
            openFile_ = file(chance(2) ? "Icon300" : "Icon0");
            editor.ChooseMenu(std::array{"mnuOpenUserPicture", "mnUPEditUndo", "mnuClearDrawing"}[upTo(2) % 3U]);
            paint(editor);
            applied = !chance(3);
            (applied ? editor.PushButton1 : editor.PushButton2).Push();
        };
        window_.PushButton2.Push();
        if (applied)
            model_.picture = window_.ConvertPictureToData(window_.UserPicture);
        model_.dirty = true;
    }

    bool modelSaved()
    {
        if (slot_ == 3)
            return false;
        saved_[static_cast<std::size_t>(slot_)] = model_;
        model_.name = "Map" + Str(slot_);
        return true;
    }
    bool modelMayGoOn()
    {
        return !model_.dirty || answer_ == MessageDialog::Answer::Alternate
               || (answer_ == MessageDialog::Answer::Action && modelSaved());
    }

    void save()
    {
        window_.ChooseMenu("mnuSave");
        if (modelSaved())
            model_.dirty = false;
    }

    void open()
    {
        const auto slot = static_cast<std::size_t>(upTo(2));
        const auto kind = upTo(6);
        const Model saved = saved_[slot];
        const std::string name = "Map" + Str(static_cast<std::int64_t>(slot));
        openFile_ = file(kind == 0 ? "missing" : kind == 1 ? "Empty" : kind == 2 ? "Letter" : name + ".qrnm");
        const bool older = kind == 3;
        if (older)
            openFile_ = file("Older.qrnm"), std::ofstream(openFile_->Path()) << saved.text(5);
        std::ofstream(folder_ + "/Empty") << "";
        std::ofstream(folder_ + "/Letter") << "1 letter";
        if (!openFile_->Exists() && kind > 3)
            return;
        window_.ChooseMenu("mnuOpen");
        if (!modelMayGoOn())
            return;
        if (kind == 1 || kind == 2)
            model_.makeAnew();
        if (kind == 2)
            model_.setting[Model::Landscape] = 1, model_.place(1);
        if (kind >= 3) {
            model_.open(older ? saved : saved_[slot], older);
            model_.name = older ? "Older" : name;
        }
        if (kind != 1)
            model_.dirty = false;
    }

    void begin()
    {
        window_.ChooseMenu("mnuNew");
        if (!modelMayGoOn())
            return;
        model_.makeAnew();
        model_.setting = {};
        model_.clickable = model_.showMarkers = model_.dirty = false;
        walls_ = {};
        wallColor_ = 0;
        visibleLayers_ = objectLayer_ = object_ = marker_ = 0;
    }

    static void paint(Window& window)
    {
        for (Control* control : window.Controls) {
            if (const auto* canvas = dynamic_cast<MouseControl*>(control)) {
                const auto surface = New<Picture>(control->Width.get(), control->Height.get(), 32);
                canvas->Paint(surface->Graphics());
            }
        }
    }

    void look()
    {
        paint(window_);
        window_.DescribeSquare(static_cast<int>(upTo(800)), static_cast<int>(upTo(800)));
        (chance(2) ? window_.bbScriptTool : window_.btnCharacterTool).Push();
    }

    void putOut()
    {
        saveFile_ = chance(2) ? file("Picture") : nullptr;
        window_.ChooseMenu(std::array{"mnuExportPictureSeries", "mnuSavePicture", "mnuPrint"}[upTo(2) % 3U]);
        PushButton* const buttons[] = {&window_.btnSaveCharacters, &window_.btnPrint, &window_.btnPrintCharacters};
        buttons[upTo(2)]->Push();
    }

    std::string folder_;
    std::mt19937_64 random_;
    ScriptedPlatform person_;
    App app_;
    Window1 window_;

    Model model_;
    std::array<Model, 3> saved_;
    int tab_ = 0;
    std::int64_t visibleLayers_ = 0, objectLayer_ = 0, object_ = 0, marker_ = 0;
    std::array<bool, 10> walls_{};
    unsigned wallColor_ = 0;

    // What the person will answer next.
    MessageDialog::Answer answer_ = MessageDialog::Answer::Cancel;
    std::int64_t slot_ = 3;
    Ref<FolderItem> saveFile_, openFile_;
    unsigned color_ = 0;
    Ref<MenuItem> chosen_;
};

/// Megabytes in memory.
long memory()
{
    long all = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return resident * sysconf(_SC_PAGESIZE) >> 20;
}

int run(int argc, char** argv)
{
    const ScreenlessToolkit toolkit(argc, argv);
    const long operations = argc > 1 ? std::atol(argv[1]) : 1000;
    const std::uint64_t seed = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 1;
    std::string folder = std::filesystem::temp_directory_path() / "quorrin-soak-XXXXXX";
    if (!mkdtemp(folder.data()))
        return 2;
    setenv("XDG_DATA_HOME", folder.c_str(), true);
    const long betweenLooks = std::clamp(operations / 1000, 1L, 100L);
    bool same = true;
    {
        Soak soak(folder, seed);
        for (long n = 1; n <= operations && same; ++n) {
            soak.operate();
            if (n % betweenLooks == 0 && !(same = soak.isAsTheModel()))
                std::fprintf(stderr, "seed %lu: the map is not as the model at operation %ld\n", seed, n);
            if (const auto wrong = n % (20 * betweenLooks) == 0 ? soak.wrongPixel() : ""; !wrong.empty())
                same = false, std::fprintf(stderr, "seed %lu: the page at operation %ld: %s\n", seed, n, wrong.c_str());
            if (n % (operations / 10 + 1) == 0)
                std::printf("%ld operations, %ld MB\n", n, memory()), std::fflush(stdout);
        }
    }
    std::filesystem::remove_all(folder);
    return same ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return run(argc, argv);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 2;
    }
}
