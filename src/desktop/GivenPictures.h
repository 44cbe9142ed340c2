#pragma once

#include "toolkit/Window.h"

#include <QObject>

class QWidget;

namespace quorrin {

/// Whether the clipboard holds something that the window takes as a picture.
bool canPastePicture(const Window& window);
void pastePicture(Window& window);

/// Hands a window the pictures that are dropped on its widget or pasted there by key.
class PictureTaker : public QObject {
public:
    PictureTaker(Window& window, QWidget& widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Window& window_;
};

} // namespace quorrin
