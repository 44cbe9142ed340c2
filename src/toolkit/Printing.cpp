#include "toolkit/Printing.h"

#include "toolkit/Errors.h"
#include "toolkit/Files.h"
#include "toolkit/Platform.h"
#include "toolkit/QtBridge.h"

#include <QBuffer>
#include <QFileInfo>
#include <QMap>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <cmath>
#include <optional>

namespace quorrin {

namespace {

constexpr double pointsPerInch = 72;
/// Below this no page setup that a person could mean leaves anything to print on.
constexpr double smallestSide = 36;
constexpr double largestSide = 14400;
/// The margins of a setup that names none, in points; few printers reach closer to the edge on all sides.
constexpr double usualMargin = 28;

/// The pages of a printer or PDF; a unit is a point, the origin the corner of the printable area.
class PageDevice : public GraphicsDevice {
public:
    explicit PageDevice(std::unique_ptr<QPagedPaintDevice> device)
        : device_(std::move(device)), area_(device_->pageLayout().paintRect(QPageLayout::Point))
    {
        if (!painter_.begin(device_.get()))
            throw IOException("The printer cannot be started.");
        useUnits();
    }
    double width() const override { return area_.width(); }
    double height() const override { return area_.height(); }
    bool wholeUnits() const override { return false; }
    void draw(Step step) override { carryOut(step, {painter_, Surface::Kind::Paper}); }
    void nextPage() override
    {
        device_->newPage();
        useUnits();
    }

protected:
    void finish()
    {
        painter_.end();
        device_.reset();
    }

private:
    void useUnits()
    {
        painter_.resetTransform();
        painter_.scale(device_->logicalDpiX() / pointsPerInch, device_->logicalDpiY() / pointsPerInch);
    }

