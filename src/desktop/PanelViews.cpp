#include "desktop/DesktopStyle.h"
#include "desktop/QtText.h"
#include "desktop/WidgetView.h"

#include "toolkit/Window.h"

#include <QEvent>
#include <QGroupBox>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>

namespace quorrin {

namespace {

/// Lies on a page of a container so that its corner is that of the window's content: controls keep their place in
/// window pixels wherever the container's style puts the page.
class PageSurface : public QWidget {
public:
    PageSurface(const Control& container, const QWidget* panel, QWidget* page)
        : QWidget(page), corner_(container.Left(), container.Top()), panel_(panel), page_(page)
    {
        resize(container.place.window->Width, container.place.window->Height);
        for (QWidget* moving = page; moving != panel; moving = moving->parentWidget())
            moving->installEventFilter(this);
        align();
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Move)
            align();
        return QWidget::eventFilter(watched, event);
    }

private:
    void align() { move(-corner_ - page_->mapTo(panel_, QPoint())); }
    QPoint corner_;
    const QWidget* panel_;
    const QWidget* page_;
};

/// Leaves the mouse wheel to the window, as popups do. A tab takes the focus when it is pressed: else it would pass
/// from a control of the page that goes to some other of the window, and a small screen would scroll there.
class Tabs : public QTabWidget {
public:
    explicit Tabs(QWidget* parent) : QTabWidget(parent)
    {
        tabBar()->installEventFilter(this);
        tabBar()->setFocusPolicy(Qt::StrongFocus);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Wheel) {
            event->ignore();
            return true;
        }
        return QTabWidget::eventFilter(watched, event);
    }
};

class GroupBoxView : public WidgetView {
public:
    GroupBoxView(GroupBox& group, QWidget* parent)
        : WidgetView(group, new QGroupBox(parent)), group_(group), surface_(new PageSurface(group, Widget(), Widget()))
    {}
    QWidget* Page(int) override { return surface_; }

private:
    void show() override { static_cast<QGroupBox*>(Widget())->setTitle(qtText(group_.Caption)); }
    GroupBox& group_;
    PageSurface* surface_;
};

class TabPanelView : public WidgetView {
public:
    TabPanelView(TabPanel& panel, QWidget* parent) : WidgetView(panel, new Tabs(parent)), panel_(panel)
    {
        QFont font = tabs()->tabBar()->font();
        font.setPixelSize(DesktopStyle::tabTextSize);
        tabs()->tabBar()->setFont(font);
        for (const auto& tab : panel.Tabs) {
            auto* page = new QWidget;
            tabs()->addTab(page, qtText(tab));
            surfaces_.push_back(new PageSurface(panel, tabs(), page));
        }
        addKeys();
        connect(tabs(), &QTabWidget::currentChanged, this,
                [this](int tab) { change([this, tab] { panel_.Value = tab; }); });
    }
    QWidget* Page(int page) override { return surfaces_.at(static_cast<std::size_t>(page)); }

private:
    QTabWidget* tabs() const { return static_cast<QTabWidget*>(Widget()); }
    /// From anywhere in the window: Ctrl with a page key goes round the tabs, Alt with a digit to one of them.
    void addKeys()
    {
        const auto add = [this](QKeyCombination key, auto target) {
            auto* shortcut = new QShortcut(key, tabs());
            connect(shortcut, &QShortcut::activated, tabs(), [this, target] { tabs()->setCurrentIndex(target()); });
        };
        const int count = tabs()->count();
        add(Qt::CTRL | Qt::Key_PageDown, [=, this] { return (tabs()->currentIndex() + 1) % count; });
        add(Qt::CTRL | Qt::Key_PageUp, [=, this] { return (tabs()->currentIndex() + count - 1) % count; });
        for (int tab = 0; tab < count; ++tab)
            add(QKeyCombination(Qt::ALT, Qt::Key(Qt::Key_1 + tab)), [tab] { return tab; });
    }
    void show() override { tabs()->setCurrentIndex(panel_.Value); }
    TabPanel& panel_;
    std::vector<PageSurface*> surfaces_;
};

class PagePanelView : public WidgetView {
public:
    PagePanelView(PagePanel& panel, QWidget* parent) : WidgetView(panel, new QStackedWidget(parent)), panel_(panel)
    {
        for (int i = 0; i < panel.Pages; ++i) {
            auto* page = new QWidget;
            stack()->addWidget(page);
            surfaces_.push_back(new PageSurface(panel, stack(), page));
        }
    }
    QWidget* Page(int page) override { return surfaces_.at(static_cast<std::size_t>(page)); }

private:
    QStackedWidget* stack() const { return static_cast<QStackedWidget*>(Widget()); }
    void show() override { stack()->setCurrentIndex(panel_.Value); }
    PagePanel& panel_;
    std::vector<PageSurface*> surfaces_;
};

} // namespace

std::unique_ptr<WidgetView> makeGroupBoxView(GroupBox& group, QWidget* parent)
{
    return std::make_unique<GroupBoxView>(group, parent);
}

std::unique_ptr<WidgetView> makeTabPanelView(TabPanel& tabs, QWidget* parent)
{
    return std::make_unique<TabPanelView>(tabs, parent);
}

std::unique_ptr<WidgetView> makePagePanelView(PagePanel& pages, QWidget* parent)
{
    return std::make_unique<PagePanelView>(pages, parent);
}

} // namespace quorrin
