#include "Model/JsonStore.h"

namespace corvane {

JsonStore::JsonStore(const QString& path, const QString& owner, JsonFile::MovedAside wording)
    : m_file(path, owner, wording)
{
}

void JsonStore::load(const JsonFile::Decode& decode)
{
    m_file.load(decode);
    JsonWriter nowhere([](QByteArrayView) {});
    write(nowhere);
}

void JsonStore::saveRouter(const QString& key)
{
    m_texts.forget(key);
    save();
}

void JsonStore::save()
{
    m_file.save([this](JsonWriter& writer) { write(writer); });
}

} // namespace corvane
