#include "toolkit/QtBridge.h"

#include <QStringDecoder>

#include <algorithm>

// Paths are bytes, and not all of them are UTF-8. Qt has paths as texts and loses what it cannot decode, so each such
// byte becomes a character for private use. A path that holds one of these characters itself has it taken as bytes,
// too, so that every path comes back as it was.

namespace quorrin {

namespace {

constexpr char16_t markOfByte = 0xEE00; // plus the byte

bool isMark(QChar unit)
{
    return unit >= QChar(markOfByte + 0x80) && unit <= QChar(markOfByte + 0xFF);
}

/// Empty where a byte must be marked.
QString decoded(QByteArrayView bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    const QString text = decoder.decode(bytes);
    return decoder.hasError() || QtBridge::isMarkedPath(text) ? QString() : text;
}

qsizetype lengthOfCharacter(char lead)
{
    const auto byte = static_cast<unsigned char>(lead);
    return byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

} // namespace

bool QtBridge::isMarkedPath(const QString& path)
{
    return std::any_of(path.begin(), path.end(), isMark);
}

QString QtBridge::qtPath(const std::string& path)
{
    QString result = decoded(path);
    if (!result.isEmpty())
        return result;
    for (QByteArrayView rest(path); !rest.isEmpty();) {
        const qsizetype length = std::min(lengthOfCharacter(rest.front()), rest.size());
        const QString character = decoded(rest.first(length));
        if (character.isEmpty())
            result += QChar(static_cast<char16_t>(markOfByte + static_cast<unsigned char>(rest.front())));
        result += character;
        rest = rest.sliced(character.isEmpty() ? 1 : length);
    }
    return result;
}

std::string QtBridge::plainPath(const QString& path)
{
    std::string result;
    for (auto at = path.begin(); at != path.end();) {
        const auto mark = std::find_if(at, path.end(), isMark);
        result += QStringView(at, mark).toUtf8().toStdString();
        at = mark;
        for (; at != path.end() && isMark(*at); ++at)
            result += static_cast<char>(at->unicode() - markOfByte);
    }
    return result;
}

} // namespace quorrin
