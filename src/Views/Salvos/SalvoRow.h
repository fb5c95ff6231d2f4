#pragma once

#include "Views/Salvos/SalvoTexts.h"

#include <QUuid>

#include <utility>

namespace corvane {

/// One line of a list of salvos: a salvo, a line of its preview, or a text among them.
struct SalvoRow {
    Q_GADGET
    QML_VALUE_TYPE(salvoRow)
    /// In QML as text.
    Q_PROPERTY(QString id READ idText FINAL)
    Q_PROPERTY(bool isSalvo READ isSalvo FINAL)
    Q_PROPERTY(bool isPreview READ isPreview FINAL)
    Q_PROPERTY(bool isHead READ isHead FINAL)
    Q_PROPERTY(bool isFoot READ isFoot FINAL)
    Q_PROPERTY(bool isNote READ isNote FINAL)
    Q_PROPERTY(bool isInvitation READ isInvitation FINAL)
    Q_PROPERTY(QString text MEMBER text FINAL)
    Q_PROPERTY(bool isExpanded MEMBER isExpanded FINAL)
    Q_PROPERTY(bool isFirst READ isFirst FINAL)
    Q_PROPERTY(bool isLast MEMBER isLast FINAL)
    Q_PROPERTY(corvane::SalvoPreviewLine preview MEMBER preview FINAL)

public:
    enum class Kind {
        salvo,
        preview,
        head,
        foot,
        /// Something about the whole list.
        note,
        /// Stands where there are no salvos, with the way to the first one.
        invitation
    };
    using Key = std::pair<QUuid, int>;

    Kind kind = Kind::salvo;
    /// The salvo's, also of its preview; null for the others.
    QUuid id;
    /// Tells rows of the same salvo apart, and those of none.
    int number = 0;
    /// A salvo's name; empty for a preview.
    QString text;
    bool isExpanded = false;
    /// The last of a preview or, with its preview, of a section.
    bool isLast = false;
    SalvoPreviewLine preview;

    [[nodiscard]] QString idText() const { return id.toString(); }
    [[nodiscard]] bool isSalvo() const { return kind == Kind::salvo; }
    [[nodiscard]] bool isPreview() const { return kind == Kind::preview; }
    [[nodiscard]] bool isHead() const { return kind == Kind::head; }
    [[nodiscard]] bool isFoot() const { return kind == Kind::foot; }
    [[nodiscard]] bool isNote() const { return kind == Kind::note; }
    [[nodiscard]] bool isInvitation() const { return kind == Kind::invitation; }
    /// The first of a preview.
    [[nodiscard]] bool isFirst() const { return isPreview() && number == 1; }
    [[nodiscard]] Key key() const { return {id, number}; }

    bool operator==(const SalvoRow&) const = default;
};

} // namespace corvane
