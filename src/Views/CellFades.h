#pragma once

#include "Views/GridPlace.h"

#include <QHash>

#include <functional>

namespace corvane {

/// What of single cells is on its way from one value to another, all along the same curve. Time is handed in.
class CellFades {
public:
    /// The way made, 0 to 1, after so many seconds.
    using Curve = std::function<double(double seconds)>;

    CellFades(Curve curve, double duration);

    /// Starts a cell towards `to`: from where it is if it is under way, otherwise from `from`.
    void start(GridPlace place, double from, double to);
    void advance(double seconds);
    /// `atRest` if the cell isn't under way.
    [[nodiscard]] double value(GridPlace place, double atRest) const;
    [[nodiscard]] bool isIdle() const { return m_fades.isEmpty(); }
    void clear() { m_fades.clear(); }

private:
    struct Fade {
        double from = 0;
        double to = 0;
        double elapsed = 0;
    };

    [[nodiscard]] double value(const Fade& fade) const;

    Curve m_curve;
    double m_duration;
    QHash<GridPlace, Fade> m_fades;
};

} // namespace corvane
