#include "Views/GridAccessible.h"

#include "Views/CrosspointMatrixView.h"

#include <QQuickWindow>

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
    : QAccessibleObject(&view), m_view(&view), m_tell(std::move(tell))
{
    observe();
}

GridAccessible::~GridAccessible()
{
    forgetChildren();
}

void GridAccessible::observe()
{
    const CrosspointGridModel& model = m_view->model();
    QObject::connect(
        &model, &CrosspointGridModel::rowChanged, &m_context, [this](int row) { tellOfRow(row); });
    QObject::connect(&model, &CrosspointGridModel::columnChanged, &m_context,
        [this](int column) { tellOfColumn(column); });
    QObject::connect(&model, &CrosspointGridModel::looksChanged, &m_context, [this] { tellOfAll(); });
    QObject::connect(&model, &CrosspointGridModel::portsChanged, &m_context, [this] {
        forgetChildren();
        tell(QAccessibleEvent(m_view, QAccessible::ObjectReorder));
    });
    // The first part of the view to go; from then on there is nothing to say.
    QObject::connect(&model, &QObject::destroyed, &m_context, [this] { m_view = nullptr; });
    QObject::connect(m_view, &CrosspointMatrixView::focusPlaceChanged, &m_context, [this] { tellOfFocus(); });
    QObject::connect(m_view, &QQuickItem::activeFocusChanged, &m_context, [this] { tellOfFocus(); });
}

void GridAccessible::forgetChildren()
{
    for (const QAccessible::Id id : std::exchange(m_children, {}))
        QAccessible::deleteAccessibleInterface(id);
}

QWindow* GridAccessible::window() const
{
    return m_view ? m_view->window() : nullptr;
}

QAccessibleInterface* GridAccessible::parent() const
{
    for (QQuickItem* item = m_view ? m_view->parentItem() : nullptr; item; item = item->parentItem())
        if (QAccessibleInterface* const parent = QAccessible::queryAccessibleInterface(item))
            return parent;
    return QAccessible::queryAccessibleInterface(window());
}

int GridAccessible::childCount() const
{
    if (!m_view)
        return 0;
    const CanvasCellField& field = m_view->layout().field;
    const int cells = m_view->model().hoverEnabled() ? field.sourceCount * field.destinationCount : 1;
    return field.sourceCount + field.destinationCount + cells;
}

GridPlace GridAccessible::placeOf(int index) const
{
    const CanvasCellField& field = m_view->layout().field;
    if (index < field.sourceCount)
        return {GridPlace::header, index};
    const int behindColumns = index - field.sourceCount;
    if (!m_view->model().hoverEnabled())
        return behindColumns < field.destinationCount ? GridPlace{behindColumns, GridPlace::header}
                                                      : GridAccessibleChild::field;
    const int rowLength = 1 + field.sourceCount;
    return {behindColumns / rowLength, behindColumns % rowLength - 1};
}

int GridAccessible::indexOf(GridPlace place) const
{
    const CanvasCellField& field = m_view->layout().field;
    if (place == GridAccessibleChild::field)
        return childCount() - 1;
    if (place.isColumnHeader())
        return place.column;
    const int rowLength = m_view->model().hoverEnabled() ? 1 + field.sourceCount : 1;
    return field.sourceCount + place.row * rowLength + place.column + 1;
}

QAccessibleInterface* GridAccessible::child(int index) const
{
    return index >= 0 && index < childCount() ? childAt(placeOf(index)) : nullptr;
}

QAccessibleInterface* GridAccessible::childAt(GridPlace place) const
{
    QAccessible::Id& id = m_children[place];
    if (id == 0)
        id = QAccessible::registerAccessibleInterface(
            std::make_unique<GridAccessibleChild>(*this, place).release());
    return QAccessible::accessibleInterface(id);
}

GridAccessibleChild* GridAccessible::known(GridPlace place) const
{
    const auto id = m_children.constFind(place);
    if (id == m_children.cend())
        return nullptr;
    return static_cast<GridAccessibleChild*>(QAccessible::accessibleInterface(*id));
}

int GridAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* const ours = dynamic_cast<const GridAccessibleChild*>(child);
    return m_view && ours && known(ours->place()) == ours ? indexOf(ours->place()) : -1;
}

QAccessibleInterface* GridAccessible::childAt(int x, int y) const
{
    if (!m_view)
        return nullptr;
    const auto place = m_view->layout().placeAt(m_view->mapFromGlobal(QPointF(x, y)));
    return place ? childAt(childOf(*place)) : nullptr;
}

GridPlace GridAccessible::childOf(GridPlace place) const
{
    return place.isCell() && !m_view->model().hoverEnabled() ? GridAccessibleChild::field : place;
}

std::optional<GridPlace> GridAccessible::focusedPlace() const
{
    const auto focus = m_view ? m_view->focusPlace() : std::nullopt;
    if (!focus || !m_view->hasActiveFocus())
        return std::nullopt;
    return childOf(*focus);
}

QAccessibleInterface* GridAccessible::focusChild() const
{
    const auto place = focusedPlace();
    return place ? childAt(*place) : nullptr;
}

QRect GridAccessible::rect() const
{
    return m_view ? onScreen(m_view->boundingRect()) : QRect();
}

QRect GridAccessible::onScreen(const QRectF& rect) const
{
    return QRectF(m_view->mapToGlobal(rect.topLeft()), rect.size()).toRect();
}

QString GridAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Name ? QStringLiteral("Crosspoint matrix") : QString();
}

QAccessible::State GridAccessible::state() const
{
    QAccessible::State state;
    if (!m_view)
        return state;
    state.focusable = true;
    state.focused = m_view->hasActiveFocus();
    state.invisible = !m_view->isVisible();
    state.disabled = !m_view->isEnabled();
    return state;
}

void GridAccessible::tellOfRow(int row) const
{
    const int columns = m_view->layout().field.sourceCount;
    for (int column = GridPlace::header; column < columns; ++column)
        if (GridAccessibleChild* const child = known({row, column}))
            child->tellOfChanges();
}

void GridAccessible::tellOfColumn(int column) const
{
    if (GridAccessibleChild* const child = known({GridPlace::header, column}))
        child->tellOfChanges();
}

void GridAccessible::tellOfAll() const
{
    const QList<GridPlace> places = m_children.keys();
    for (const GridPlace place : places)
        if (GridAccessibleChild* const child = known(place))
            child->tellOfChanges();
}

void GridAccessible::tellOfFocus() const
{
    if (QAccessibleInterface* const child = focusChild())
        tell(QAccessibleEvent(child, QAccessible::Focus));
}

} // namespace corvane
