#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace corvane {

/// A file of saved state, and what reads it and writes it again.
struct SavedFile {
    enum class Missing { isRefused, isFilledIn };

    QString name;
    /// A whole valid file.
    QByteArray valid;
    /// What is written when there is nothing to keep.
    QByteArray empty;
    /// Loads the file in `folder` as the program does at its start, and saves it unchanged.
    std::function<void(const QString& folder)> loadAndSave;
    /// What becomes of a record that lacks a member.
    Missing missing = Missing::isRefused;
};

/// Spoils the file in several hundred ways (cut at every byte, other bytes, other types, huge numbers, deep
/// nesting, NUL bytes, invalid UTF-8) and fails unless each of them is either moved aside as it was, with one
/// line printed and nothing kept, or read with everything that it holds.
void expectWholeOrMovedAside(const SavedFile& file);

} // namespace corvane
