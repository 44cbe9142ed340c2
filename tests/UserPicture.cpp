#include "Fixture.h"

#include "userpicture/frmEditUserPicture.h"

#include <functional>
#include <limits>

using namespace quorrin;

namespace {

constexpr Color red = RGB(220, 10, 10);

class UserPicture : public Program {
protected:
    /// Opens the editor by its button, and works in it.
    void edit(const std::function<void(frmEditUserPicture&)>& work)
    {
        person.modal = [&](Window& opened) { work(dynamic_cast<frmEditUserPicture&>(opened)); };
        window.PushButton2.Push();
    }
    static Color at(const frmEditUserPicture& editor, int x, int y) { return pixelOf(editor.myImage, x, y); }
    static void stroke(frmEditUserPicture& editor, std::initializer_list<std::pair<int, int>> places)
    {
        editor.Canvas1.Press(places.begin()->first, places.begin()->second);
        for (const auto& [x, y] : places)
            editor.Canvas1.Drag(x, y);
        editor.Canvas1.Release((places.end() - 1)->first, (places.end() - 1)->second);
    }
};

} // namespace

TEST_F(UserPicture, StrokesHaveNoGapsAndNoSoftEdges)
{
    edit([&](frmEditUserPicture& editor) {
        for (int pen = 1; pen <= 5; ++pen) {
            editor.PopupMenu2.ListIndex = pen - 1;
            editor.myImage = New<Picture>(756, 576);
            stroke(editor, {{10, 20}, {400, 150}, {380, 500}});
            int inked = 0;
            forEachPixel(756, 576, [&](int x, int y) {
                const auto color = at(editor, x, y);
                ASSERT_TRUE(color == black || color == clear) << x << "," << y;
                inked += color == black;
            });
            // Every step of the way leaves a column or a row of the pen.
            EXPECT_GE(inked, pen * (390 + 350));
            EXPECT_LE(inked, (2 * pen + 1) * (390 + 350));
            EXPECT_EQ(at(editor, 379 + pen, 499 + pen), black) << "the last point";
            EXPECT_EQ(at(editor, 380 + pen, 500 + pen), clear);
            for (int y = 20; y <= 20 + pen; ++y)
                EXPECT_EQ(at(editor, 10, y), y < 20 + pen ? black : clear);
        }
    });
}

TEST_F(UserPicture, KeysConstrainALineFromWhereItBegan)
{
    for (const auto& [shift, control] : {std::pair{false, false}, {true, false}, {false, true}, {true, true}}) {
        edit([&, shift = shift, control = control](frmEditUserPicture& editor) {
            editor.Canvas1.Press(100, 100);
            person.shiftKey = shift;
            person.controlKey = control;
            editor.Canvas1.Drag(200, 160);
            editor.Canvas1.Drag(150, 130); // going back shortens nothing
            EXPECT_EQ(at(editor, 190, 100) == black, shift);
            EXPECT_EQ(at(editor, 100, 155) == black, control && !shift);
            EXPECT_EQ(at(editor, 200, 160) == black, !shift && !control);
            // Let go, the line runs on from the last place of the mouse.
            person.shiftKey = person.controlKey = false;
            editor.Canvas1.Drag(150, 300);
            EXPECT_EQ(at(editor, 150, 200), black);
            EXPECT_EQ(at(editor, 150, 110), clear);
            editor.Canvas1.Release(150, 300);
        });
    }
}

TEST_F(UserPicture, UndoGoesOneStepBack)
{
    edit([&](frmEditUserPicture& editor) {
        EXPECT_FALSE(editor.ChooseMenu("mnUPEditUndo")) << "it is disabled";
        stroke(editor, {{10, 10}, {20, 10}});
        const auto first = bytesOf(editor.myImage);
        const auto undone = [&] {
            EXPECT_TRUE(editor.ChooseMenu("mnUPEditUndo"));
            EXPECT_FALSE(editor.ChooseMenu("mnUPEditUndo"));
            return bytesOf(editor.myImage);
        };
        stroke(editor, {{10, 30}, {20, 30}});
        EXPECT_EQ(undone(), first);
        click(editor.Canvas1, 310, 310);
        EXPECT_EQ(undone(), first) << "a click draws nothing and yet takes a step of undo";
        EXPECT_TRUE(editor.ChooseMenu("mnuClearDrawing"));
        EXPECT_TRUE(alike(editor.myImage, New<Picture>(756, 576)));
        EXPECT_EQ(undone(), first);
    });
}

