#pragma once

#include "toolkit/Graphics.h"

#include <functional>
#include <memory>
#include <string>

namespace quorrin {

struct PrinterSetup;

/// The setup of a paper by its common name ("A4", "Letter"), everything else as the device has it.
PrinterSetup setupOfPaper(const std::string& paper, bool landscape);

/// The same, with the origin at the corner of the paper.
PrinterSetup setupOfWholePaper(const std::string& paper, bool landscape);

/// Pages of a PDF file, in points of the printable size, with `copies` as its `Copies`. The file is replaced when the
/// surface goes, and only when all of it is safely on disk; otherwise `failed` gets a sentence that tells why.
/// Raises IOException when the file cannot be created. Needs no screen.
std::unique_ptr<Graphics> printToPdf(const std::string& path, const PrinterSetup& setup, int copies,
                                     std::function<void(const std::string& fault)> failed = {});

} // namespace quorrin
