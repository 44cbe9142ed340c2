#pragma once

#include <QUrl>

#include <string>

namespace quorrin {

// Other programs name files by URL, which can hold any bytes where Qt's own way from path to URL loses them.

/// The path as Qt has it; empty when the URL is of no file on this machine.
QString qtPathOf(const QUrl& url);
QUrl urlOf(const std::string& path);

} // namespace quorrin
