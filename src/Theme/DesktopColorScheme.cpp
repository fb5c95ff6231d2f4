#include "Theme/DesktopColorScheme.h"

#ifdef CORVANE_HAS_DBUS

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using Answer = std::function<void(std::optional<bool>)>;

constexpr QLatin1String service("org.freedesktop.portal.Desktop");
constexpr QLatin1String path("/org/freedesktop/portal/desktop");
constexpr QLatin1String interface("org.freedesktop.portal.Settings");
constexpr QLatin1String group("org.freedesktop.appearance");
constexpr QLatin1String key("color-scheme");

std::optional<bool> prefersDark(QVariant value)
{
    // The portal wraps its value, and some versions of it wrap it twice.
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    switch (value.toUInt()) {
    case 1:
        return true;
    case 2:
        return false;
    default:
        return std::nullopt;
    }
}

/// Receives the portal's signal.
class SettingListener : public QObject {
    Q_OBJECT

public:
    SettingListener(QObject* owner, Answer onAnswer) : QObject(owner), m_onAnswer(std::move(onAnswer)) { }

public slots:
    void settingChanged(const QString& changedGroup, const QString& changedKey, const QDBusVariant& value)
    {
        if (changedGroup == group && changedKey == key)
            m_onAnswer(prefersDark(value.variant()));
    }

private:
    Answer m_onAnswer;
};

void ask(QDBusConnection& bus, QObject& owner, const Answer& onAnswer)
{
    auto call = QDBusMessage::createMethodCall(service, path, interface, u"Read"_s);
    call << QString(group) << QString(key);
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), &owner);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &owner, [watcher, onAnswer] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (!reply.isError())
            onAnswer(prefersDark(reply.value().variant()));
        watcher->deleteLater();
    });
}

} // namespace

void followDesktopColorScheme(QObject& owner, const Answer& onAnswer)
{
    // Without a running bus Qt would try to launch one.
    if (!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS"))
        return;
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    auto* listener = new SettingListener(&owner, onAnswer);
    bus.connect(service, path, interface, u"SettingChanged"_s, listener,
        SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask(bus, owner, onAnswer);
}

} // namespace corvane

#include "DesktopColorScheme.moc"

#else

namespace corvane {

void followDesktopColorScheme(QObject&, const std::function<void(std::optional<bool>)>&) { }

} // namespace corvane

#endif
