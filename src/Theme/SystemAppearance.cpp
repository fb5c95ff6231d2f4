#include "Theme/SystemAppearance.h"

#include "Theme/DesktopColorScheme.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

namespace corvane {

namespace {

bool hasDarkWindows()
{
    const auto palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightnessF() < palette.color(QPalette::WindowText).lightnessF();
}

} // namespace

SystemAppearance::SystemAppearance(QObject* parent) : QObject(parent), m_isDark(hasDarkWindows())
{
    qApp->installEventFilter(this);
    followDesktopColorScheme(*this, [this](std::optional<bool> prefersDark) {
        m_desktopPrefersDark = prefersDark;
        update();
    });
}

bool SystemAppearance::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange)
        update();
    return QObject::eventFilter(watched, event);
}

void SystemAppearance::update()
{
    const bool isDark = m_desktopPrefersDark.value_or(hasDarkWindows());
    if (isDark == m_isDark)
        return;
    m_isDark = isDark;
    emit isDarkChanged();
}

} // namespace corvane
