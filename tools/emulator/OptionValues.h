#pragma once

#include <QByteArray>
#include <QCommandLineParser>
#include <QMap>
#include <QString>

#include <limits>
#include <optional>

namespace corvane::emulator {

/// Reads option values and remembers the first complaint about them.
class OptionValues {
public:
    explicit OptionValues(const QCommandLineParser& parser) : m_parser(parser) { }

    bool flag(const QString& option) const { return m_parser.isSet(option); }
    QString text(const QString& option) const { return m_parser.value(option); }

    int number(const QString& option, int least = 0, int most = std::numeric_limits<int>::max());

    /// Absent if the option is.
    template <typename T>
    std::optional<T> optional(const QString& option, int most = std::numeric_limits<int>::max())
    {
        return m_parser.isSet(option) ? std::optional(T(number(option, 0, most))) : std::nullopt;
    }

    /// What the option's word stands for.
    template <typename T>
    T choice(const QString& option, const QMap<QString, T>& meanings)
    {
        const auto found = meanings.find(text(option));
        if (found != meanings.end())
            return *found;
        fail(option);
        return T();
    }

    /// Two numbers with an "x" between them.
    struct Size {
        int width = 0;
        int height = 0;
    };
    Size size(const QString& option, int most);

    /// What stands in the file of that name; absent if the option is, or the file can't be read.
    std::optional<QByteArray> file(const QString& option);

    std::optional<QString> complaint() const { return m_complaint; }

private:
    int number(const QString& option, const QString& text, int least, int most);
    void fail(const QString& option);
    void complain(const QString& message);

    const QCommandLineParser& m_parser;
    std::optional<QString> m_complaint;
};

} // namespace corvane::emulator
