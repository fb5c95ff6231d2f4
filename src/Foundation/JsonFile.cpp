#include "Foundation/JsonFile.h"

#include "Foundation/Text.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

namespace fs = std::filesystem;

constexpr auto privateToTheUser = QFile::ReadOwner | QFile::WriteOwner;

class FileError : public std::runtime_error {
public:
    explicit FileError(const QString& text) : std::runtime_error(text.toStdString()) { }
};

void throwIf(const std::error_code& error)
{
    if (error)
        throw FileError(QString::fromStdString(error.message()));
}

fs::path nativePath(const QString& path)
{
    return {path.toStdU16String()};
}

QString qtPath(const fs::path& path)
{
    return QString::fromStdU16String(path.u16string());
}

/// Where the content really lies: the file that a link, or a chain of links, points to, even if it isn't
/// there yet.
fs::path behindLinks(fs::path path)
{
    constexpr int longestChain = 40; // what Linux follows
    std::error_code ignored;
    for (int i = 0; i < longestChain && fs::is_symlink(path, ignored); ++i)
        path = path.parent_path() / fs::read_symlink(path, ignored);
    return path;
}

/// Always the same name, so that whatever a killed save leaves is found and removed by the next load or save.
fs::path besideForSaving(const fs::path& target)
{
    auto path = target;
    path += ".saving";
    return path;
}

/// Waits until what was written is on the disk. A file system that can't do this has nothing better to offer.
void syncToDisk(int descriptor)
{
    if (::fsync(descriptor) != 0 && errno != EINVAL && errno != ENOTSUP)
        throwIf({errno, std::generic_category()});
}

/// A rename is on the disk once its folder is. Whether that works or not, the file's content is whole.
void syncFolder(const fs::path& folder)
{
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

QByteArray readWhole(const QString& path)
{
    // A named pipe would keep us waiting for ever.
    if (!QFileInfo(path).isFile())
        throw FileError(u"not a regular file"_s);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(file.errorString());
    const auto bytes = file.readAll();
    if (file.error() != QFile::NoError)
        throw FileError(file.errorString());
    return bytes;
}

/// A disk that is nearly full takes the first part and refuses only the next.
void writeAll(QFile& file, QByteArrayView piece)
{
    while (!piece.isEmpty()) {
        const auto count = file.write(piece.data(), piece.size());
        if (count <= 0)
            throw FileError(file.errorString());
        piece = piece.sliced(count);
    }
}

void writeWhole(QFile& file, const JsonFile::Encode& encode)
{
    JsonWriter writer([&file](QByteArrayView piece) { writeAll(file, piece); });
    encode(writer);
    writer.flush();
}

void writeNewFile(const fs::path& path, const fs::path& target, const JsonFile::Encode& encode)
{
    QFile file(qtPath(path));
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered, privateToTheUser))
        throw FileError(file.errorString());
    writeWhole(file, encode);
    if (const QFileInfo old(qtPath(target)); old.exists())
        file.setPermissions(old.permissions());
    syncToDisk(file.handle());
}

void replace(const fs::path& target, const JsonFile::Encode& encode)
{
    std::error_code ignored;
    std::error_code error;
    fs::create_directories(target.parent_path(), error);
    throwIf(error);
    const auto fresh = besideForSaving(target);
    fs::remove(fresh, ignored);
    try {
        writeNewFile(fresh, target, encode);
        fs::rename(fresh, target, error);
        throwIf(error);
        syncFolder(target.parent_path());
    } catch (...) {
        fs::remove(fresh, ignored);
        throw;
    }
}

} // namespace

JsonFile::JsonFile(QString path, QString owner, MovedAside wording)
    : m_path(std::move(path)), m_owner(std::move(owner)), m_wording(wording)
{
}

JsonFile::Loaded JsonFile::load(const Decode& decode) const
{
    Q_ASSERT(QThread::currentThreadId() == m_thread);
    std::error_code ignored;
    fs::remove(besideForSaving(behindLinks(nativePath(m_path))), ignored);
    if (!QFileInfo::exists(m_path))
        return Loaded::missing;
    try {
        decode(readWhole(m_path));
        return Loaded::complete;
    } catch (const std::exception& error) {
        moveAside(QString::fromStdString(error.what()));
        return Loaded::movedAside;
    }
}

void JsonFile::save(const Encode& encode) const
{
    Q_ASSERT(QThread::currentThreadId() == m_thread);
    const auto error = errorOfSaving(encode);
    if (error)
        text::printLine(u"%1: save failed — %2"_s.arg(m_owner, *error));
    if (m_onSaved)
        m_onSaved(fileName(), error);
}

std::optional<QString> JsonFile::errorOfSaving(const Encode& encode) const
{
    try {
        replace(behindLinks(nativePath(m_path)), encode);
        return std::nullopt;
    } catch (const std::exception& error) {
        return QString::fromStdString(error.what());
    }
}

QString JsonFile::fileName() const
{
    return QFileInfo(m_path).fileName();
}

void JsonFile::moveAside(const QString& error) const
{
    const auto file = nativePath(m_path);
    auto copy = file;
    copy += ".corrupt";
    std::error_code ignored;
    fs::remove(copy, ignored);
    fs::rename(file, copy, ignored);

    const auto where =
        m_wording == MovedAside::namesTheCopy ? u"to "_s + qtPath(copy.filename()) : u"aside"_s;
    text::printLine(u"%1: unreadable %2 moved %3 — %4"_s.arg(m_owner, fileName(), where, error));
}

} // namespace corvane
