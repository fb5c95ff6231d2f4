#include "Views/Shared/RowAreaAccessible.h"

#include "Views/Shared/RowArea.h"

#include <algorithm>

namespace corvane {

namespace {

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    if (className != QLatin1String(RowArea::staticMetaObject.className()))
        return nullptr;
    // Qt owns what a factory returns.
    return std::make_unique<RowAreaAccessible>(*qobject_cast<RowArea*>(object)).release();
}

} // namespace

void RowAreaAccessible::install()
{
    // Qt keeps one of each.
    QAccessible::installFactory(makeInterface);
}

RowAreaAccessible::RowAreaAccessible(RowArea& rows, Tell tell) : AccessibleSurface(rows, std::move(tell))
{
    QObject::connect(&rows, &RowArea::rowChanged, &context(), [this](int row) { tellOf(row); });
    QObject::connect(&rows, &RowArea::rowsChanged, &context(), [this] { forgetParts(); });
    QObject::connect(&rows, &RowArea::currentRowChanged, &context(), [this] { tellOfFocus(); });
    QObject::connect(&rows, &RowArea::goingAway, &context(), [this] { forgetItem(); });
}

RowArea* RowAreaAccessible::rows() const
{
    return static_cast<RowArea*>(item());
}

int RowAreaAccessible::partCount() const
{
    return rows()->rowCount();
}

std::unique_ptr<AccessiblePart> RowAreaAccessible::makePart(int part) const
{
    return std::make_unique<RowPart>(*this, part);
}

std::optional<int> RowAreaAccessible::partAt(QPointF point) const
{
    return rows()->rowAt(point);
}

std::optional<int> RowAreaAccessible::keyboardPart() const
{
    const int row = rows()->currentRow();
    return row < 0 ? std::nullopt : std::optional(row);
}

QString RowAreaAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Name && rows() ? rows()->label() : QString();
}

RowPart::RowPart(const RowAreaAccessible& rows, int index) : AccessiblePart(rows, index), m_rows(rows) { }

bool RowPart::isValid() const
{
    const RowArea* const rows = m_rows.rows();
    return rows && index() < rows->rowCount();
}

RowListModel& RowPart::model() const
{
    return *m_rows.rows()->model();
}

RowSpeech RowPart::speech() const
{
    return isValid() ? model().speech(index()) : RowSpeech();
}

QList<QAccessibleInterface*> RowPart::buttons() const
{
    return isValid() ? m_rows.rows()->buttonsOf(index()) : QList<QAccessibleInterface*>();
}

int RowPart::indexOfChild(const QAccessibleInterface* child) const
{
    const auto found = buttons();
    const auto position = std::ranges::find(found, child);
    return position == found.cend() ? -1 : static_cast<int>(position - found.cbegin());
}

QRect RowPart::rect() const
{
    return isValid() ? m_rows.onScreen(m_rows.rows()->rectOf(index())) : QRect();
}

QAccessible::Role RowPart::role() const
{
    return speech().role;
}

void RowPart::tellState(QAccessible::State& state) const
{
    const auto said = speech();
    state.offscreen = !m_rows.rows()->isInView(index());
    state.focusable = model().isReachable(index());
    state.selectable = said.isSelectable;
    state.selected = said.isSelected;
}

bool RowPart::canBePressed() const
{
    return model().isReachable(index());
}

void RowPart::press()
{
    m_rows.rows()->press(index());
}

QList<MenuAction> RowPart::namedActions() const
{
    return model().actions(index());
}

void RowPart::takeFocus()
{
    if (!canBePressed())
        return;
    m_rows.rows()->forceActiveFocus(Qt::OtherFocusReason);
    m_rows.rows()->setCurrentRow(index());
    m_rows.rows()->showRow(index());
}

} // namespace corvane
