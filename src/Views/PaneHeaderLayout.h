#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// How wide the parts of a pane's header want to be. A part that there is not has no width.
struct PaneHeaderParts {
    double title = 0;
    double subtitle = 0;
    double count = 0;
    /// All header actions with the room between them: with their labels, and as symbols alone.
    double labelledActions = 0;
    double iconActions = 0;
    /// The subtitle is not to be cut short as long as the title is shown.
    bool subtitleIsPriority = false;
};

/// What of a pane's header is shown.
struct PaneHeaderFit {
    Q_GADGET
    QML_VALUE_TYPE(paneHeaderFit)
    Q_PROPERTY(bool showsTitle MEMBER showsTitle FINAL)
    Q_PROPERTY(bool showsCount MEMBER showsCount FINAL)
    Q_PROPERTY(bool showsLabels MEMBER showsLabels FINAL)
    Q_PROPERTY(double subtitleWidth MEMBER subtitleWidth FINAL)

public:
    bool showsTitle = false;
    bool showsCount = false;
    /// The header actions have their labels.
    bool showsLabels = false;
    /// What the subtitle gets; 0 where it would be too little to be read.
    double subtitleWidth = 0;

    bool operator==(const PaneHeaderFit&) const = default;
};

/// Shows the first of these that fits `available`: title and count; the title; neither. Then the actions get
/// their labels if there is room, and a subtitle that may be cut short what is left.
[[nodiscard]] PaneHeaderFit fitPaneHeader(const PaneHeaderParts& parts, double available);

/// Between any two things in a pane's header.
inline constexpr double paneHeaderSpacing = 8;
/// The dot that every header begins with.
inline constexpr double paneHeaderDot = 9;

} // namespace corvane