    std::unique_ptr<QPagedPaintDevice> device_;
    QRectF area_;
    QPainter painter_;
};

using Failed = std::function<void(const std::string& fault)>;

/// The same, collected for a file that is replaced at the end.
class PdfDevice : public PageDevice {
public:
    PdfDevice(Ref<TextOutputStream> file, std::unique_ptr<QBuffer> pages, std::unique_ptr<QPagedPaintDevice> writer,
              Failed failed)
        : PageDevice(std::move(writer)), file_(std::move(file)), pages_(std::move(pages)), failed_(std::move(failed))
    {}
    ~PdfDevice() override
    {
        finish();
        try {
            file_->Write({pages_->data().constData(), static_cast<std::size_t>(pages_->size())});
            file_->Close();
        } catch (const IOException& failure) {
            if (failed_)
                failed_(failure.what());
        }
    }

private:
    Ref<TextOutputStream> file_;
    std::unique_ptr<QBuffer> pages_;
    Failed failed_;
};

// The setup text: "paper=A4;size=595x842;orientation=landscape;margins=28,28,28,28", sizes in points, margins from the
// left clockwise. Whatever part is missing or makes no sense is left as usual.

std::optional<QPageSize> knownPaper(const QString& key)
{
    for (int id = 0; id <= QPageSize::LastPageSize; ++id)
        if (QPageSize::key(static_cast<QPageSize::PageSizeId>(id)) == key && !key.isEmpty())
            return QPageSize(static_cast<QPageSize::PageSizeId>(id));
    return {};
}

/// As many numbers as wanted, each within `least` to largestSide, or none.
QList<double> numbers(const QString& text, QChar delimiter, int wanted, double least)
{
    QList<double> found;
    for (const QString& part : text.split(delimiter)) {
        bool isNumber = false;
        const double number = part.toDouble(&isNumber);
        if (!isNumber || !std::isfinite(number) || number < least || number > largestSide)
            return {};
        found.append(number);
    }
    return found.size() == wanted ? found : QList<double>();
}

QMap<QString, QString> parts(const std::string& setupString)
{
    QMap<QString, QString> found;
    for (const QString& part : QString::fromStdString(setupString).split(';')) {
        const auto equals = part.indexOf('=');
        if (equals > 0)
            found.insert(part.left(equals).trimmed(), part.mid(equals + 1).trimmed());
    }
    return found;
}

QPageLayout layoutOf(const PrinterSetup& setup, QPageLayout layout)
{
    const auto wanted = parts(setup.SetupString);
    layout.setUnits(QPageLayout::Point);
    layout.setMargins({usualMargin, usualMargin, usualMargin, usualMargin});
    const auto size = numbers(wanted["size"], 'x', 2, smallestSide);
    if (const auto paper = knownPaper(wanted["paper"]))
        layout.setPageSize(*paper);
    else if (!size.isEmpty())
        layout.setPageSize(QPageSize(QSizeF(size[0], size[1]), QPageSize::Point));
    if (wanted["orientation"] == "landscape")
        layout.setOrientation(QPageLayout::Landscape);
    else if (wanted["orientation"] == "portrait")
        layout.setOrientation(QPageLayout::Portrait);
    const auto margins = numbers(wanted["margins"], ',', 4, 0);
    const QSizeF page = layout.fullRect(QPageLayout::Point).size();
    if (!margins.isEmpty() && margins[0] + margins[2] <= page.width() - smallestSide
        && margins[1] + margins[3] <= page.height() - smallestSide)
        layout.setMargins({margins[0], margins[1], margins[2], margins[3]});
    // A page too small for the margins that it has is printed on without any.
    if (layout.paintRect(QPageLayout::Point).isEmpty())
        layout.setMargins({});
    return layout;
}

} // namespace

std::unique_ptr<Graphics> QtBridge::graphics(std::unique_ptr<QPagedPaintDevice> device)
{
    return std::make_unique<Graphics>(std::make_unique<PageDevice>(std::move(device)));
}

void QtBridge::applySetup(const PrinterSetup& setup, QPagedPaintDevice& device)
{
    device.setPageLayout(layoutOf(setup, device.pageLayout()));
}

void QtBridge::readSetup(const QPagedPaintDevice& device, PrinterSetup& setup)
{
    const QPageLayout layout = device.pageLayout();
    const QSizeF size = layout.pageSize().size(QPageSize::Point);
    const QMarginsF margins = layout.margins(QPageLayout::Point);
    setup.SetupString = QStringLiteral("paper=%1;size=%2x%3;orientation=%4;margins=%5,%6,%7,%8")
                            .arg(layout.pageSize().key())
                            .arg(size.width())
                            .arg(size.height())
                            .arg(layout.orientation() == QPageLayout::Landscape ? "landscape" : "portrait")
                            .arg(margins.left())
                            .arg(margins.top())
                            .arg(margins.right())
                            .arg(margins.bottom())
                            .toStdString();
}

PrinterSetup setupOfPaper(const std::string& paper, bool landscape)
{
    return {"paper=" + paper + ";orientation=" + (landscape ? "landscape" : "portrait")};
}

PrinterSetup setupOfWholePaper(const std::string& paper, bool landscape)
{
    return {setupOfPaper(paper, landscape).SetupString + ";margins=0,0,0,0"};
}

std::unique_ptr<Graphics> printToPdf(const std::string& path, const PrinterSetup& setup, int copies, Failed failed)
{
    const auto item = New<FolderItem>(path);
    std::string obstacle;
    auto file = TextOutputStream::Create(item, obstacle);
    if (!file)
        throw IOException("The file \"" + item->Name() + "\" cannot be created. " + obstacle);
    auto pages = std::make_unique<QBuffer>();
    pages->open(QIODevice::WriteOnly);
    auto writer = std::make_unique<QPdfWriter>(pages.get());
    writer->setCreator(QStringLiteral("Quorrin Map Maker"));
    writer->setTitle(QFileInfo(QString::fromStdString(item->Name())).completeBaseName());
    QtBridge::applySetup(setup, *writer);
    auto graphics = std::make_unique<Graphics>(
        std::make_unique<PdfDevice>(std::move(file), std::move(pages), std::move(writer), std::move(failed)));
    graphics->Copies = std::max(1, copies);
    return graphics;
}

} // namespace quorrin
