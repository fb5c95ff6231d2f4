#include "support/SpoiltFiles.h"

#include "support/Files.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <QFile>

#include <array>
#include <random>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using Random = std::mt19937;

qsizetype below(qsizetype limit, Random& random)
{
    return std::uniform_int_distribution<qsizetype>(0, limit - 1)(random);
}

/// A place where a value begins.
qsizetype somewhere(const QByteArray& text, Random& random)
{
    const auto found = text.indexOf(':', below(text.size(), random));
    return found < 0 ? below(text.size(), random) : found + 1;
}

QByteArray awkward(Random& random)
{
    static const std::array pieces{QByteArray("null"), QByteArray("true"), QByteArray("1e999"),
        QByteArray("-1"), QByteArray("99999999999999999999"), QByteArray("0.5"), QByteArray("\"x\""),
        QByteArray("{}"), QByteArray("[]"), QByteArray("\0", 1), QByteArray("\xff\xfe"),
        QByteArray("\"\xc3\x28\""), QByteArray("\"\\ud800\""), QByteArray(100'000, '['),
        QByteArray("{\"a\":").repeated(10'000)};
    return pieces[static_cast<std::size_t>(below(pieces.size(), random))];
}

QByteArray mutated(QByteArray text, Random& random)
{
    const auto place = below(text.size(), random);
    const auto length = below(12, random);
    switch (below(6, random)) {
    case 0:
        text[place] = static_cast<char>(below(256, random));
        break;
    case 1:
        text.remove(place, length);
        break;
    case 2:
        text.insert(place, text.mid(below(text.size(), random), length));
        break;
    case 3:
        text.insert(somewhere(text, random), awkward(random) + ",");
        break;
    case 4: {
        const auto value = somewhere(text, random);
        text.replace(value, 1 + length, awkward(random));
        break;
    }
    default:
        text.insert(place, awkward(random));
    }
    return text;
}

/// Cut at every byte, and a few hundred with bytes changed, dropped, repeated or put in; always the same
/// ones.
QList<QByteArray> mutationsOf(const QByteArray& text)
{
    constexpr int changed = 300;
    QList<QByteArray> mutations;
    for (qsizetype length = 0; length < text.size(); ++length)
        mutations.append(text.first(length));
    Random random(20010101);
    for (int i = 0; i < changed; ++i)
        mutations.append(mutated(text, random));
    return mutations;
}

using Json = nlohmann::json;

/// Records may hold members that mean nothing to us; everything else is the operator's data.
bool isRecord(const Json& object)
{
    return object.contains("id") || object.contains("sources") || object.contains("panels")
        || object.contains("level");
}

/// Tells whether what was saved is what was read, without what may be left out.
class Comparison {
public:
    explicit Comparison(SavedFile::Missing missing) : m_mayFillIn(missing == SavedFile::Missing::isFilledIn)
    {
    }

    bool isKept(const Json& saved, const Json& original) const
    {
        if (saved.is_object() && original.is_object())
            return areMembersKept(saved, original);
        if (saved.is_array() && original.is_array())
            return std::equal(saved.begin(), saved.end(), original.begin(), original.end(),
                [this](const Json& left, const Json& right) { return isKept(left, right); });
        return saved == original || areOneUuid(saved, original);
    }

private:
    static bool areOneUuid(const Json& saved, const Json& original)
    {
        const auto text = [](const Json& json) {
            return json.is_string() ? QString::fromStdString(json.get<std::string>()) : QString();
        };
        return text(saved).size() == 36 && text(saved) == text(original).toUpper();
    }

    bool areMembersKept(const Json& saved, const Json& original) const
    {
        for (const auto& [name, value] : saved.items()) {
            const auto found = original.find(name);
            // An unknown vendor becomes another one.
            if (m_mayFillIn && (found == original.end() || found->is_null() || name == "vendor"))
                continue;
            if (found == original.end() || !isKept(value, *found))
                return false;
        }
        return m_mayFillIn || saved.size() == original.size() || isRecord(original);
    }

    const bool m_mayFillIn;
};

std::optional<Json> parsed(const QByteArray& text)
{
    auto json = Json::parse(text.begin(), text.end(), nullptr, false);
    return json.is_discarded() ? std::nullopt : std::optional(std::move(json));
}

void expectMovedAside(const SavedFile& file, const TemporaryFolder& folder, const std::string& printed)
{
    EXPECT_EQ(std::ranges::count(printed, '\n'), 1) << printed;
    EXPECT_EQ(readFile(folder.path(file.name)), file.empty);
    EXPECT_TRUE(QFile::remove(folder.path(file.name + u".corrupt"_s)));
}

void expectLoaded(const SavedFile& file, const TemporaryFolder& folder, const QByteArray& text)
{
    const auto original = parsed(text);
    const auto saved = parsed(readFile(folder.path(file.name)));
    ASSERT_TRUE(original && saved);
    EXPECT_TRUE(Comparison(file.missing).isKept(*saved, *original))
        << readFile(folder.path(file.name)).constData();
}

} // namespace

void expectWholeOrMovedAside(const SavedFile& file)
{
    const TemporaryFolder folder;
    int loaded = 0;
    for (const auto& text : mutationsOf(file.valid)) {
        SCOPED_TRACE(text.left(1000).constData());
        writeFile(folder.path(file.name), text);
        const auto printed = printedBy([&] { file.loadAndSave(folder.path()); });
        if (const auto aside = readFile(folder.path(file.name + u".corrupt"_s)); !printed.empty()) {
            EXPECT_EQ(aside, text);
            expectMovedAside(file, folder, printed);
        } else {
            expectLoaded(file, folder, text);
            ++loaded;
        }
        if (testing::Test::HasFailure())
            return;
    }
    EXPECT_GT(loaded, 10) << "the spoilt files were all refused, which shows nothing of the others";
}

} // namespace corvane
