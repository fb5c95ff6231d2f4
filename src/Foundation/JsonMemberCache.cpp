#include "Foundation/JsonMemberCache.h"

namespace corvane {

namespace {

QByteArray encoded(const QString& name, const std::function<void(JsonWriter&)>& encode)
{
    QByteArray text;
    JsonWriter writer([&text](QByteArrayView piece) { text.append(piece); });
    writer.escapedKey(name);
    encode(writer);
    writer.flush();
    return text;
}

} // namespace

void JsonMemberCache::write(
    JsonWriter& writer, const QString& name, const std::function<void(JsonWriter&)>& encode)
{
    auto known = m_texts.constFind(name);
    if (known == m_texts.constEnd())
        known = m_texts.insert(name, encoded(name, encode));
    writer.member(*known);
}

} // namespace corvane
