#pragma once

#include "Model/RouterModels.h"

#include <QFont>

namespace corvane {

/// As much of a label as any header has room for, however long it is, and some more: what lies behind it is
/// neither measured nor drawn.
[[nodiscard]] QString visiblePart(const QString& label);

/// Measures port labels in one font, their visible part only, and each label only once: a router may
/// have thousands.
class LabelWidths {
public:
    explicit LabelWidths(const QFont& font);

    /// The widest label in whole points, rounded up; 0 without ports. Forgets the labels that these ports no
    /// longer have.
    [[nodiscard]] int widest(const QList<Port>& ports);

private:
    QFont m_font;
    QHash<QString, int> m_widths;
};

} // namespace corvane
