#include "Views/GridAccessible.h"

#include "Views/CrosspointMatrixView.h"

namespace corvane {

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
    // Qt keeps one of each.
    QAccessible::installFactory(makeInterface);
}

GridAccessible::GridAccessible(CrosspointMatrixView& view, Tell tell)
    : AccessibleSurface(view, std::move(tell))
{
    observe();
}

void GridAccessible::observe()
{
    const CrosspointGridModel& model = view()->model();
    QObject::connect(
        &model, &CrosspointGridModel::rowChanged, &context(), [this](int row) { tellOfRow(row); });
    QObject::connect(&model, &CrosspointGridModel::columnChanged, &context(), [this](int column) {
        tellOf(indexOf({GridPlace::header, column}));
    });
    QObject::connect(&model, &CrosspointGridModel::looksChanged, &context(), [this] { tellOfAll(); });
    QObject::connect(&model, &CrosspointGridModel::portsChanged, &context(), [this] { forgetParts(); });
    // The first part of the view to go.
    QObject::connect(&model, &QObject::destroyed, &context(), [this] { forgetItem(); });
    QObject::connect(view(), &CrosspointMatrixView::focusPlaceChanged, &context(), [this] { tellOfFocus(); });
}

CrosspointMatrixView* GridAccessible::view() const
{
    return static_cast<CrosspointMatrixView*>(item());
}

int GridAccessible::partCount() const
{
    const CanvasCellField& field = view()->layout().field;
    const int cells = view()->model().hoverEnabled() ? field.sourceCount * field.destinationCount : 1;
    return field.sourceCount + field.destinationCount + cells;
}

std::unique_ptr<AccessiblePart> GridAccessible::makePart(int part) const
{
    return std::make_unique<GridAccessibleChild>(*this, part, placeOf(part));
}

GridPlace GridAccessible::placeOf(int part) const
{
    const CanvasCellField& field = view()->layout().field;
    if (part < field.sourceCount)
        return {GridPlace::header, part};
    const int behindColumns = part - field.sourceCount;
    if (!view()->model().hoverEnabled())
        return behindColumns < field.destinationCount ? GridPlace{behindColumns, GridPlace::header}
                                                      : GridAccessibleChild::field;
    const int rowLength = 1 + field.sourceCount;
    return {behindColumns / rowLength, behindColumns % rowLength - 1};
}

int GridAccessible::indexOf(GridPlace place) const
{
    const CanvasCellField& field = view()->layout().field;
    if (place.isColumnHeader())
        return place.column;
    const bool hasCells = view()->model().hoverEnabled();
    if (place.isCell() && !hasCells)
        return partCount() - 1;
    const int rowLength = hasCells ? 1 + field.sourceCount : 1;
    return field.sourceCount + place.row * rowLength + place.column + 1;
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
    return kind == QAccessible::Name ? QStringLiteral("Crosspoint matrix") : QString();
}

void GridAccessible::tellOfRow(int row) const
{
    const int header = indexOf({row, GridPlace::header});
    const int cells = view()->model().hoverEnabled() ? view()->layout().field.sourceCount : 0;
    for (int part = header; part <= header + cells; ++part)
        tellOf(part);
}

} // namespace corvane
