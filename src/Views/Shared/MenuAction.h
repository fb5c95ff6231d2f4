#pragma once

#include <QObject>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace corvane {

/// One thing that can be done at a place: by its menu, a key, a button there, or a screen reader.
///
/// Two actions are equal if they say the same. What an older action would `run` may be out of date: ask the
/// place again for its actions and run the one that says the same.
struct MenuAction {
    Q_GADGET
    QML_VALUE_TYPE(menuAction)
    Q_PROPERTY(QString text MEMBER text FINAL)
    Q_PROPERTY(QString symbol MEMBER symbol FINAL)
    Q_PROPERTY(bool isDestructive MEMBER isDestructive FINAL)
    Q_PROPERTY(bool isEnabled MEMBER isEnabled FINAL)

public:
    QString text;
    /// The theme's symbol for it in a menu; may be empty.
    QString symbol;
    std::function<void()> run;
    /// Does the same at a row that has the keyboard.
    QKeyCombination key = Qt::Key_unknown;
    bool isDestructive = false;
    /// Otherwise it is shown and can't be chosen.
    bool isEnabled = true;

    bool operator==(const MenuAction& other) const
    {
        return text == other.text && symbol == other.symbol && key == other.key
            && isDestructive == other.isDestructive && isEnabled == other.isEnabled;
    }
};

/// The same for QML, which wants a list of variants.
[[nodiscard]] QVariantList toVariants(const QList<MenuAction>& actions);

/// Runs the action of `offered` that says `text`; does nothing if there is none that is enabled.
void runAction(const QList<MenuAction>& offered, const QString& text);
/// The same for the one that has this key; returns whether there was one.
bool runAction(const QList<MenuAction>& offered, QKeyCombination key);

} // namespace corvane
