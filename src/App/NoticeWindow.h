#pragma once

#include "Theme/GlassKit.h"

#include <QQuickView>

namespace corvane {

/// A small window that says why the program can't start. Closing it ends the program.
class NoticeWindow : public QQuickView {
    Q_OBJECT

public:
    NoticeWindow(const QString& heading, const QString& text);
    ~NoticeWindow() override;

private:
    GlassKit m_theme{nullptr};
};

} // namespace corvane
