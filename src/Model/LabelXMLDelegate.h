#pragma once

#include "Model/ParsedLabels.h"
#include "Model/RouterModels.h"

#include <QList>
#include <QStringView>
#include <QXmlStreamAttributes>

#include <optional>

namespace corvane {

/// Gathers port names from the events of an XML reader, whichever maker's names its elements and attributes
/// have; see the tables in the source. Letters' case doesn't matter, a document needs no particular root. One
/// is made for each document. Never fails: what has no meaning is passed over. Numbers in the document count
/// from 1.
class LabelXMLDelegate {
public:
    /// Names are those with their prefix, as they stand.
    void startElement(QStringView name, const QXmlStreamAttributes& attributes);
    void foundCharacters(QStringView text) { m_characters.append(text); }
    void endElement(QStringView name);

    /// What was gathered up to now, by zero-based index.
    [[nodiscard]] const ParsedLabels& labels() const { return m_labels; }

private:
    /// A port element that is open. A container inside it leaves it open.
    struct PendingPort {
        PortKind kind = PortKind::source;
        /// As written; absent where none stands or it is no number.
        std::optional<qint64> number;
        QString name;
    };

    [[nodiscard]] std::optional<PortKind> kindOfPort(QStringView name) const;
    void keep(const PendingPort& port);

    ParsedLabels m_labels;
    QList<PortKind> m_containers;
    std::optional<PendingPort> m_pending;
    /// The text since the last start of an element.
    QString m_characters;
    /// The zero-based indices for the next ports without a number.
    qint64 m_nextSource = 0;
    qint64 m_nextDestination = 0;
};

} // namespace corvane
