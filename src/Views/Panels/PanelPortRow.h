#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <utility>

namespace corvane {

/// A row of one half of the panel editor: a port that is in the panel, one that could be, or the head of
/// either section.
struct PanelPortRow {
    Q_GADGET
    QML_VALUE_TYPE(panelPortRow)
    Q_PROPERTY(bool isHead READ isHead FINAL)
    Q_PROPERTY(bool isAvailableHead READ isAvailableHead FINAL)
    Q_PROPERTY(bool isChosen READ isChosen FINAL)
    Q_PROPERTY(bool isMissing MEMBER isMissing FINAL)
    Q_PROPERTY(QString number MEMBER number FINAL)
    Q_PROPERTY(QString text MEMBER text FINAL)

public:
    enum class Kind { chosenHead, chosen, availableHead, available };

    Kind kind = Kind::chosenHead;
    /// The port's own, zero-based.
    qint64 index = 0;
    /// As people count; empty for a head.
    QString number{};
    QString text{};
    /// In the panel, but not on the router.
    bool isMissing = false;

    [[nodiscard]] std::pair<int, qint64> key() const { return {static_cast<int>(kind), index}; }
    [[nodiscard]] bool isHead() const { return kind == Kind::chosenHead || isAvailableHead(); }
    [[nodiscard]] bool isAvailableHead() const { return kind == Kind::availableHead; }
    [[nodiscard]] bool isChosen() const { return kind == Kind::chosen; }

    bool operator==(const PanelPortRow&) const = default;
};

} // namespace corvane
