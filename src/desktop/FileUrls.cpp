#include "desktop/FileUrls.h"

#include "toolkit/QtBridge.h"

#include <filesystem>

namespace quorrin {

QString qtPathOf(const QUrl& url)
{
    const QByteArray bytes = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    if (!url.isLocalFile() || QString::fromUtf8(bytes).toUtf8() == bytes)
        return url.toLocalFile();
    return QtBridge::qtPath(bytes.toStdString());
}

QUrl urlOf(const std::string& path)
{
    std::error_code ignored;
    const std::string absolute = std::filesystem::absolute(path, ignored).lexically_normal().string();
    if (!QtBridge::isMarkedPath(QtBridge::qtPath(absolute)))
        return QUrl::fromLocalFile(QString::fromStdString(absolute));
    return QUrl::fromEncoded("file://" + QByteArray::fromStdString(absolute).toPercentEncoding("/"));
}

} // namespace quorrin
