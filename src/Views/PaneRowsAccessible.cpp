#include "Views/PaneRowsAccessible.h"

#include "Views/PaneRows.h"

namespace corvane {

namespace {

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    if (className != QLatin1String(PaneRows::staticMetaObject.className()))
        return nullptr;
    // Qt owns what a factory returns.
    return std::make_unique<PaneRowsAccessible>(*qobject_cast<PaneRows*>(object)).release();
}

} // namespace

void PaneRowsAccessible::install()
{
    // Qt keeps one of each.
    QAccessible::installFactory(makeInterface);
}

PaneRowsAccessible::PaneRowsAccessible(PaneRows& rows, Tell tell) : AccessibleSurface(rows, std::move(tell))
{
    observe();
}

void PaneRowsAccessible::observe()
{
    QObject::connect(rows(), &PaneRows::rowChanged, &context(), [this](int row) { tellOf(row); });
    QObject::connect(rows(), &PaneRows::rowsChanged, &context(), [this] { forgetParts(); });
    QObject::connect(rows(), &PaneRows::focusRowChanged, &context(), [this] { tellOfFocus(); });
    QObject::connect(rows(), &PaneRows::goingAway, &context(), [this] { forgetItem(); });
}

PaneRows* PaneRowsAccessible::rows() const
{
    return static_cast<PaneRows*>(item());
}

int PaneRowsAccessible::partCount() const
{
    return rows()->layout().rowCount;
}

std::unique_ptr<AccessiblePart> PaneRowsAccessible::makePart(int part) const
{
    return std::make_unique<PaneRowsAccessibleChild>(*this, part);
}

std::optional<int> PaneRowsAccessible::partAt(QPointF point) const
{
    return rows()->layout().rowAt(point);
}

std::optional<int> PaneRowsAccessible::keyboardPart() const
{
    const int row = rows()->focusRow();
    return rows()->layout().contains(row) ? std::optional(row) : std::nullopt;
}

QString PaneRowsAccessible::text(QAccessible::Text kind) const
{
    const bool isNamed = kind == QAccessible::Name && rows() && rows()->model();
    return isNamed ? rows()->model()->content().title : QString();
}

PaneRowsAccessibleChild::PaneRowsAccessibleChild(const PaneRowsAccessible& rows, int index)
    : AccessiblePart(rows, index), m_rows(rows)
{
}

bool PaneRowsAccessibleChild::isValid() const
{
    const PaneRows* const rows = m_rows.rows();
    return rows && rows->model() && index() < rows->model()->rowCount();
}

const SelectableRow& PaneRowsAccessibleChild::row() const
{
    return m_rows.rows()->model()->rows().at(index());
}

QRect PaneRowsAccessibleChild::rect() const
{
    return isValid() ? m_rows.onScreen(m_rows.rows()->layout().rectOf(index())) : QRect();
}

QString PaneRowsAccessibleChild::name() const
{
    return row().accessibleName();
}

QString PaneRowsAccessibleChild::description() const
{
    return row().accessibleValue();
}

void PaneRowsAccessibleChild::tellState(QAccessible::State& state) const
{
    state.offscreen = !m_rows.rows()->layout().isInView(index());
    state.selectable = true;
    state.selected = row().isCurrent;
}

QList<PortAction> PaneRowsAccessibleChild::namedActions() const
{
    return m_rows.rows()->model()->accessibleActions(index());
}

void PaneRowsAccessibleChild::perform(PortAction::Kind kind)
{
    m_rows.rows()->model()->perform(kind, index());
}

void PaneRowsAccessibleChild::takeFocus()
{
    m_rows.rows()->forceActiveFocus(Qt::OtherFocusReason);
    m_rows.rows()->setFocusRow(index());
}

} // namespace corvane
