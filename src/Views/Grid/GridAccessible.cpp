#include "Views/Grid/GridAccessible.h"

#include "Views/Grid/CrosspointMatrixView.h"

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    if (className != QLatin1String(CrosspointMatrixView::staticMetaObject.className()))
        return nullptr;
    // Qt owns what a factory returns.
    return std::make_unique<GridAccessible>(*qobject_cast<CrosspointMatrixView*>(object)).release();
}

} // namespace

void GridAccessible::install()
{
    // Qt ignores one that is installed already.
    QAccessible::installFactory(makeInterface);
}

GridAccessible::GridAccessible(CrosspointMatrixView& view, Tell tell)
    : AccessibleSurface(view, std::move(tell))
{
    observe();
}

void GridAccessible::observe()
{
    using View = CrosspointMatrixView;
    QObject::connect(view(), &View::rowChanged, &context(), [this](int row) { tellOfRow(row); });
    QObject::connect(view(), &View::columnChanged, &context(), [this](int column) {
        tellOf(indexOf({GridPlace::header, column}));
    });
    QObject::connect(view(), &View::looksChanged, &context(), [this] { tellOfAll(); });
    QObject::connect(view(), &View::placesChanged, &context(), [this] { forgetParts(); });
    QObject::connect(view(), &View::focusPlaceChanged, &context(), [this] { tellOfFocus(); });
    QObject::connect(view(), &View::goingAway, &context(), [this] { forgetItem(); });
}

CrosspointMatrixView* GridAccessible::view() const
{
    return static_cast<CrosspointMatrixView*>(item());
}

int GridAccessible::partCount() const
{
    const GridLayout& layout = view()->layout();
    const int cells = view()->hoverEnabled() ? layout.sourceCount * layout.destinationCount : 1;
    return layout.sourceCount + layout.destinationCount + cells;
}

std::unique_ptr<AccessiblePart> GridAccessible::makePart(int part) const
{
    return std::make_unique<GridAccessibleChild>(*this, part, placeOf(part));
}

GridPlace GridAccessible::placeOf(int part) const
{
    const GridLayout& layout = view()->layout();
    if (part < layout.sourceCount)
        return {GridPlace::header, part};
    const int behindColumns = part - layout.sourceCount;
    if (!view()->hoverEnabled())
        return behindColumns < layout.destinationCount ? GridPlace{behindColumns, GridPlace::header}
                                                       : GridAccessibleChild::field;
    const int rowLength = 1 + layout.sourceCount;
    return {behindColumns / rowLength, behindColumns % rowLength - 1};
}

int GridAccessible::indexOf(GridPlace place) const
{
    const GridLayout& layout = view()->layout();
    if (place.isColumnHeader())
        return place.column;
    const bool hasCells = view()->hoverEnabled();
    if (place.isCell() && !hasCells)
        return partCount() - 1;
    const int rowLength = hasCells ? 1 + layout.sourceCount : 1;
    return layout.sourceCount + place.row * rowLength + place.column + 1;
}

std::optional<int> GridAccessible::partAt(QPointF point) const
{
    const auto place = view()->layout().placeAt(point);
    return place ? std::optional(indexOf(*place)) : std::nullopt;
}

std::optional<int> GridAccessible::keyboardPart() const
{
    const auto place = view()->focusPlace();
    return place ? std::optional(indexOf(*place)) : std::nullopt;
}

QString GridAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Name ? u"Crosspoint matrix"_s : QString();
}

void GridAccessible::tellOfRow(int row) const
{
    const int header = indexOf({row, GridPlace::header});
    const int cells = view()->hoverEnabled() ? view()->layout().sourceCount : 0;
    for (int part = header; part <= header + cells; ++part)
        tellOf(part);
}

} // namespace corvane
