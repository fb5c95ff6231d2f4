#include "Foundation/JsonReader.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <variant>
#include <vector>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// A piece of `JsonTape::characters`.
struct Characters {
    std::size_t offset = 0;
    std::size_t length = 0;
};
struct Key : Characters { };
struct Text : Characters { };
/// Containers know where they end, so that passing over one costs nothing.
struct Array {
    std::size_t end = 0;
};
struct Object {
    std::size_t end = 0;
};

using Token = std::variant<std::monostate, bool, qint64, double, Key, Text, Array, Object>;

} // namespace

/// Values laid out flat in the order of the text, each member's key before its value: a fraction of the size
/// of a tree, and nothing that is built or freed node by node.
struct JsonTape {
    std::vector<Token> tokens;
    std::string characters;

    [[nodiscard]] std::string_view view(const Characters& piece) const
    {
        return std::string_view(characters).substr(piece.offset, piece.length);
    }

    [[nodiscard]] QString text(const Characters& piece) const
    {
        return QString::fromUtf8(characters.data() + piece.offset, static_cast<qsizetype>(piece.length));
    }
};

namespace {

/// Receives the parser's events. What belongs to one value below the root collects on the tape and is then
/// handed out.
class TapeWriter {
public:
    using Visit = std::function<void(const JsonTape& tape)>;
    enum class Root { array, object };

    TapeWriter(Root root, const Visit& visit) : m_root(root), m_visit(visit) { }

    bool null() { return value(std::monostate()); }
    bool boolean(bool flag) { return value(flag); }
    bool number_integer(qint64 number) { return value(number); }
    bool number_unsigned(quint64 number)
    {
        return std::in_range<qint64>(number) ? value(static_cast<qint64>(number))
                                             : value(static_cast<double>(number));
    }
    bool number_float(double number, const std::string&) { return value(number); }
    bool string(const std::string& text) { return value(Text{keep(text)}); }
    bool binary(const nlohmann::json::binary_t&) { return false; }

    bool start_object(std::size_t) { return open(Root::object, Object()); }
    bool end_object() { return close<Object>(); }
    bool start_array(std::size_t) { return open(Root::array, Array()); }
    bool end_array() { return close<Array>(); }

    bool key(const std::string& name)
    {
        m_tape.tokens.emplace_back(Key{keep(name)});
        return true;
    }

    bool parse_error(std::size_t position, const std::string&, const nlohmann::json::exception&)
    {
        throw JsonError(u"not JSON at byte %1"_s.arg(position));
    }

private:
    Characters keep(const std::string& text)
    {
        m_tape.characters += text;
        return {m_tape.characters.size() - text.size(), text.size()};
    }

    bool value(Token token)
    {
        refuseUnlessInsideRoot();
        m_tape.tokens.push_back(token);
        handOutIfComplete();
        return true;
    }

    bool open(Root kind, Token token)
    {
        if (!m_insideRoot && kind == m_root) {
            m_insideRoot = true;
            return true;
        }
        refuseUnlessInsideRoot();
        m_open.push_back(m_tape.tokens.size());
        m_tape.tokens.push_back(token);
        return true;
    }

    template <typename Container>
    bool close()
    {
        if (m_open.empty())
            return true;
        std::get<Container>(m_tape.tokens[m_open.back()]).end = m_tape.tokens.size();
        m_open.pop_back();
        handOutIfComplete();
        return true;
    }

    void refuseUnlessInsideRoot() const
    {
        if (!m_insideRoot)
            throw JsonError(m_root == Root::array ? u"not an array"_s : u"not an object"_s);
    }

    void handOutIfComplete()
    {
        if (!m_open.empty())
            return;
        m_visit(m_tape);
        m_tape.tokens.clear();
        m_tape.characters.clear();
    }

    const Root m_root;
    const Visit& m_visit;
    bool m_insideRoot = false;
    JsonTape m_tape;
    std::vector<std::size_t> m_open;
};

void parse(QByteArrayView text, TapeWriter::Root root, const TapeWriter::Visit& visit)
{
    // The parser takes a NUL for the end of the text and would let anything follow it.
    if (text.contains('\0'))
        throw JsonError(u"a NUL byte at %1"_s.arg(text.indexOf('\0')));
    TapeWriter writer(root, visit);
    nlohmann::json::sax_parse(text.begin(), text.end(), &writer);
}

bool isUuidText(std::string_view text)
{
    constexpr std::string_view pattern = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
    constexpr std::string_view hexadecimal = "0123456789abcdefABCDEF";
    return std::ranges::equal(text, pattern, [&](char letter, char expected) {
        return expected == '-' ? letter == '-' : hexadecimal.find(letter) != std::string_view::npos;
    });
}

} // namespace

