#include "desktop/DesktopStyle.h"
#include "desktop/MenuViews.h"
#include "desktop/QtText.h"
#include "desktop/WidgetView.h"

#include "toolkit/Text.h"

#include <QAccessibleWidget>

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QTextDocument>
#include <QWheelEvent>

#include <optional>

namespace quorrin {

namespace {

class LabelView : public WidgetView {
public:
    LabelView(Label& label, QWidget* parent) : WidgetView(label, new QLabel(parent)), label_(label)
    {
        text()->setTextFormat(Qt::PlainText);
    }

private:
    QLabel* text() const { return static_cast<QLabel*>(Widget()); }
    void show() override
    {
        text()->setText(qtText(label_.Caption));
        fitText(*text(), text()->text(), label_.Width);
    }
    Label& label_;
};

/// A line is no frame to a screen reader.
QAccessibleInterface* accessToLine(const QString&, QObject* object)
{
    auto* frame = qobject_cast<QFrame*>(object);
    return frame && frame->frameShape() == QFrame::HLine ? new QAccessibleWidget(frame, QAccessible::Separator)
                                                         : nullptr;
}

class SeparatorView : public WidgetView {
public:
    SeparatorView(Separator& separator, QWidget* parent) : WidgetView(separator, line(parent)) {}

private:
    static QFrame* line(QWidget* parent)
    {
        auto* frame = new QFrame(parent);
        frame->setFrameStyle(int(QFrame::HLine) | int(QFrame::Sunken));
        QAccessible::installFactory(accessToLine);
        return frame;
    }
};

/// Shows the caption on a button of any kind, small enough for what its decoration leaves.
void showCaption(QAbstractButton& button, const Control& control, int decoration)
{
    button.setText(qtText(control.Caption));
    fitText(button, button.text(), control.Width - decoration);
}
constexpr int buttonDecoration = 12;
constexpr int menuButtonDecoration = 36;
constexpr int checkBoxDecoration = 20;

class PushButtonView : public WidgetView {
public:
    PushButtonView(PushButton& button, QWidget* parent) : WidgetView(button, new QPushButton(parent)), button_(button)
    {
        using Role = PushButton::Role;
        push()->setAutoDefault(true);
        push()->setDefault(button.role == Role::Default || button.role == Role::DefaultAndCancel);
        connect(push(), &QPushButton::clicked, this, [this] { change([this] { button_.Push(); }); });
    }

private:
    QPushButton* push() const { return static_cast<QPushButton*>(Widget()); }
    void show() override { showCaption(*push(), button_, buttonDecoration); }
    PushButton& button_;
};

/// A push button with an arrow, whose menu is the program's.
class MenuButton : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    void initStyleOption(QStyleOptionButton* option) const override
    {
        QPushButton::initStyleOption(option);
        option->features |= QStyleOptionButton::HasMenu;
    }
};

class BevelButtonView : public WidgetView {
public:
    BevelButtonView(BevelButton& button, QWidget* parent)
        : WidgetView(button, makeButton(button, parent)), button_(button)
    {
        push()->setAutoDefault(true);
        if (button.HasMenu)
            connect(push(), &QPushButton::pressed, this, [this] { showMenu(); });
        else
            connect(push(), &QPushButton::clicked, this, [this] { change([this] { button_.Push(); }); });
    }

private:
    static QPushButton* makeButton(const BevelButton& button, QWidget* parent)
    {
        if (button.HasMenu)
            return new MenuButton(parent);
        auto* toggle = new QPushButton(parent);
        toggle->setCheckable(true);
        return toggle;
    }
    QPushButton* push() const { return static_cast<QPushButton*>(Widget()); }
    void showMenu()
    {
        std::optional<PopUpPlace> below;
        if (QGuiApplication::mouseButtons() == Qt::NoButton)
            below.emplace(push()->mapToGlobal(QPoint(0, push()->height())));
        change([this] { button_.Push(); });
        push()->setDown(false);
    }
    void show() override
    {
        showCaption(*push(), button_, button_.HasMenu ? menuButtonDecoration : buttonDecoration);
        push()->setChecked(button_.Value);
    }
    BevelButton& button_;
};

class CheckBoxView : public WidgetView {
public:
    CheckBoxView(CheckBox& box, QWidget* parent) : WidgetView(box, new QCheckBox(parent)), box_(box)
    {
        connect(check(), &QCheckBox::toggled, this, [this](bool on) { change([this, on] { box_.Value = on; }); });
    }

private:
    QCheckBox* check() const { return static_cast<QCheckBox*>(Widget()); }
    void show() override
    {
        showCaption(*check(), box_, checkBoxDecoration);
        check()->setChecked(box_.Value);
    }
    CheckBox& box_;
};

/// Leaves the mouse wheel to the window: scrolling past a popup must not change the map.
class Popup : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

class PopupMenuView : public WidgetView {
public:
    PopupMenuView(PopupMenu& popup, QWidget* parent) : WidgetView(popup, new Popup(parent)), popup_(popup)
    {
        constexpr int rowsAtOnce = 24;
        combo()->setMaxVisibleItems(rowsAtOnce);
        for (std::int64_t row = 0; row < popup.ListCount(); ++row)
            combo()->addItem(qtText(popup.List(row)));
        connect(combo(), &QComboBox::currentIndexChanged, this,
                [this](int row) { change([this, row] { popup_.ListIndex = row; }); });
    }

private:
    QComboBox* combo() const { return static_cast<QComboBox*>(Widget()); }
    void show() override { combo()->setCurrentIndex(static_cast<int>(popup_.ListIndex)); }
    PopupMenu& popup_;
};

class ListBoxView : public WidgetView {
public:
    ListBoxView(ListBox& box, QWidget* parent) : WidgetView(box, new QListWidget(parent)), box_(box)
    {
        for (const auto& row : box.Rows)
            list()->addItem(qtText(row));
        connect(list(), &QListWidget::currentRowChanged, this,
                [this](int row) { change([this, row] { box_.ListIndex = row; }); });
    }

private:
    QListWidget* list() const { return static_cast<QListWidget*>(Widget()); }
    void show() override { list()->setCurrentRow(static_cast<int>(box_.ListIndex)); }
    ListBox& box_;
};

/// The text as it was typed: what QPlainTextEdit gives by itself has its no-break spaces replaced.
QString typedText(const QPlainTextEdit& area)
{
    QString text = area.document()->toRawText();
    return text.replace(QChar::ParagraphSeparator, '\n').replace(QChar::LineSeparator, '\n');
}

QString typedText(const QLineEdit& line)
{
    return line.text();
}

void setText(QPlainTextEdit& area, const QString& text)
{
    area.setPlainText(text);
}

void setText(QLineEdit& line, const QString& text)
{
    line.setText(text);
    line.setCursorPosition(0);
}

/// Lines of a text with an endless word end anywhere; looking for the word's end at each takes minutes. The text is
/// looked at before it is laid out.
void breakEndlessWords(QPlainTextEdit& area)
{
    QObject::connect(area.document(), &QTextDocument::contentsChange, &area, [&area] {
        area.setWordWrapMode(HasEndlessWord(area.document()->toRawText().toStdString())
                                 ? QTextOption::WrapAnywhere
                                 : QTextOption::WrapAtWordBoundaryOrAnywhere);
    });
}

template <typename Edit>
class TextView : public WidgetView {
public:
    TextView(TextControl& control, QWidget* parent) : WidgetView(control, new Edit(parent)), control_(control)
    {
        connect(edit(), &Edit::textChanged, this, [this] {
            shown_ = typedText(*edit()).toStdString();
            change([this] { control_.Text = shown_; });
        });
    }

private:
    Edit* edit() const { return static_cast<Edit*>(Widget()); }
    void show() override
    {
        if (control_.Text.get() == shown_)
            return;
        shown_ = control_.Text;
        setText(*edit(), qtText(shown_));
    }
    TextControl& control_;
    /// The control's text that the widget shows; the widget's own may have other line ends.
    std::string shown_;
};

std::unique_ptr<WidgetView> makeTextArea(TextArea& area, QWidget* parent)
{
    auto view = std::make_unique<TextView<QPlainTextEdit>>(area, parent);
    auto* edit = static_cast<QPlainTextEdit*>(view->Widget());
    edit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    edit->setTabChangesFocus(true);
    breakEndlessWords(*edit);
    return view;
}

} // namespace

