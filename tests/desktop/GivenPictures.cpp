#include "Person.h"

#include "characters/frmCharacter.h"
#include "desktop/FileUrls.h"
#include "userpicture/frmEditUserPicture.h"

#include <QClipboard>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>

using namespace quorrin;

namespace {

/// The editors, and pictures that other programs hand over.
class GivenPictures : public DesktopProgram {
protected:
    GivenPictures()
    {
        Picture picture(20, 10, 32);
        picture.Graphics().FillRect(0, 0, 20, 10);
        png = picture.ToData(PictureFormat::Png, 100);
        writeFile(folder / "Hero of G\xfcnz.png", png);
        writeFile(folder / "notes.txt", "no picture");
    }

    /// Shows an editor to somebody who does this with it.
    struct Editing : DesktopPlatform {
        explicit Editing(std::function<void(Window&, DesktopWindow&)> action) : work(std::move(action)) {}
        void ShowModal(Window& editor) override
        {
            Answer<QMainWindow> answer([&](QMainWindow&) {
                work(editor, *static_cast<DesktopWindow*>(editor.View));
                editor.Close();
            });
            DesktopPlatform::ShowModal(editor);
            EXPECT_EQ(answer.count, 1);
        }
        std::function<void(Window&, DesktopWindow&)> work;
    };

    /// A file, as a file manager hands it over; the clipboard takes it over.
    QMimeData* fileData(const std::string& name) const
    {
        auto* data = new QMimeData;
        data->setUrls({urlOf(folder / name)});
        data->setText(data->urls().constFirst().toString());
        return data;
    }

    /// Drops on a widget or what lies under it; true when it was taken, and then as a copy.
    static bool drop(QWidget& widget, const QMimeData& data)
    {
        for (const auto type : {QEvent::DragEnter, QEvent::Drop}) {
            QDropEvent event({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {}, type);
            event.setDropAction(Qt::MoveAction);
            event.ignore();
            QCoreApplication::sendEvent(&widget, &event);
            if (!event.isAccepted())
                return false;
            EXPECT_EQ(event.dropAction(), Qt::CopyAction) << "after a move the file would be deleted";
        }
        QCoreApplication::processEvents();
        return true;
    }

    std::string png;
};

} // namespace

TEST_F(GivenPictures, BecomeTheFigureOfTheCharacter)
{
    auto& token = *window.myCharacters(1);
    token.Number = 7;
    window.btnCharacterTool.Push();
    const Editing editing([&](Window&, DesktopWindow& editor) {
        const std::unique_ptr<QMimeData> file(fileData("Hero of G\xfcnz.png"));
        EXPECT_TRUE(drop(editor, *file));
        EXPECT_EQ(token.IconData, png);
        auto& number = *editor.findChild<QLineEdit*>();
        EXPECT_TRUE(drop(number, *file));
        EXPECT_EQ(number.text(), "7") << "the field takes no path for its text";

        const std::unique_ptr<QMimeData> noPicture(fileData("notes.txt"));
        Answer<QMessageBox> message([](QMessageBox& box) {
            EXPECT_EQ(box.text(), "Error Opening Picture.");
            EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(box.windowTitle()) + 100);
            box.accept();
        });
        EXPECT_TRUE(drop(editor, *noPicture));
        EXPECT_TRUE(QTest::qWaitFor([&] { return message.count == 1; }));
        EXPECT_FALSE(token.Icon);
        EXPECT_EQ(token.IconData, png) << "as after the dialog";

        QMimeData text;
        text.setText("12");
        EXPECT_FALSE(drop(editor, text));
        auto* picture = new QMimeData;
        picture->setData("image/png", QByteArray::fromStdString(png));
        QApplication::clipboard()->setMimeData(picture);
        token.IconData.clear();
        QTest::keyClick(&number, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(token.IconData, png);
        QApplication::clipboard()->setText("12");
        number.selectAll();
        QTest::keyClick(&number, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(token.Number, 12);
    });
    window.cvCharacters.Press(40, 20);
    window.cvCharacters.Release(40, 20);
}

TEST_F(GivenPictures, AreLaidOverTheDrawing)
{
    const Editing editing([&](Window& editor, DesktopWindow& view) {
        const auto corner = [&] { return pixelOf(static_cast<frmEditUserPicture&>(editor).myImage, 700, 500); };
        const auto& paste = *view.findChild<QAction*>("EditPaste");
        const auto canPaste = [&] {
            emit view.menuBar()->actions()[1]->menu()->aboutToShow();
            return paste.isEnabled();
        };
        QApplication::clipboard()->setText("no picture");
        EXPECT_FALSE(canPaste());
        const std::unique_ptr<QMimeData> noPicture(fileData("notes.txt"));
        EXPECT_TRUE(drop(view, *noPicture));
        EXPECT_EQ(corner(), clear);
        EXPECT_FALSE(QApplication::activeModalWidget() != &view) << "nothing is said here";

        QApplication::clipboard()->setMimeData(fileData("Hero of G\xfcnz.png"));
        EXPECT_TRUE(canPaste());
        QTest::keyClick(&view, Qt::Key_V, Qt::ControlModifier);
        QCoreApplication::processEvents();
        EXPECT_EQ(corner(), black);
    });
    window.PushButton2.Push();
}
