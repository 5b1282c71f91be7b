#pragma once

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QMouseEvent>
#include <QObject>
#include <QString>
#include <QTextStream>
#include <QVariant>

#include <optional>

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
#include <QStringDecoder>
#else
#include <QTextCodec>
#endif

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
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    if (text.contains(QChar(0)))
        return {};
    const QString trimmed = text.trimmed();
    return trimmed.startsWith(QChar(0x2212)) ? QLatin1Char('-') + trimmed.mid(1) : trimmed;
#else
    return text;
#endif
}

/// The same for a value that may be a text; any other value is left as it is.
inline QVariant numberText(const QVariant &value)
{
    return isQt6 && value.userType() == QMetaType::QString ? QVariant(numberText(value.toString())) : value;
}

/// Makes UTF-8 what QString::toLocal8Bit() and fromLocal8Bit() speak. In Qt 6 they always do.
inline void useUtf8AsLocalEncoding()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
#endif
}

/// Makes @p stream speak UTF-8. In Qt 6 it does from the beginning.
inline void setUtf8([[maybe_unused]] QTextStream &stream)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    stream.setCodec("UTF-8");
#endif
}

/// Nothing if @p bytes are not valid UTF-8. Text codecs have become string decoders.
inline std::optional<QString> fromUtf8(const QByteArray &bytes)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
#else
    QTextCodec::ConverterState state;
    const QString text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars || state.remainingChars ? std::nullopt : std::optional(text);
#endif
}

/// The type name of what the PostgreSQL driver gives as its handle. Qt 6 looks through the alias.
constexpr const char *postgreSqlHandle = isQt6 ? "pg_conn*" : "PGconn*";

/// The type of a value, as an SQL field takes it. The enumeration has become a class.
inline auto typeOf(const QVariant &value)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return value.metaType();
#else
    return value.type();
#endif
}

/// Where the toolkit's own translations are. The reader has another name in Qt 6.
inline QString translationsFolder()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#else
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#endif
}

/// Everything of type @p T below @p root, as QObject::findChildren() gives it. In Qt 6 that crashes while an object
/// down there is deleting its children, which is when handlers of destroyed() run.
template <typename T>
QList<T *> findChildren(const QObject *root)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    QList<T *> found;
    for (QObject *child : root->children()) {
        if (!child) // just being deleted
            continue;
        if (auto *match = qobject_cast<T *>(child))
            found << match;
        found << findChildren<T>(child);
    }
    return found;
#else
    return root->findChildren<T *>();
#endif
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

/// Makes coordinates follow the scale of the screen. Qt 6 always does.
inline void useHighDpiScaling()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
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
