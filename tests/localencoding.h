#pragma once

#include <QByteArray>
#include <QtGlobal>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>

/// The encoding of local texts for its lifetime.
class LocalEncoding
{
public:
    explicit LocalEncoding(const QByteArray &name) { QTextCodec::setCodecForLocale(QTextCodec::codecForName(name)); }
    ~LocalEncoding() { QTextCodec::setCodecForLocale(m_previous); }
    Q_DISABLE_COPY(LocalEncoding)

    static bool canBe(const QByteArray &) { return true; }

private:
    QTextCodec *m_previous = QTextCodec::codecForLocale();
};
#else
/// Qt 6 knows none but UTF-8: it even changes a locale with another one when the application starts.
class LocalEncoding
{
public:
    explicit LocalEncoding(const QByteArray &name) { Q_ASSERT(canBe(name)); }
    ~LocalEncoding() {}
    Q_DISABLE_COPY(LocalEncoding)

    static bool canBe(const QByteArray &name) { return name == "UTF-8"; }
};
#endif
