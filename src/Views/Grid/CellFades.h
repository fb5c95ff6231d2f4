#pragma once

#include "Views/Grid/GridPlace.h"

#include <QHash>
#include <QSet>

#include <functional>

namespace corvane {

/// The transitions of single cells from one value to another, all along the same curve. Time is passed in.
class CellFades {
public:
    /// The share of a transition that is done after so many seconds, 0 to 1.
    using Curve = std::function<double(double seconds)>;

    CellFades(Curve curve, double duration);

    /// Starts a cell's transition to `to`: from its present value if it is in one, otherwise from `from`.
    void start(GridPlace place, double from, double to);
    void advance(double seconds);
    /// `atRest` if the cell is in no transition.
    [[nodiscard]] double value(GridPlace place, double atRest) const;
    [[nodiscard]] bool isIdle() const { return m_fades.isEmpty(); }
    /// The rows that have cells in transition.
    [[nodiscard]] QSet<int> rows() const;
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
