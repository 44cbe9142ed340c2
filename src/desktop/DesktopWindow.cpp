#include "desktop/DesktopWindow.h"

#include "desktop/DesktopStyle.h"
#include "desktop/GivenPictures.h"
#include "desktop/LastResort.h"
#include "desktop/QtText.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QTimer>
#include <QWindow>

namespace quorrin {

namespace {

Qt::WindowFlags flagsOf(Window::Kind kind)
{
    constexpr auto dialog = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    switch (kind) {
    case Window::Kind::Main:
        break;
    case Window::Kind::Modal:
        return dialog;
    case Window::Kind::ModalWithCloseBox:
        return dialog | Qt::WindowCloseButtonHint;
    }
    return Qt::Window;
}

/// What a screen reader says: the control's own name, its caption, or the label before it.
void nameView(const WidgetView& view, const Control& control, const Control* before)
{
    QWidget& widget = *view.Widget();
    if (!control.AccessibleName.empty()) {
        widget.setAccessibleName(qtText(control.AccessibleName));
    } else if (control.Caption.get().empty() && before && before->Kind == ControlKind::Label) {
        widget.setAccessibleName(qtText(before->Caption).remove(':').remove('&'));
    }
}

/// Whether a control has no caption of its own but the label before it.
bool isLabelled(const Control& control, const Control* before, const QWidget& widget)
{
    return before && before->Kind == ControlKind::Label && control.Caption.get().empty()
           && widget.focusPolicy() != Qt::NoFocus;
}

/// On Linux a popup answers with its value when it is asked for its name, so its name must be that of a label.
QLabel* hiddenLabel(const QWidget& popup)
{
    auto* label = new QLabel(popup.parentWidget());
    label->hide();
    return label;
}

/// A screen reader takes the name of the label for that of the widget.
void putLabel(QLabel& label, QWidget& widget)
{
    label.setBuddy(&widget);
    label.setAccessibleName(widget.accessibleName());
}

} // namespace

DesktopWindow::DesktopWindow(Window& window, QWidget* parent)
    : QMainWindow(parent, flagsOf(window.kind)), window_(window), content_(new QWidget), scroll_(new QScrollArea)
{
    QFont font = content_->font();
    font.setPixelSize(DesktopStyle::textSize);
    content_->setFont(font);
    content_->setFixedSize(window.Width, window.Height);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setWidget(content_);
    setCentralWidget(scroll_);
    setContextMenuPolicy(Qt::NoContextMenu);
    if (window.kind != Window::Kind::Main)
        setWindowModality(Qt::ApplicationModal);
    build();
    if (window.MenuBar) {
        menuBar_ = std::make_unique<MenuBarView>(window, *menuBar());
        menuBar_->Refresh();
    }
    new PictureTaker(window, *this);
    window.View = this;
    Sync();
    fitToScreen();
}

DesktopWindow::~DesktopWindow()
{
    window_.View = nullptr;
}

/// Widgets come in the order of the controls, which is thereby the order of the Tab key.
void DesktopWindow::build()
{
    const Control* before = nullptr;
    for (Control* control : window_.Controls) {
        views_.push_back(makeView(*control, parentOf(*control)));
        const WidgetView& view = *views_.back();
        nameView(view, *control, before);
        if (isLabelled(*control, before, *view.Widget()))
            putLabel(*static_cast<QLabel*>(views_[views_.size() - 2]->Widget()), *view.Widget());
        else if (control->Kind == ControlKind::PopupMenu)
            putLabel(*hiddenLabel(*view.Widget()), *view.Widget());
        before = control;
    }
    for (const auto& view : views_)
        view->Sync();
}

QWidget* DesktopWindow::parentOf(const Control& control) const
{
    const Place& place = control.place;
    return place.container ? static_cast<WidgetView*>(place.container->View)->Page(place.page) : content_;
}

void DesktopWindow::Sync()
{
    // Qt takes "[*]" for the place of the mark and a doubled one for the text itself.
    setWindowTitle(qtText(window_.Title).replace("[*]", "[*][*]") + "[*]");
    setWindowModified(window_.ContentsChanged);
}

void DesktopWindow::Close()
{
    closingByProgram_ = true;
    close();
    closingByProgram_ = false;
}

void DesktopWindow::Open()
{
    show();
    connect(windowHandle(), &QWindow::screenChanged, this, &DesktopWindow::fitToScreen);
    startTimers();
}

void DesktopWindow::RunModal()
{
    if (const QWidget* parent = parentWidget())
        moveOver(*parent);
    Open();
    if (!focusWidget())
        focusNextChild();
    modalLoop_.exec(QEventLoop::DialogExec);
    hide();
}

/// Takes the middle of the parent; the frame of this window, not known yet, is taken to be as the parent's.
void DesktopWindow::moveOver(const QWidget& parent)
{
    QRect frame(QPoint(), size() + parent.frameGeometry().size() - parent.size());
    frame.moveCenter(parent.frameGeometry().center());
    const QRect screen = parent.screen()->availableGeometry();
    frame.moveRight(qMin(frame.right(), screen.right()));
    frame.moveBottom(qMin(frame.bottom(), screen.bottom()));
    move(qMax(frame.left(), screen.left()), qMax(frame.top(), screen.top()));
}

void DesktopWindow::startTimers()
{
    for (const Timer* timer : window_.Timers)
        QTimer::singleShot(timer->Period, this, [timer] { guarded(timer->Action); });
}

void DesktopWindow::fitToScreen()
{
    constexpr QSize windowFrame(8, 40);
    const QSize wanted = content_->size() + QSize(0, window_.MenuBar ? menuBar()->sizeHint().height() : 0);
    const QSize available = screen()->availableGeometry().size() - windowFrame;
    const bool fits = wanted.width() <= available.width() && wanted.height() <= available.height();
    layout()->setSizeConstraint(fits ? QLayout::SetFixedSize : QLayout::SetDefaultConstraint);
    if (fits) {
        scroll_->setFixedSize(content_->size());
        layout()->activate();
        return;
    }
    constexpr QSize smallest(240, 180);
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    scroll_->setMinimumSize(smallest);
    scroll_->setMaximumSize(content_->size() + QSize(bar, bar));
    setMaximumSize(wanted + QSize(bar, bar));
    resize(maximumSize().boundedTo(available));
}

bool DesktopWindow::event(QEvent* event)
{
    // Comes before the shortcuts are looked at.
    if (event->type() == QEvent::ShortcutOverride && menuBar_)
        menuBar_->Refresh();
    return QMainWindow::event(event);
}

void DesktopWindow::closeEvent(QCloseEvent* event)
{
    bool closes = false;
    if (window_.kind == Window::Kind::Modal && !closingByProgram_)
        QMetaObject::invokeMethod(
            this, [this] { push(PushButton::Role::Cancel); }, Qt::QueuedConnection);
    else
        guarded([&] { closes = !window_.Event_CancelClose(false); });
    event->setAccepted(closes);
    if (closes)
        modalLoop_.quit();
}

/// Presses the button of that role, as Return and Escape do; false when there is none.
bool DesktopWindow::push(PushButton::Role role)
{
    for (Control* control : window_.Controls) {
        auto* button = control->Kind == ControlKind::PushButton ? static_cast<PushButton*>(control) : nullptr;
        if (button && (button->role == role || button->role == PushButton::Role::DefaultAndCancel)) {
            guarded([button] { button->Push(); });
            return true;
        }
    }
    return false;
}

void DesktopWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::HelpContents)) {
        guarded([this] { window_.Event_Help(); });
        return;
    }
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && push(PushButton::Role::Default))
        return;
    if (event->key() == Qt::Key_Escape && push(PushButton::Role::Cancel))
        return;
    QMainWindow::keyPressEvent(event);
}

} // namespace quorrin
