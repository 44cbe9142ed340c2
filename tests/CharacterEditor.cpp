#include "Fixture.h"

#include "characters/frmCharacter.h"

using namespace quorrin;

namespace {

class CharacterEditor : public Program {
protected:
    CharacterEditor()
    {
        Module1::useThisCharacter = token;
        editor.Event_Open();
    }
    void load(const Ref<FolderItem>& file)
    {
        person.open = [file](const FileFilter&) { return file; };
        editor.PushButton1.Push();
    }

    Ref<cCharacter> token = window.myCharacters(3);
    frmCharacter editor;
};

} // namespace

TEST_F(CharacterEditor, KeepsNumbersFrom0To99AndShowsThemAgain)
{
    for (const auto& [typed, number] :
         {std::pair{"12.9", 12}, {"twelve", 0}, {"99", 99}, {"1e300", 99}, {" 8x", 8}, {"nan", 0}, {"", 0}}) {
        editor.TextField1.Text = typed;
        EXPECT_EQ(token->Number, number) << typed;
        EXPECT_EQ(editor.TextField1.Text.get(), typed);
    }
    for (const auto& [number, text] : {std::pair{0, ""}, {-3, ""}, {1, "1"}, {42, "42"}}) {
        token->Number = number;
        frmCharacter another;
        another.Event_Open();
        EXPECT_EQ(another.TextField1.Text.get(), text);
    }
}

TEST_F(CharacterEditor, TakesThePictureOfAFileWhole)
{
    const auto file = folder.file("figure.png");
    New<Picture>(300, 300, 32)->Save(file, PictureFormat::Png, 100);
    load(file);
    load(nullptr);
    EXPECT_EQ(token->Icon->Width(), 300);
    EXPECT_EQ(token->IconData, contentOf(file->Path()));

    // The token shows nothing now, yet saving and reopening brings the earlier picture back.
    writeFile(folder / "notes.png", "no picture");
    load(folder.file("notes.png"));
    EXPECT_EQ(person.messages, std::vector<std::string>{"Error Opening Picture."});
    EXPECT_FALSE(token->Icon);
    person.save = [this](const std::string&) { return folder.file("map.qrnm"); };
    ASSERT_TRUE(window.mSave());
    window.mOpen(folder.file("map.qrnm"));
    EXPECT_EQ(window.myCharacters(3)->Icon->Width(), 300);
    EXPECT_FALSE(window.myCharacters(4)->Icon);
}

TEST_F(CharacterEditor, ShowsTheFigureAndTheTokenAfterEachChange)
{
    window.DrawObject(37, 1)->Save(folder.file("figure.png"), PictureFormat::Png, 100);
    person.popUp = [](const MenuItem& base) { return entryOf(base, "Tree"); };
    const std::function<void()> changes[] = {[&] { load(folder.file("figure.png")); },
                                             [&] { editor.BevelButton1.Push(); }, [&] { editor.PushButton2.Push(); }};
    for (Canvas* canvas : {&editor.Canvas1, &editor.Canvas2})
        for (const auto& change : changes) {
            EXPECT_GT(paintings(*canvas, change), 0);
            const auto shown = New<Picture>(canvas->Width, canvas->Height, 32);
            const auto wanted = New<Picture>(canvas->Width, canvas->Height, 32);
            canvas->Paint(shown->Graphics());
            if (canvas == &editor.Canvas1)
                token->DrawCharacter(wanted->Graphics());
            else if (token->Icon)
                wanted->Graphics().DrawPicture(token->Icon, 2, 22);
            wanted->Graphics().DrawRect(0, 0, canvas->Width, canvas->Height);
            EXPECT_TRUE(alike(shown, wanted));
        }
    EXPECT_GT(paintings(editor.Canvas1, [&] { editor.TextField1.Text = "7"; }), 0);
}
