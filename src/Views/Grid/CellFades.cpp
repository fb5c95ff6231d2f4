#include "Views/Grid/CellFades.h"

namespace corvane {

CellFades::CellFades(Curve curve, double duration) : m_curve(std::move(curve)), m_duration(duration) { }

void CellFades::start(GridPlace place, double from, double to)
{
    m_fades.insert(place, {value(place, from), to, 0});
}

void CellFades::advance(double seconds)
{
    m_fades.removeIf([&](QHash<GridPlace, Fade>::iterator fade) {
        fade->elapsed += seconds;
        return fade->elapsed >= m_duration;
    });
}

double CellFades::value(GridPlace place, double atRest) const
{
    const auto fade = m_fades.constFind(place);
    return fade == m_fades.cend() ? atRest : value(*fade);
}

QSet<int> CellFades::rows() const
{
    QSet<int> rows;
    for (auto fade = m_fades.keyBegin(); fade != m_fades.keyEnd(); ++fade)
        rows.insert(fade->row);
    return rows;
}

double CellFades::value(const Fade& fade) const
{
    return fade.from + (fade.to - fade.from) * m_curve(fade.elapsed);
}

} // namespace corvane
