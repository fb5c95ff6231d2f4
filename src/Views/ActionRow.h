#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// A line of a list that offers screen readers named actions besides a press. What it is called and in which
/// states it is, `Accessible` says, as of any other item.
class ActionRow : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QStringList actionNames READ actionNames WRITE setActionNames NOTIFY actionNamesChanged FINAL)

public:
    explicit ActionRow(QQuickItem* parent = nullptr);

    [[nodiscard]] const QStringList& actionNames() const { return m_actionNames; }
    void setActionNames(const QStringList& names);

signals:
    void actionNamesChanged();
    /// A screen reader presses the row.
    void pressAsked();
    /// A screen reader asks for the action at this place of `actionNames`.
    void actionAsked(int position);

private:
    QStringList m_actionNames;
};

} // namespace corvane
