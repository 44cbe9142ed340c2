#include "toolkit/LaidOutText.h"

#include <QPainter>

namespace quorrin {

LaidOutText::LaidOutText(QString text, const QFont& font, double wrapWidth) : metrics_(font)
{
    text.replace("\r\n", "\n").replace('\r', '\n');
    if (text.endsWith('\n'))
        text.chop(1);
    for (const QString& paragraph : text.split('\n'))
        addParagraph(paragraph, font, wrapWidth);
}

void LaidOutText::draw(QPainter& painter, QPointF firstBaseline) const
{
    for (const QTextLayout& layout : paragraphs_)
        layout.draw(&painter, firstBaseline - QPointF(0, metrics_.ascent()));
}

void LaidOutText::addParagraph(const QString& paragraph, const QFont& font, double wrapWidth)
{
    QTextLayout& layout = paragraphs_.emplace_back(paragraph, font);
    QTextOption option;
    option.setWrapMode(wrapWidth > 0 ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::ManualWrap);
    // Only a text that wraps has a right edge at which Hebrew or Arabic could stand.
    if (wrapWidth > 0 && paragraph.isRightToLeft())
        option.setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(wrapWidth > 0 ? wrapWidth : 1e6);
        line.setPosition({0, lines_ * metrics_.lineSpacing()});
        ++lines_;
    }
    layout.endLayout();
}

} // namespace quorrin
