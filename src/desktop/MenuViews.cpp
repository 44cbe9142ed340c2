#include "desktop/MenuViews.h"

#include "desktop/DesktopPlatform.h"
#include "desktop/DesktopStyle.h"
#include "desktop/Dialogs.h"
#include "desktop/GivenPictures.h"
#include "desktop/LastResort.h"
#include "desktop/QtText.h"
#include "desktop/StandardEdits.h"

#include "toolkit/QtBridge.h"
#include "toolkit/Window.h"

#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QMenuBar>

#include <map>

namespace quorrin {

namespace {

using Entries = std::map<const QAction*, Ref<MenuItem>>;

void fillPopUp(QMenu& widget, const MenuItem& base, Entries& entries)
{
    widget.setProperty(DesktopStyle::pictureMenu, true);
    for (const auto& item : base.Items()) {
        if (item->IsSeparator()) {
            widget.addSeparator();
        } else if (!item->Items().empty()) {
            fillPopUp(*widget.addMenu(qtText(item->Text)), *item, entries);
        } else {
            QAction* action = widget.addAction(qtText(item->Text));
            action->setEnabled(item->Enabled);
            if (item->Icon) {
                action->setIcon(
                    QIcon(QPixmap::fromImage(QtBridge::drawnImage(*item->Icon, widget.devicePixelRatioF()))));
                action->setIconVisibleInMenu(true);
            }
            entries[action] = item;
        }
    }
}

QKeySequence shortcut(const std::string& text)
{
    QString keys = qtText(text);
    return QKeySequence(keys.replace(QLatin1String("Cmd+"), QLatin1String("Ctrl+")));
}

/// Where a system has an application menu, these two stand in it; all others stay where they are.
QAction::MenuRole menuRole(MenuItem::Standard standard)
{
    switch (standard) {
    case MenuItem::Standard::Quit:
        return QAction::QuitRole;
    case MenuItem::Standard::About:
        return QAction::AboutRole;
    default:
        return QAction::NoRole;
    }
}

} // namespace

std::optional<QPoint> PopUpPlace::current_;

QPoint PopUpPlace::Current()
{
    return current_.value_or(QCursor::pos());
}

Ref<MenuItem> DesktopPlatform::PopUp(const MenuItem& base)
{
    Entries entries;
    QMenu menu(frontWidget());
    fillPopUp(menu, base, entries);
    const auto chosen = entries.find(menu.exec(PopUpPlace::Current()));
    return chosen == entries.end() ? nullptr : chosen->second;
}

MenuBarView::MenuBarView(Window& window, QMenuBar& bar) : window_(window), mainWidget_(bar.window())
{
    // The bar lies in the window, also where the desktop has a place of its own for menu bars.
    bar.setNativeMenuBar(false);
    for (const auto& menu : window.MenuBar->Items())
        addMenu(*menu, bar);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now && now->window() == mainWidget_ && !qobject_cast<QMenuBar*>(now))
            editTarget_ = now;
    });
}

void MenuBarView::addMenu(const MenuItem& menu, QMenuBar& bar)
{
    QMenu* widget = bar.addMenu(qtText(menu.Text));
    addItems(menu, *widget);
    connect(widget, &QMenu::aboutToShow, this, &MenuBarView::Refresh);
}

void MenuBarView::addItems(const MenuItem& menu, QMenu& widget)
{
    for (const auto& item : menu.Items()) {
        if (item->IsSeparator()) {
            widget.addSeparator();
        } else if (!item->Items().empty()) {
            addItems(*item, *widget.addMenu(qtText(item->Text)));
        } else {
            QAction* action = widget.addAction(qtText(item->Text));
            action->setObjectName(qtText(item->Name));
            action->setShortcut(shortcut(item->KeyboardShortcut));
            action->setMenuRole(menuRole(item->standard));
            connect(action, &QAction::triggered, this, [this, item] { choose(*item); });
            actions_.emplace_back(action, item);
        }
    }
}

void MenuBarView::Refresh()
{
    guarded([this] { window_.Event_EnableMenuItems(); });
    for (const auto& [action, item] : actions_)
        action->setEnabled(isEnabled(*item));
}

bool MenuBarView::isEnabled(const MenuItem& item) const
{
    if (item.standard == MenuItem::Standard::Quit)
        return item.Enabled;
    if (isEditCommand(item.standard) && !window_.HandlesMenu(item.Name))
        return pastesPicture(item) || canEdit(editTarget_, item.standard);
    return item.Enabled && window_.HandlesMenu(item.Name);
}

bool MenuBarView::pastesPicture(const MenuItem& item) const
{
    return item.standard == MenuItem::Standard::Paste && canPastePicture(window_);
}

void MenuBarView::choose(const MenuItem& item)
{
    if (window_.HandlesMenu(item.Name))
        guarded([&] { window_.ChooseMenu(item.Name); });
    else if (item.standard == MenuItem::Standard::Quit)
        mainWidget_->close();
    else if (pastesPicture(item))
        pastePicture(window_);
    else
        edit(editTarget_, item.standard);
}

} // namespace quorrin
