#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <string>

namespace corvane {

/// A folder that is gone at the end of the test.
class TemporaryFolder {
public:
    TemporaryFolder();
    [[nodiscard]] QString path() const { return m_folder.path(); }
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }
    /// The names of everything in it, hidden things included, sorted.
    [[nodiscard]] QStringList names() const;

private:
    QTemporaryDir m_folder;
};

void writeFile(const QString& path, const QByteArray& bytes);
/// Empty for a file that isn't there.
[[nodiscard]] QByteArray readFile(const QString& path);

/// What `action` prints on standard output.
[[nodiscard]] std::string printedBy(const std::function<void()>& action);

} // namespace corvane
