#include "App/NoticeWindow.h"

#include <QQmlEngine>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize windowSize{480, 280};

} // namespace

NoticeWindow::NoticeWindow(const QString& heading, const QString& text)
{
    setTitle(u"Corvane"_s);
    setMinimumSize(windowSize);
    resize(windowSize);
    connect(&m_theme, &GlassKit::paletteChanged, this, [this] { setColor(m_theme.palette().window); });
    setColor(m_theme.palette().window);
    m_theme.serve(*engine());
    setResizeMode(SizeRootObjectToView);
    engine()->addImportPath(u"qrc:/qt/qml"_s);
    setInitialProperties({{u"heading"_s, heading}, {u"text"_s, text}});
    setSource(QUrl(u"qrc:/qt/qml/Corvane/App/NoticeView.qml"_s));
}

NoticeWindow::~NoticeWindow()
{
    // The screen uses the theme, which is gone before the view's own end.
    setSource({});
}

} // namespace corvane
