#include "Views/Shared/FittingRow.h"

#include <QtQml/qqml.h>

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

FittingPart* wishesOf(QQuickItem& item)
{
    return qobject_cast<FittingPart*>(qmlAttachedPropertiesObject<FittingRow>(&item));
}

double wantedWidth(const QQuickItem& item, const FittingPart& wishes)
{
    if (wishes.fullWidth >= 0)
        return wishes.fullWidth;
    return item.implicitWidth() > 0 ? item.implicitWidth() : item.width();
}

double wantedHeight(const QQuickItem& item)
{
    return item.implicitHeight() > 0 ? item.implicitHeight() : item.height();
}

/// As QML would write it, so that a `Behavior` of the item sees it; even if the item is there already, for it
/// may be on its way elsewhere.
void move(QQuickItem& item, double x, double y)
{
    item.setProperty("x", x);
    item.setProperty("y", y);
}

/// An item that has its implicit width anyway keeps following it.
void resize(QQuickItem& item, double width)
{
    if (item.width() != width)
        item.setWidth(width);
}

} // namespace

void FittingPart::setShort(bool isShort)
{
    if (std::exchange(m_isShort, isShort) != isShort)
        emit isShortChanged();
}

int FittingPart::lineIn(int form) const
{
    return lines.isEmpty() ? 0 : std::max(0, lines.at(std::min<qsizetype>(form, lines.size() - 1)));
}

int FittingPart::lastForm() const
{
    int last = std::max(0, static_cast<int>(lines.size()) - 1);
    for (const int from : {shortFrom, shrinksFrom})
        if (from != never)
            last = std::max(last, from);
    return last;
}

FittingRow::FittingRow(QQuickItem* parent) : QQuickItem(parent)
{
    connect(this, &FittingRow::layoutChanged, this, &FittingRow::polish);
}

FittingPart* FittingRow::qmlAttachedProperties(QObject* part)
{
    // Its parent owns it.
    return std::make_unique<FittingPart>(part).release();
}

void FittingRow::itemChange(ItemChange change, const ItemChangeData& data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemChildAddedChange)
        follow(*data.item);
    else if (change == ItemChildRemovedChange)
        forget(*data.item);
    if (change == ItemChildAddedChange || change == ItemChildRemovedChange)
        polish();
}

void FittingRow::follow(QQuickItem& child)
{
    connect(wishesOf(child), &FittingPart::changed, this, &FittingRow::polish);
    connect(&child, &QQuickItem::implicitWidthChanged, this, &FittingRow::polish);
    connect(&child, &QQuickItem::implicitHeightChanged, this, &FittingRow::polish);
    connect(&child, &QQuickItem::heightChanged, this, &FittingRow::polish);
}

void FittingRow::forget(QQuickItem& child)
{
    child.disconnect(this);
    // One that never was in a layout has none.
    if (QObject* const wishes = qmlAttachedPropertiesObject<FittingRow>(&child, false))
        wishes->disconnect(this);
}

void FittingRow::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        polish();
}

void FittingRow::updatePolish()
{
    auto all = parts();
    int last = 0;
    for (const auto& part : all)
        last = std::max(last, part.wishes->lastForm());
    int form = 0;
    auto lines = arrange(form, all);
    while (form < last && width(lines, all) > room())
        lines = arrange(++form, all);
    giveWhatIsLeft(form, lines, all);
    place(lines, all);
    setForm(form, all);
}

FittingRow::Parts FittingRow::parts() const
{
    Parts parts;
    const auto children = childItems();
    for (QQuickItem* const child : children) {
        auto* const wishes = wishesOf(*child);
        parts.push_back({child, wishes, wantedWidth(*child, *wishes)});
    }
    return parts;
}

FittingRow::Lines FittingRow::arrange(int form, Parts& parts)
{
    Lines lines;
    for (size_t i = 0; i < parts.size(); ++i) {
        auto& part = parts[i];
        const auto& wishes = *part.wishes;
        const bool givesAll = form >= wishes.shrinksFrom || part.full <= 0;
        const qreal told = form >= wishes.shortFrom ? wishes.shortWidth : part.full;
        part.width = givesAll ? 0 : told;
        const auto line = static_cast<size_t>(wishes.lineIn(form));
        lines.resize(std::max(lines.size(), line + 1));
        lines[line].push_back(i);
    }
    return lines;
}

void FittingRow::giveWhatIsLeft(int form, const Lines& lines, Parts& parts) const
{
    for (const auto& line : lines) {
        for (const size_t i : line) {
            auto& part = parts[i];
            if (form < part.wishes->shrinksFrom || part.full <= 0)
                continue;
            const double taken = width(line, parts);
            const double left = room() - (taken > 0 ? taken + m_spacing : 0);
            const double got = std::clamp(left, 0.0, part.full);
            part.width = got < std::min(part.wishes->leastWidth, part.full) ? 0 : got;
        }
    }
}

double FittingRow::width(const Line& line, const Parts& parts) const
{
    double sum = 0;
    for (const size_t i : line)
        if (parts[i].width > 0)
            sum += (sum > 0 ? m_spacing : 0) + parts[i].width;
    return sum;
}

double FittingRow::width(const Lines& lines, const Parts& parts) const
{
    double widest = 0;
    for (const auto& line : lines)
        widest = std::max(widest, width(line, parts));
    return widest;
}

void FittingRow::place(const Lines& lines, const Parts& parts)
{
    const double widest = width(lines, parts);
    double whole = 0;
    for (const auto& line : lines)
        if (const double high = lineHeight(line, parts); high > 0)
            whole += (whole > 0 ? m_lineSpacing : 0) + high;
    setImplicitSize(widest, whole);

    double top = std::max(0.0, std::floor((height() - whole) / 2));
    for (const auto& line : lines) {
        const double high = lineHeight(line, parts);
        // Lines of different widths are centred on each other.
        placeLine(line, parts, {(widest - width(line, parts)) / 2, top}, high);
        top += high > 0 ? high + m_lineSpacing : 0;
    }
}

double FittingRow::lineHeight(const Line& line, const Parts& parts)
{
    double highest = 0;
    for (const size_t i : line)
        if (parts[i].width > 0)
            highest = std::max(highest, wantedHeight(*parts[i].item));
    return highest;
}

void FittingRow::placeLine(const Line& line, const Parts& parts, QPointF at, double height) const
{
    double x = at.x();
    double baseline = 0;
    double left = width(line, parts);
    for (const size_t i : line) {
        const auto& [item, wishes, full, partWidth] = parts[i];
        if (wishes->atEnd)
            x = std::max(x, width() - left);
        if (partWidth <= 0)
            continue;
        const double middle = at.y() + std::floor((height - wantedHeight(*item)) / 2);
        const double y = wishes->onBaseline ? baseline - item->baselineOffset() : middle;
        baseline = y + item->baselineOffset();
        move(*item, x, y);
        resize(*item, partWidth);
        x += partWidth + m_spacing;
        left -= partWidth + m_spacing;
    }
}

void FittingRow::setForm(int form, const Parts& parts)
{
    for (const auto& part : parts) {
        part.item->setVisible(part.width > 0);
        part.wishes->setShort(form >= part.wishes->shortFrom);
    }
    if (std::exchange(m_form, form) != form)
        emit formChanged();
}

} // namespace corvane
