#pragma once

#include <QString>
#include <QStringDecoder>

#include <string>

namespace quorrin {

/// A text as widgets show it. Bytes that are no UTF-8, as old files may hold, are shown one character each.
inline QString qtText(const std::string& text)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = decoder.decode(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
    return decoder.hasError() ? QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())) : decoded;
}

} // namespace quorrin
