#pragma once

#include <QObject>

#include <optional>

namespace corvane {

/// Whether the system is set to dark, followed as it changes.
///
/// The desktop's own setting decides where there is one to ask; otherwise the lightness of the system's
/// windows does. GUI thread.
class SystemAppearance : public QObject {
    Q_OBJECT

public:
    explicit SystemAppearance(QObject* parent = nullptr);

    [[nodiscard]] bool isDark() const { return m_isDark; }

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void isDarkChanged();

private:
    void update();

    /// What the desktop said, if it has said anything.
    std::optional<bool> m_desktopPrefersDark;
    bool m_isDark;
};

} // namespace corvane
