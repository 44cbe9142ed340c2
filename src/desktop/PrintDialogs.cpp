#include "desktop/DesktopPlatform.h"
#include "desktop/Dialogs.h"
#include "desktop/Folders.h"
#include "desktop/LastResort.h"
#include "desktop/QtText.h"

#include "toolkit/Printing.h"
#include "toolkit/QtBridge.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>

#include <filesystem>

namespace quorrin {

bool DesktopPlatform::PageSetupDialog(PrinterSetup& setup)
{
    QPrinter printer(QPrinter::HighResolution);
    if (setup.ProposesLandscape)
        printer.setPageOrientation(QPageLayout::Landscape);
    QtBridge::applySetup(setup, printer);
    QPageSetupDialog dialog(&printer, frontWidget());
    if (dialog.exec() != QDialog::Accepted)
        return false;
    QtBridge::readSetup(printer, setup);
    return true;
}

namespace {

/// A PDF file is in color whatever Qt's dialog offers.
void offerColorModeToPrintersOnly(QPrintDialog& dialog, const QPrinter& printer)
{
    auto* colorMode = dialog.findChild<QWidget*>("colorMode");
    auto* printers = dialog.findChild<QComboBox*>("printers");
    if (!colorMode || !printers)
        return;
    const auto offer = [=, &printer] { colorMode->setEnabled(printer.outputFormat() == QPrinter::NativeFormat); };
    QObject::connect(printers, &QComboBox::currentIndexChanged, &dialog, offer);
    offer();
}

} // namespace

int takeCopies(QPrinter& printer)
{
    const int copies = printer.copyCount();
    printer.setCopyCount(1);
    return copies;
}

std::unique_ptr<Graphics> DesktopPlatform::OpenPrinterDialog(const PrinterSetup& setup, Window&,
                                                             const std::string& title)
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    QtBridge::applySetup(setup, *printer);
    printer->setDocName(qtText(title));
    QPrintDialog dialog(printer.get(), frontWidget());
    // Every print is a whole one; Qt offers a range of pages all the same.
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    for (const char* choice : {"gbPrintRange", "reverse"})
        if (auto* widget = dialog.findChild<QWidget*>(choice))
            widget->setEnabled(false);
    offerColorModeToPrintersOnly(dialog, *printer);
    if (auto* fileName = dialog.findChild<QLineEdit*>(QStringLiteral("filename")))
        fileName->setText(
            QtBridge::qtPath((std::filesystem::path(startFolder(FileKind::Map)) / (title + ".pdf")).string()));
    if (dialog.exec() != QDialog::Accepted)
        return nullptr;
    const int copies = takeCopies(*printer);
    if (printer->outputFormat() == QPrinter::PdfFormat) {
        PrinterSetup chosen;
        QtBridge::readSetup(*printer, chosen);
        return printToPdf(QtBridge::plainPath(printer->outputFileName()), chosen, copies,
                          [](const std::string& fault) { reportFault(fault.c_str()); });
    }
    auto graphics = QtBridge::graphics(std::unique_ptr<QPagedPaintDevice>(std::move(printer)));
    graphics->Copies = copies;
    return graphics;
}

} // namespace quorrin
