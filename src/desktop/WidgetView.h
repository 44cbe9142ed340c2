#pragma once

#include "toolkit/Controls.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace quorrin {

/// A real widget that is kept equal to its control. What a person does to the widget becomes a setting of the control;
/// signals are blocked on the way back, so that nothing loops. The widget belongs to its parent widget.
class WidgetView : public QObject, public ControlView {
public:
    ~WidgetView() override;
    void Sync() final;
    void Repaint() override { widget_->update(); }
    /// What lies on a page that is turned away takes none, so that nobody types into what they cannot see.
    void TakeFocus() final
    {
        if (widget_->isVisible())
            widget_->setFocus(Qt::OtherFocusReason);
    }

    QWidget* Widget() const { return widget_; }
    /// Where the widgets of the controls on one of its pages lie; nil for a control that holds no others.
    virtual QWidget* Page(int page) { return static_cast<void>(page), nullptr; }

protected:
    WidgetView(Control& control, QWidget* widget);
    /// Shows what the kind of control has beside the properties of all.
    virtual void show() {}
    /// Passes a person's change on and shows what has become of it.
    void change(const std::function<void()>& action);

private:
    Control& control_;
    QWidget* widget_;
};

/// The view of a control of any kind, on a widget whose corner is the corner of the window's content.
std::unique_ptr<WidgetView> makeView(Control& control, QWidget* parent);

// Of which these are made elsewhere than the plain ones.
std::unique_ptr<WidgetView> makeCanvasView(Canvas& canvas, QWidget* parent);
std::unique_ptr<WidgetView> makeRectangleView(Rectangle& rectangle, QWidget* parent);
std::unique_ptr<WidgetView> makeGroupBoxView(GroupBox& group, QWidget* parent);
std::unique_ptr<WidgetView> makeTabPanelView(TabPanel& tabs, QWidget* parent);
std::unique_ptr<WidgetView> makePagePanelView(PagePanel& pages, QWidget* parent);

} // namespace quorrin
