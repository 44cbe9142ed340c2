#include "toolkit/LaidOutText.h"

#include "toolkit/Text.h"

#include <QGlyphRun>
#include <QPainter>
#include <QRawFont>

#include <algorithm>

namespace quorrin {

namespace {

bool isInColor(const QGlyphRun& run)
{
    constexpr const char* tables[] = {"CBDT", "COLR", "sbix", "SVG "};
    const QRawFont font = run.rawFont();
    return std::any_of(std::begin(tables), std::end(tables),
                       [&](const char* table) { return !font.fontTable(table).isEmpty(); });
}

void drawAsPicture(QPainter& painter, QPointF at, const QGlyphRun& run, double pixelsPerUnit)
{
    const QRectF area = run.boundingRect().adjusted(-1, -1, 1, 1);
    QImage image((area.size() * pixelsPerUnit).toSize(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return;
    image.fill(Qt::transparent);
    QPainter onImage(&image);
    onImage.scale(image.width() / area.width(), image.height() / area.height());
    onImage.setPen(painter.pen());
    onImage.drawGlyphRun(-area.topLeft(), run);
    onImage.end();
    painter.drawImage(area.translated(at), image);
}

} // namespace

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

void LaidOutText::drawOnPaper(QPainter& painter, QPointF firstBaseline, double pixelsPerUnit) const
{
    const QPointF at = firstBaseline - QPointF(0, metrics_.ascent());
    for (const QTextLayout& layout : paragraphs_) {
        const QList<QGlyphRun> runs = layout.glyphRuns();
        if (std::none_of(runs.begin(), runs.end(), isInColor)) {
            layout.draw(&painter, at);
            continue;
        }
        for (const QGlyphRun& run : runs) {
            if (isInColor(run))
                drawAsPicture(painter, at, run, pixelsPerUnit);
            else
                painter.drawGlyphRun(at, run);
        }
    }
}

void LaidOutText::addParagraph(const QString& paragraph, const QFont& font, double wrapWidth)
{
    QTextLayout& layout = paragraphs_.emplace_back(paragraph, font);
    QTextOption option;
    if (wrapWidth > 0)
        option.setWrapMode(HasEndlessWord(paragraph.toStdString()) ? QTextOption::WrapAnywhere
                                                                   : QTextOption::WrapAtWordBoundaryOrAnywhere);
    else
        option.setWrapMode(QTextOption::ManualWrap);
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
