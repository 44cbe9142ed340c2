#include "desktop/DesktopPlatform.h"
#include "desktop/Dialogs.h"
#include "desktop/QtText.h"

#include <QBoxLayout>
#include <QColorDialog>
#include <QEvent>
#include <QLabel>
#include <QToolButton>

#include <algorithm>

namespace quorrin {

namespace {

/// Swatches for walls, each line from dark to light: stone, old stone, wood, brick, gold, moss, water, magic.
constexpr QRgb swatches[] = {
    0x000000, 0x333333, 0x595959, 0x808080, 0xb3b3b3, 0xffffff, //
    0x2e2a26, 0x4d4640, 0x6e655c, 0x91877b, 0xb8ada0, 0xddd5c9, //
    0x2b1a0e, 0x4a2f1a, 0x6b4423, 0x8f5e33, 0xb58452, 0xd9b382, //
    0x3d0f0a, 0x6b1a12, 0x9c2a1c, 0xc43d2b, 0xe06a55, 0xf2a99a, //
    0x5c3d00, 0x8a5c00, 0xb87e00, 0xe0a100, 0xf7c73e, 0xffe699, //
    0x122b0f, 0x234a1c, 0x38702c, 0x549440, 0x83b96b, 0xb9dca6, //
    0x0a2540, 0x123f6b, 0x1d5c99, 0x3381c7, 0x6fafe3, 0xb3d7f5, //
    0x240f3d, 0x42206b, 0x643399, 0x8a55c2, 0xb58be0, 0xdcc6f5, //
};

/// The colours chosen in this run, the last one first. Qt's own custom colours would be written to a file.
QList<QColor>& usedColors()
{
    static QList<QColor> colors;
    return colors;
}

void rememberUse(const QColor& color)
{
    constexpr qsizetype most = 8;
    auto& used = usedColors();
    used.removeAll(color);
    used.prepend(color);
    used.resize(std::min(most, used.size()));
}

/// A row of buttons with the colours used before; nothing before the first.
void addUsedColors(QColorDialog& dialog)
{
    auto* rows = qobject_cast<QBoxLayout*>(dialog.layout());
    if (!rows || usedColors().isEmpty())
        return;
    constexpr QSize size(24, 16);
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(QStringLiteral("Used before:"), &dialog));
    for (const QColor& color : usedColors()) {
        QPixmap swatch(size);
        swatch.fill(color);
        auto* button = new QToolButton(&dialog);
        button->setIcon(swatch);
        button->setIconSize(size);
        button->setToolTip(color.name());
        button->setAccessibleName(color.name());
        QObject::connect(button, &QToolButton::clicked, &dialog, [&dialog, color] { dialog.setCurrentColor(color); });
        row->addWidget(button);
    }
    row->addStretch();
    rows->insertLayout(0, row);
}

/// A pick in the spectrum changes hue and saturation alone, so from black it would stay black: it starts from full
/// brightness there.
class BrightPicks : public QObject {
public:
    explicit BrightPicks(QColorDialog& dialog) : QObject(&dialog), dialog_(dialog)
    {
        for (QWidget* part : dialog.findChildren<QWidget*>())
            if (QByteArrayView(part->metaObject()->className()).endsWith("ColorPicker"))
                part->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        constexpr int tooDarkToTell = 32;
        if (event->type() == QEvent::MouseButtonPress && dialog_.currentColor().value() < tooDarkToTell)
            dialog_.setCurrentColor(Qt::white);
        return QObject::eventFilter(watched, event);
    }

private:
    QColorDialog& dialog_;
};

} // namespace

bool DesktopPlatform::SelectColor(Color& color, const std::string& prompt)
{
    for (int i = 0; i < static_cast<int>(std::size(swatches)); ++i)
        QColorDialog::setStandardColor(i, swatches[i]);
    QColorDialog dialog(QColor(color.red, color.green, color.blue), frontWidget());
    dialog.setWindowTitle(qtText(prompt));
    addUsedColors(dialog);
    new BrightPicks(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    color = colorFromNumber(dialog.selectedColor().rgb() & 0xFFFFFF);
    rememberUse(dialog.selectedColor());
    return true;
}

} // namespace quorrin
