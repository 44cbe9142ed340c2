#include "toolkit/Files.h"

#include "toolkit/QtBridge.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace quorrin {

namespace {

/// Beyond anything that the program reads; a larger file would only take the memory away.
constexpr qint64 largestFile = 1 << 30;

} // namespace

QString QtBridge::qtPath(const std::string& path)
{
    return QFile::decodeName(QByteArray::fromStdString(path));
}

std::string QtBridge::plainPath(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

std::string FolderItem::Name() const
{
    return QtBridge::plainPath(QFileInfo(QtBridge::qtPath(path_)).fileName());
}

bool FolderItem::Exists() const
{
    return QFileInfo::exists(QtBridge::qtPath(path_));
}

Ref<FolderItem> FolderItem::Child(std::string_view name) const
{
    return New<FolderItem>(path_ + "/" + std::string(name));
}

void FolderItem::CreateAsFolder() const
{
    QDir().mkpath(QtBridge::qtPath(path_));
}

struct TextInputStream::Impl {
    QFile file;
};

TextInputStream::TextInputStream(std::unique_ptr<Impl> impl) : impl_(std::move(impl))
{}

TextInputStream::~TextInputStream() = default;

Ref<TextInputStream> TextInputStream::Open(const Ref<FolderItem>& file)
{
    if (!file || !QFileInfo(QtBridge::qtPath(file->Path())).isFile())
        return nullptr;
    auto impl = std::make_unique<Impl>();
    impl->file.setFileName(QtBridge::qtPath(file->Path()));
    if (!impl->file.open(QIODevice::ReadOnly))
        return nullptr;
    return New<TextInputStream>(std::move(impl));
}

std::string TextInputStream::ReadAll()
{
    if (impl_->file.size() > largestFile)
        throw IOException("The file is too large.");
    const QByteArray bytes = impl_->file.readAll();
    if (impl_->file.error() != QFileDevice::NoError)
        throw IOException("The file cannot be read: " + impl_->file.errorString().toStdString());
    return bytes.toStdString();
}

std::optional<std::string> readFile(const Ref<FolderItem>& file)
try {
    const auto stream = TextInputStream::Open(file);
    return stream ? std::optional(stream->ReadAll()) : std::nullopt;
} catch (const IOException&) {
    return {};
}

struct TextOutputStream::Impl {
    QSaveFile file;
    [[noreturn]] void fail() const
    {
        throw IOException("The file \"" + QFileInfo(file.fileName()).fileName().toStdString()
                          + "\" cannot be written: " + file.errorString().toStdString());
    }
};

TextOutputStream::TextOutputStream(std::unique_ptr<Impl> impl) : impl_(std::move(impl))
{}

TextOutputStream::~TextOutputStream() = default;

Ref<TextOutputStream> TextOutputStream::Create(const Ref<FolderItem>& file)
{
    if (!file)
        return nullptr;
    auto impl = std::make_unique<Impl>();
    impl->file.setFileName(QtBridge::qtPath(file->Path()));
    if (!impl->file.open(QIODevice::WriteOnly))
        return nullptr;
    return New<TextOutputStream>(std::move(impl));
}

void TextOutputStream::Write(std::string_view bytes)
{
    if (impl_->file.write(bytes.data(), static_cast<qint64>(bytes.size())) != static_cast<qint64>(bytes.size()))
        impl_->fail();
}

void TextOutputStream::Close()
{
    // Committing alone does not notice that the disk took only a part of the last bytes.
    if (!impl_->file.flush() || !impl_->file.commit())
        impl_->fail();
}

Ref<FolderItem> SpecialFolder::ApplicationData()
{
    return New<FolderItem>(QtBridge::plainPath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)));
}

Ref<FolderItem> SpecialFolder::Executable()
{
    return New<FolderItem>(QtBridge::plainPath(QCoreApplication::applicationDirPath()));
}

} // namespace quorrin
