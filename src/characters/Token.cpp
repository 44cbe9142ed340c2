#include "document/Window1.h"
#include "toolkit/Numbers.h"
#include "toolkit/Text.h"

#include <cmath>

namespace quorrin {

namespace {

constexpr Color lineGrey = RGB(170, 170, 170);
constexpr double shrinkStep = 0.9;
/// The side of the blank picture that stands for none.
constexpr std::int64_t blankSide = 32;

} // namespace

void cCharacter::DrawCharacter(Graphics& g) const
{
    const double width = g.Width();
    const double height = g.Height();
    const double fold = height / 2;
    g.ForeColor = white;
    g.FillRect(0, 0, width, height);
    g.ForeColor = lineGrey;
    for (const double y : {fold, footHeight, height - footHeight})
        g.DrawLine(0, y, width, y);

    if (Icon) {
        const double panel = fold - footHeight;
        const auto figure = SizeIcon();
        const double x = (width - static_cast<double>(figure->Width())) / 2;
        const double inPanel = (panel - static_cast<double>(figure->Height())) / 2;
        g.DrawPicture(FlipIcon(figure), x, inPanel + footHeight);
        g.DrawPicture(figure, x, fold + inPanel);
    }

    g.ForeColor = black;
    if (Number > 0) {
        const auto number = Str(Number);
        g.DrawString(number, (width - g.StringWidth(number)) / 2, height - numberAboveEdge);
    }
    g.DrawRect(0, 0, width, height);
}

Ref<Picture> cCharacter::SizeIcon() const
{
    if (!Icon)
        return New<Picture>(blankSide, blankSide, 32);
    if (Icon->Width() <= widestIcon && Icon->Height() <= highestIcon)
        return Icon;
    const auto iconWidth = static_cast<double>(Icon->Width());
    const auto iconHeight = static_cast<double>(Icon->Height());
    double width = iconWidth;
    double height = iconHeight;
    while (width > widestIcon || height > highestIcon) {
        width *= shrinkStep;
        height *= shrinkStep;
    }
    // A very narrow or flat picture ends without area here; such a picture takes no drawing.
    auto sized = New<Picture>(Int(width), Int(height));
    sized->Graphics().DrawPicture(Icon, 0, 0, static_cast<double>(sized->Width()), static_cast<double>(sized->Height()),
                                  0, 0, iconWidth, iconHeight);
    return sized;
}

Ref<Picture> cCharacter::FlipIcon(const Ref<Picture>& src)
{
    const auto width = src->Width();
    const auto height = src->Height();
    auto flipped = New<Picture>(width, height, 32);
    PixmapShape shape(src);
    shape.UpsideDown = true;
    flipped->Graphics().DrawObject(shape, static_cast<double>(width) / 2, static_cast<double>(height) / 2);
    return flipped;
}

void cCharacter::LoadIcon()
{
    const double number = Val(IconData.get());
    Icon = number < 0 ? Window1::Shared().DrawObject(Int(std::abs(number)), solidColor)
                      : Picture::FromData(IconData, mostIconPixels);
}

} // namespace quorrin
