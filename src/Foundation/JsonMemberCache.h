#pragma once

#include "Foundation/JsonWriter.h"

#include <QByteArray>
#include <QHash>

namespace corvane {

/// Keeps the text of an object's members as it was last written, so that writing a large object again after a
/// small change copies text instead of visiting every value.
class JsonMemberCache {
public:
    /// Writes one member. `encode` writes its value; it is called unless the text is known.
    void write(JsonWriter& writer, const QString& name, const std::function<void(JsonWriter&)>& encode);

    /// Call whenever the member's value has changed or is gone.
    void forget(const QString& name) { m_texts.remove(name); }

private:
    QHash<QString, QByteArray> m_texts;
};

} // namespace corvane