TEST_F(UserPicture, StretchesALoadedPictureOverTheDrawing)
{
    const auto picture = New<Picture>(4, 2, 32);
    picture->Graphics().ForeColor = red;
    picture->Graphics().FillRect(0, 0, 2, 2);
    const auto file = folder.file("flag.bmp");
    picture->Save(file, PictureFormat::Png, 100);
    edit([&](frmEditUserPicture& editor) {
        stroke(editor, {{600, 300}, {700, 300}});
        const auto undo = editor.pUndo;
        person.open = [&](const FileFilter&) { return Ref<FolderItem>(file); };
        EXPECT_TRUE(editor.ChooseMenu("mnuOpenUserPicture"));
        for (const auto& [x, y, color] : {std::tuple{0, 0, red}, {0, 575, red}, {755, 575, clear}, {650, 300, black}})
            EXPECT_EQ(at(editor, x, y), color) << x << "," << y;
        EXPECT_EQ(editor.pUndo, undo);
        const auto before = bytesOf(editor.myImage);
        person.open = [&](const FileFilter&) { return folder.file("no such file"); };
        EXPECT_TRUE(editor.ChooseMenu("mnuOpenUserPicture"));
        EXPECT_EQ(bytesOf(editor.myImage), before);
        EXPECT_TRUE(person.messages.empty());
        EXPECT_TRUE(editor._mnuSavePicture_Action()) << "cancelled";
        person.save = [&](const std::string& name) { return folder.file(name); };
        EXPECT_TRUE(editor.HandlesMenu("mnuSavePicture")) << "though no item bears the name";
        editor._mnuSavePicture_Action();
        EXPECT_TRUE(alike(Picture::Open(folder.file("Quorrin Map.bmp")), editor.myImage));
    });
}

TEST_F(UserPicture, LiesOverTheMapAndGoesToItOnApplyAlone)
{
    window.pmBackground.ListIndex = 1;
    for (const auto& [portrait, applied] : {std::pair{0, false}, {0, true}, {1, false}, {1, true}}) {
        window.pmLandscape.ListIndex = portrait;
        window.UserPicture = nullptr;
        window.isDirty = false;
        edit([&, apply = applied](frmEditUserPicture& editor) {
            const auto page = window.myImage;
            editor.PopupMenu2.ListIndex = 4;
            stroke(editor, {{300, 500}, {400, 500}});
            editor.PopupMenu1.ListIndex = 1;
            editor.Canvas1.Press(340, 500);
            editor.Canvas1.Drag(360, 500);
            EXPECT_EQ(at(editor, 350, 502), white);
            editor.Canvas1.Release(360, 500);
            EXPECT_EQ(at(editor, 350, 502), clear) << "white erases";
            editor.Canvas1.Drag(310, 500); // nothing is pressed any more

            const auto shown = New<Picture>(editor.Canvas1.Width, editor.Canvas1.Height, 32);
            const auto wanted = New<Picture>(page->Width(), page->Height(), 32);
            editor.Canvas1.Paint(shown->Graphics());
            wanted->Graphics().DrawPicture(page, 0, 0);
            wanted->Graphics().DrawPicture(editor.myImage, 0, 0);
            wanted->Graphics().DrawRect(0, 0, wanted->Graphics().Width(), wanted->Graphics().Height());
            EXPECT_TRUE(alike(shown, wanted));
            (apply ? editor.PushButton1 : editor.PushButton2).Push();
        });
        EXPECT_EQ(static_cast<bool>(window.UserPicture), applied);
        EXPECT_EQ(pixel(310, 502), applied ? black : RGB(200, 200, 200));
        EXPECT_EQ(pixel(350, 502), RGB(200, 200, 200));
        EXPECT_TRUE(window.isDirty);
    }
    const auto drawing = bytesOf(window.UserPicture);
    EXPECT_TRUE(alike(window.UserPicture->Enlarged(3), Picture::FromData(drawing)->Enlarged(3)))
        << "no more than a file keeps";
    edit([&](frmEditUserPicture& editor) {
        EXPECT_EQ(bytesOf(editor.myImage), drawing);
        EXPECT_EQ(pixelOf(Module1::pMain, 310, 502), RGB(200, 200, 200)) << "the map below is without the drawing";
        editor.ChooseMenu("mnuClearDrawing");
        editor.PushButton2.Push();
    });
    EXPECT_EQ(bytesOf(window.UserPicture), drawing);
}

TEST_F(UserPicture, BearsAMouseFarOutside)
{
    constexpr int far = std::numeric_limits<int>::max();
    constexpr int near = std::numeric_limits<int>::min();
    edit([&](frmEditUserPicture& editor) {
        stroke(editor, {{100, 100}, {far, 100}, {far, far}, {near, near}, {near, 300}, {far, 300}});
        EXPECT_EQ(at(editor, 700, 100), black);
        EXPECT_EQ(at(editor, 0, 300), black);
        person.shiftKey = true;
        stroke(editor, {{near, 400}, {far, near}});
        EXPECT_EQ(at(editor, 400, 400), black);
    });
}
