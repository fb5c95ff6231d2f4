#pragma once

#include "Foundation/JsonWriter.h"

#include <QByteArray>
#include <QString>
#include <QThread>

#include <functional>
#include <optional>

namespace corvane {

/// One file of saved state: read once at start, written as a whole at every change, and never the reason for
/// a crash.
///
/// Prints one line on standard output for what goes wrong. Used on the thread that made it only.
class JsonFile {
public:
    /// How the line about an unreadable file tells where it went.
    enum class MovedAside {
        /// "… moved to labels.json.corrupt — {error}"
        namesTheCopy,
        /// "… moved aside — {error}"
        staysShort,
    };
    enum class Loaded { missing, complete, movedAside };

    /// Throws if the bytes are not what they should be. It stores its result as the last thing that it does,
    /// so that a bad file leaves nothing behind.
    using Decode = std::function<void(const QByteArray& bytes)>;
    /// Writes the whole content.
    using Encode = std::function<void(JsonWriter& writer)>;

    /// Called after every save: `error` is the reason if it failed, else absent. `fileName` has no folder.
    using SaveHandler = std::function<void(const QString& fileName, const std::optional<QString>& error)>;

    /// `owner` begins the lines, for example "LabelStore".
    JsonFile(QString path, QString owner, MovedAside wording);

    [[nodiscard]] const QString& path() const { return m_path; }
    void onSaved(SaveHandler handler) { m_onSaved = std::move(handler); }

    /// Reads the file. One that can't be read or decoded is moved aside to its name plus ".corrupt", in place
    /// of an earlier one; whether that works or not, a line is printed. Also removes what a save left behind
    /// that was killed half-way.
    Loaded load(const Decode& decode) const;

    /// Replaces the file's content in one step: whenever the program or the machine stops, the old or the new
    /// content is there whole. Makes the parent folders; keeps the file's permissions, and a link stays a
    /// link. A failure prints a line and leaves the old file. The save handler hears of both.
    void save(const Encode& encode) const;

private:
    void moveAside(const QString& error) const;

    [[nodiscard]] QString fileName() const;
    [[nodiscard]] std::optional<QString> errorOfSaving(const Encode& encode) const;

    QString m_path;
    QString m_owner;
    MovedAside m_wording;
    SaveHandler m_onSaved;
    const Qt::HANDLE m_thread = QThread::currentThreadId();
};

} // namespace corvane