bool JsonValue::isNull() const
{
    return std::holds_alternative<std::monostate>(m_tape->tokens[m_position]);
}

QString JsonValue::string() const
{
    const auto* const text = std::get_if<Text>(&m_tape->tokens[m_position]);
    if (!text)
        throw isNot(u"a string"_s);
    return m_tape->text(*text);
}

qint64 JsonValue::integer() const
{
    const auto& token = m_tape->tokens[m_position];
    if (const auto* const whole = std::get_if<qint64>(&token))
        return *whole;
    const auto* const number = std::get_if<double>(&token);
    constexpr double beyond = 9223372036854775808.0; // 2 to the power of 63
    if (!number || std::trunc(*number) != *number || *number <= -beyond || *number >= beyond)
        throw isNot(u"a whole number of 64 bits"_s);
    return static_cast<qint64>(*number);
}

double JsonValue::number() const
{
    const auto& token = m_tape->tokens[m_position];
    if (const auto* const whole = std::get_if<qint64>(&token))
        return static_cast<double>(*whole);
    const auto* const number = std::get_if<double>(&token);
    if (!number)
        throw isNot(u"a number"_s);
    return *number;
}

QUuid JsonValue::uuid() const
{
    const auto* const text = std::get_if<Text>(&m_tape->tokens[m_position]);
    if (!text || !isUuidText(m_tape->view(*text)))
        throw isNot(u"a UUID"_s);
    return QUuid::fromString(m_tape->text(*text));
}

JsonValue JsonValue::member(std::string_view name) const
{
    const auto found = lastMember(name);
    if (!found)
        throw JsonError(u"“%1” is missing"_s.arg(QString::fromUtf8(name)));
    return *found;
}

std::optional<JsonValue> JsonValue::optionalMember(std::string_view name) const
{
    const auto found = lastMember(name);
    return found && !found->isNull() ? found : std::nullopt;
}

std::optional<JsonValue> JsonValue::lastMember(std::string_view name) const
{
    std::optional<JsonValue> found;
    const auto& tokens = m_tape->tokens;
    for (auto i = firstMember(), stop = end(); i != stop; i = past(i + 1)) {
        if (m_tape->view(*std::get_if<Key>(&tokens[i])) == name)
            found = JsonValue(*m_tape, i + 1);
    }
    return found;
}

std::size_t JsonValue::elementCount() const
{
    std::size_t count = 0;
    forEachElement([&](const JsonValue&) { ++count; });
    return count;
}

std::size_t JsonValue::firstMember() const
{
    if (!std::holds_alternative<Object>(m_tape->tokens[m_position]))
        throw isNot(u"an object"_s);
    return m_position + 1;
}

std::size_t JsonValue::firstElement() const
{
    if (!std::holds_alternative<Array>(m_tape->tokens[m_position]))
        throw isNot(u"an array"_s);
    return m_position + 1;
}

std::size_t JsonValue::end() const
{
    return past(m_position);
}

std::size_t JsonValue::past(std::size_t position) const
{
    const auto& token = m_tape->tokens[position];
    if (const auto* const object = std::get_if<Object>(&token))
        return object->end;
    if (const auto* const array = std::get_if<Array>(&token))
        return array->end;
    return position + 1;
}

QString JsonValue::key(std::size_t position) const
{
    return m_tape->text(std::get<Key>(m_tape->tokens[position]));
}

JsonError JsonValue::isNot(const QString& what) const
{
    const auto* const name = m_position > 0 ? std::get_if<Key>(&m_tape->tokens[m_position - 1]) : nullptr;
    const auto subject = name ? u"“%1”"_s.arg(m_tape->text(*name)) : u"an element"_s;
    return JsonError(u"%1 is not %2"_s.arg(subject, what));
}

void readJsonObject(
    QByteArrayView text, const std::function<void(const QString& name, JsonValue value)>& visit)
{
    parse(text, TapeWriter::Root::object, [&visit](const JsonTape& tape) {
        visit(tape.text(std::get<Key>(tape.tokens.front())), JsonValue(tape, 1));
    });
}

void readJsonArray(QByteArrayView text, const std::function<void(JsonValue element)>& visit)
{
    parse(text, TapeWriter::Root::array, [&visit](const JsonTape& tape) { visit(JsonValue(tape, 0)); });
}

} // namespace corvane