std::unique_ptr<WidgetView> makeView(Control& control, QWidget* parent)
{
    switch (control.Kind) {
    case ControlKind::Label:
        return std::make_unique<LabelView>(static_cast<Label&>(control), parent);
    case ControlKind::Separator:
        return std::make_unique<SeparatorView>(static_cast<Separator&>(control), parent);
    case ControlKind::PushButton:
        return std::make_unique<PushButtonView>(static_cast<PushButton&>(control), parent);
    case ControlKind::BevelButton:
        return std::make_unique<BevelButtonView>(static_cast<BevelButton&>(control), parent);
    case ControlKind::CheckBox:
        return std::make_unique<CheckBoxView>(static_cast<CheckBox&>(control), parent);
    case ControlKind::PopupMenu:
        return std::make_unique<PopupMenuView>(static_cast<PopupMenu&>(control), parent);
    case ControlKind::ListBox:
        return std::make_unique<ListBoxView>(static_cast<ListBox&>(control), parent);
    case ControlKind::TextField:
        return std::make_unique<TextView<QLineEdit>>(static_cast<TextField&>(control), parent);
    case ControlKind::TextArea:
        return makeTextArea(static_cast<TextArea&>(control), parent);
    case ControlKind::Rectangle:
        return makeRectangleView(static_cast<Rectangle&>(control), parent);
    case ControlKind::GroupBox:
        return makeGroupBoxView(static_cast<GroupBox&>(control), parent);
    case ControlKind::TabPanel:
        return makeTabPanelView(static_cast<TabPanel&>(control), parent);
    case ControlKind::PagePanel:
        return makePagePanelView(static_cast<PagePanel&>(control), parent);
    case ControlKind::Canvas:
        return makeCanvasView(static_cast<Canvas&>(control), parent);
    }
    throw RuntimeException("A control of no known kind.");
}

} // namespace quorrin
