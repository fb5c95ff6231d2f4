#pragma once

#include <QAccessible>
#include <QHash>

#include <string>
#include <utility>
#include <vector>

namespace corvane {

inline std::string nameOf(const QAccessibleInterface* thing)
{
    return thing->text(QAccessible::Name).toStdString();
}

inline void act(QAccessibleInterface* on, const QString& action)
{
    on->actionInterface()->doAction(action);
}

inline void pressOn(QAccessibleInterface* thing)
{
    act(thing, QAccessibleActionInterface::pressAction());
}

/// A screen reader that has read everything of a surface once and now hears what changes: "kind of event:
/// name of what it is about".
template <typename Surface>
class SurfaceReader {
public:
    template <typename Item>
    explicit SurfaceReader(Item& item) : m_surface(item, [this](QAccessibleEvent& event) { hear(event); })
    {
        for (int i = 0; i < m_surface.childCount(); ++i)
            (void)m_surface.child(i);
    }

    [[nodiscard]] const Surface& surface() const { return m_surface; }
    /// Since the last call.
    [[nodiscard]] std::vector<std::string> heard() { return std::exchange(m_heard, {}); }

private:
    void hear(const QAccessibleEvent& event)
    {
        static const QHash<QAccessible::Event, const char*> kinds{{QAccessible::NameChanged, "name"},
            {QAccessible::DescriptionChanged, "description"}, {QAccessible::StateChanged, "state"},
            {QAccessible::Focus, "focus"}, {QAccessible::ObjectReorder, "children"}};
        m_heard.push_back(
            std::string(kinds.value(event.type(), "other")) + ": " + nameOf(event.accessibleInterface()));
    }

    std::vector<std::string> m_heard;
    Surface m_surface;
};

} // namespace corvane
