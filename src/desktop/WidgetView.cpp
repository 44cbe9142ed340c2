#include "desktop/WidgetView.h"

#include "desktop/LastResort.h"
#include "desktop/QtText.h"

namespace quorrin {

WidgetView::WidgetView(Control& control, QWidget* widget) : control_(control), widget_(widget)
{
    control.View = this;
    widget->setToolTip(qtText(control.ToolTip));
}

WidgetView::~WidgetView()
{
    control_.View = nullptr;
}

void WidgetView::Sync()
{
    const QSignalBlocker quiet(widget_);
    widget_->setGeometry(control_.Left(), control_.Top(), control_.Width, control_.Height);
    widget_->setEnabled(control_.Enabled);
    if (widget_->isHidden() == control_.Visible.get())
        widget_->setVisible(control_.Visible);
    show();
}

void WidgetView::change(const std::function<void()>& action)
{
    guarded(action);
    Sync();
}

} // namespace quorrin
