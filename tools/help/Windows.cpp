#include "Windows.h"

#include "desktop/DesktopPlatform.h"
#include "desktop/DesktopWindow.h"
#include "document/Window1.h"
#include "userpicture/frmEditUserPicture.h"

#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QTimer>

#include <functional>
#include <stdexcept>

namespace quorrin {

namespace {

/// Room around a tab's controls and around a menu, in pixels.
constexpr int margin = 8;

class Photographer {
public:
    Photographer(DesktopWindow& view, QString folder) : view_(view), folder_(std::move(folder)) {}

    void window(const char* name) const
    {
        QApplication::processEvents();
        save(name, view_.grab());
    }

    /// The tool panel down to the last of its controls that shows.
    void tab(const char* name, const Window1& window) const
    {
        int bottom = 0;
        for (const Control* control : window.Controls)
            if (control->place.page == window.TabPanel1.Value && control->place.container == &window.TabPanel1)
                bottom = std::max(bottom, control->Top() + control->Height);
        const QRect panel(window.TabPanel1.Left() - margin, window.TabPanel1.Top() - margin,
                          window.TabPanel1.Width + 2 * margin, bottom - window.TabPanel1.Top() + 4 * margin);
        save(name, view_.Content()->grab(panel));
    }

    /// The window that opens while `act` waits for the person, after `prepare` has worked on it. `end` closes it.
    void modal(const char* name, const std::function<void()>& act, const std::function<void(Window&)>& prepare) const
    {
        struct Watcher : DesktopPlatform {
            void ShowModal(Window& window) override
            {
                QTimer::singleShot(0, [&] {
                    prepare(window);
                    QApplication::processEvents();
                    photographer->save(name, QApplication::activeModalWidget()->grab());
                    window.Close();
                });
                DesktopPlatform::ShowModal(window);
            }
            const Photographer* photographer;
            const char* name;
            std::function<void(Window&)> prepare;
        } watcher;
        watcher.photographer = this;
        watcher.name = name;
        watcher.prepare = prepare;
        act();
    }

    /// The window with the menu over it that `act` pops up, and that menu's submenu with the title open over both.
    void menu(const char* name, const QString& submenu, const std::function<void()>& act) const
    {
        QTimer::singleShot(0, [&] {
            auto* top = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!top)
                throw std::runtime_error("no menu came up");
            for (QAction* action : top->actions())
                if (action->text() == submenu)
                    top->setActiveAction(action);
            QApplication::processEvents();
            auto* opened = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!opened || opened == top)
                throw std::runtime_error("no submenu came up");
            QPixmap picture = view_.grab();
            QPainter painter(&picture);
            QRect shown;
            for (QMenu* menu : {top, opened}) {
                const QPoint place = view_.mapFromGlobal(menu->pos());
                painter.drawPixmap(place, menu->grab());
                shown |= QRect(place, menu->size());
            }
            painter.end();
            const QRect around = shown.adjusted(-12 * margin, -12 * margin, 12 * margin, 2 * margin);
            save(name, picture.copy(around & picture.rect()));
            top->close();
        });
        act();
    }

    void save(const char* name, const QPixmap& picture) const
    {
        if (!picture.save(folder_ + "/" + name + ".png"))
            throw std::runtime_error(std::string("cannot write ") + name);
    }

private:
    DesktopWindow& view_;
    QString folder_;
};

/// The heros' way to the mine.
void drawPath(Window& opened)
{
    auto& editor = dynamic_cast<frmEditUserPicture&>(opened);
    editor.PopupMenu2.ListIndex = 4;
    editor.Canvas1.Press(285, 440);
    for (const auto& [x, y] : {std::pair{285, 262}, {104, 258}, {104, 190}})
        editor.Canvas1.Drag(x, y);
    editor.Canvas1.Release(104, 190);
}

} // namespace

void writeWindowPictures(const std::string& folder, const std::string& map)
{
    DesktopPlatform platform;
    Window1 window;
    window.Event_Open();
    DesktopWindow view(window);
    window.mOpen(New<FolderItem>(map));
    view.Open();
    const Photographer photographer(view, QString::fromStdString(folder));

    window.pmObjects.ListIndex = 37;
    window.CheckBox1.Value = window.CheckBox3.Value = window.cbDoorTop.Value = true;
    window.pmDM.ListIndex = 4;
    const char* const tabs[] = {"tab-background", "tab-grid", "tab-walls", "tab-objects", "tab-dm"};
    for (int tab = 0; tab < 5; ++tab) {
        window.TabPanel1.Value = tab;
        photographer.tab(tabs[tab], window);
    }

    window.TabPanel1.Value = 3;
    photographer.window("window");
    QCursor::setPos(view.Content()->mapToGlobal(QPoint(620, 200)));
    photographer.menu("object-menu", "Inventory", [&] { window.Canvas1.Press(300, 180, true); });

    window.TabPanel1.Value = 4;
    window.bbScriptTool.Push();
    photographer.window("script-page");
    window.bbScriptTool.Push();
    window.btnCharacterTool.Push();
    photographer.modal(
        "character-editor", [&] { window.cvCharacters.Press(60, 100), window.cvCharacters.Release(60, 100); },
        [](Window&) {});
    window.btnCharacterTool.Push();
    window.TabPanel1.Value = 0;
    photographer.modal(
        "drawing-editor", [&] { window.PushButton2.Push(); }, drawPath);
}

} // namespace quorrin
