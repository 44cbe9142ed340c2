#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QString>
#include <QTextLayout>

#include <list>

class QPainter;

namespace quorrin {

/// A text broken into paragraphs and these into lines. For the toolkit's own .cpp files.
class LaidOutText {
public:
    /// Wraps between words at `wrapWidth` units when that is above 0.
    LaidOutText(QString text, const QFont& font, double wrapWidth);

    double height() const { return lines_ * metrics_.lineSpacing(); }

    void draw(QPainter& painter, QPointF firstBaseline) const;
    /// The same on paper, where glyphs of colour fonts go as pictures of so many pixels a unit: a PDF cannot hold such
    /// a font in a form that viewers paint.
    void drawOnPaper(QPainter& painter, QPointF firstBaseline, double pixelsPerUnit) const;

private:
    void addParagraph(const QString& paragraph, const QFont& font, double wrapWidth);

    QFontMetricsF metrics_;
    std::list<QTextLayout> paragraphs_;
    int lines_ = 0;
};

} // namespace quorrin
