#pragma once

#include <QString>

#include <exception>
#include <string>

namespace corvane {

using namespace Qt::StringLiterals;

/// Why a driver command was not sent. The description is what the operator reads.
class DriverError : public std::exception {
public:
    enum class Kind { unsupported, protocolError, transport, notConnected };

    /// `featureName` is one of those in `feature`.
    static DriverError unsupported(const QString& featureName) { return {Kind::unsupported, featureName}; }
    static DriverError protocolError(const QString& detail) { return {Kind::protocolError, detail}; }
    static DriverError transport(const QString& detail) { return {Kind::transport, detail}; }
    static DriverError notConnected() { return {Kind::notConnected, {}}; }

    [[nodiscard]] Kind kind() const { return m_kind; }
    [[nodiscard]] QString errorDescription() const;
    [[nodiscard]] const char* what() const noexcept override { return m_what.c_str(); }

    bool operator==(const DriverError& other) const
    {
        return m_kind == other.m_kind && m_detail == other.m_detail;
    }

private:
    DriverError(Kind kind, QString detail);

    Kind m_kind;
    QString m_detail;
    std::string m_what;
};

/// The features that a router may lack.
namespace feature {
inline const auto locking = u"Locking"_s;
inline const auto renaming = u"Renaming"_s;
} // namespace feature

} // namespace corvane
