#pragma once

#include <QHash>

#include <utility>
#include <vector>

namespace corvane {

/// What a device told of each port, by port number.
///
/// Devices list their ports in order from zero, and those lie side by side in a vector. Any other number is
/// kept too, in a hash: memory grows with what was stored and never with how high a number is.
template <typename Value>
class PortTable {
public:
    void set(qint64 index, Value value)
    {
        if (isInRun(index))
            m_run[static_cast<std::size_t>(index)] = std::move(value);
        else if (index == static_cast<qint64>(m_run.size()))
            append(std::move(value));
        else
            m_others.insert(index, std::move(value));
    }

    /// Null when nothing was stored for this port. Valid until the next `set`.
    [[nodiscard]] const Value* find(qint64 index) const
    {
        if (isInRun(index))
            return &m_run[static_cast<std::size_t>(index)];
        const auto found = m_others.constFind(index);
        return found == m_others.cend() ? nullptr : &*found;
    }

    [[nodiscard]] Value* find(qint64 index)
    {
        if (isInRun(index))
            return &m_run[static_cast<std::size_t>(index)];
        const auto found = m_others.find(index);
        return found == m_others.end() ? nullptr : &*found;
    }

    /// Forgets every port but those from 0 to `count` - 1.
    void keepBelow(qint64 count)
    {
        if (static_cast<qint64>(m_run.size()) > count)
            m_run.resize(static_cast<std::size_t>(count));
        m_others.removeIf([count](typename QHash<qint64, Value>::iterator other) {
            return other.key() < 0 || other.key() >= count;
        });
    }

    /// Calls `visit(index, value)` for each port, in no particular order.
    template <typename Visit>
    void forEach(Visit visit) const
    {
        for (std::size_t index = 0; index < m_run.size(); ++index)
            visit(static_cast<qint64>(index), m_run[index]);
        for (auto other = m_others.cbegin(); other != m_others.cend(); ++other)
            visit(other.key(), other.value());
    }

private:
    [[nodiscard]] bool isInRun(qint64 index) const { return static_cast<quint64>(index) < m_run.size(); }

    void append(Value value)
    {
        // The run may have grown up to a port that came early.
        if (!m_others.isEmpty())
            m_others.remove(static_cast<qint64>(m_run.size()));
        m_run.push_back(std::move(value));
    }

    std::vector<Value> m_run;
    QHash<qint64, Value> m_others;
};

} // namespace corvane
