#pragma once

#include "Foundation/JsonFile.h"
#include "Foundation/JsonMemberCache.h"

namespace corvane {

/// What the stores have in common: content that is read once from one JSON file, and written back at every
/// change.
///
/// Every change is on the disk when the call that makes it returns. One that can't be written stays in
/// memory, a line on standard output says why, and the next save that works writes it. Main thread only.
class JsonStore {
public:
    JsonStore(const JsonStore&) = delete;
    JsonStore& operator=(const JsonStore&) = delete;
    virtual ~JsonStore() = default;

    /// `handler` is called after every save from here on.
    void onSaved(JsonFile::SaveHandler handler) { m_file.onSaved(std::move(handler)); }

protected:
    JsonStore(const QString& path, const QString& owner, JsonFile::MovedAside wording);

    /// Reads the file, and prepares the text of what it holds, so that the first change costs no more than
    /// any other. Call once, at construction.
    void load(const JsonFile::Decode& decode);
    /// Call after a change of what `writeRouters` writes for this router.
    void saveRouter(const QString& key);
    void save();

    /// Writes the whole content.
    virtual void write(JsonWriter& writer) = 0;

    /// Writes an object with one member for each router; `encode` writes a value. Only the routers that
    /// changed since the last save are encoded.
    template <typename Value, typename Encode>
    void writeRouters(JsonWriter& writer, const QHash<QString, Value>& byRouter, const Encode& encode)
    {
        writer.beginObject();
        for (auto router = byRouter.cbegin(); router != byRouter.cend(); ++router)
            m_texts.write(writer, router.key(), [&](JsonWriter& member) { encode(member, router.value()); });
        writer.endObject();
    }

private:
    JsonFile m_file;
    JsonMemberCache m_texts;
};

} // namespace corvane
