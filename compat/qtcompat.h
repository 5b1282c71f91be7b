#pragma once

#include <QCoreApplication>
#include <QMouseEvent>
#include <QObject>
#include <QString>
#include <QVariant>

/// Where Qt 5 and Qt 6 differ for this project. Everything else is written so that it is the same with both.
namespace qtcompat {

constexpr bool isQt6 = QT_VERSION >= QT_VERSION_CHECK(6, 0, 0);

/// The signal with a spin box's text. Qt 6 has renamed it, and Qt 5 hosts know it by the old name.
inline const char *spinBoxTextSignal()
{
    return isQt6 ? SIGNAL(textChanged(QString)) : SIGNAL(valueChanged(QString));
}

/// @p text as both understand it when they convert it to a whole number. Qt 5 takes white space of every script around
/// the digits and the sign U+2212, and nothing after a zero character; Qt 6 has it the other way round.
inline QString numberText(const QString &text)
{
    if (!isQt6)
        return text;
    if (text.contains(QChar(0)))
        return {};
    const QString trimmed = text.trimmed();
    return trimmed.startsWith(QChar(0x2212)) ? QLatin1Char('-') + trimmed.mid(1) : trimmed;
}

/// The same for a value that may be a text; any other value is left as it is.
inline QVariant numberText(const QVariant &value)
{
    return isQt6 && value.userType() == QMetaType::QString ? QVariant(numberText(value.toString())) : value;
}

/// Everything of type @p T below @p root, as QObject::findChildren() gives it. In Qt 6 that crashes while an object
/// down there is deleting its children, which is when handlers of destroyed() run.
template <typename T>
QList<T *> findChildren(const QObject *root)
{
    if constexpr (!isQt6)
        return root->findChildren<T *>();

    QList<T *> found;
    for (QObject *child : root->children()) {
        if (!child) // just being deleted
            continue;
        if (auto *match = qobject_cast<T *>(child))
            found << match;
        found << findChildren<T>(child);
    }
    return found;
}

/// Whether QIcon multiplies sizes by the screen's ratio itself. In Qt 6 it always does, and asking is deprecated.
inline bool isIconScaledByQt()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return true;
#else
    return QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
}

/// Makes QIcon multiply sizes by the screen's ratio. Qt 6 always does.
inline void useHighDpiPixmaps()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
}

/// Where on the screen a mouse event is. Qt 6 counts in fractions of a pixel, and has deprecated the old reader.
inline QPoint globalPosition(const QMouseEvent &event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event.globalPosition().toPoint();
#else
    return event.globalPos();
#endif
}
} // namespace qtcompat
