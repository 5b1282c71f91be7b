#pragma once

#include <QString>
#include <QTest>
#include <QVector>

/// What a test sees of the log.
///
/// Every test program calls failOnUnexpectedMessages() from its initTestCase(), because QTest::qExec() installs a
/// handler of its own first. From then on a message of level "warning" or above fails the running test, unless a
/// CapturedMessages object is alive, which keeps the messages for the test to look at. (QTest::ignoreMessage() has no
/// effect here.)
struct CapturedMessage
{
    QtMsgType type;
    QString category;
    QString file;
    int line;
    QString function;
    QString text;
};

namespace messages {

inline QVector<CapturedMessage> *capture = nullptr;
inline QtMessageHandler previousHandler = nullptr;

/// What the platform plugins say without a window manager, and where no font has the letters of some script; no fault
/// of the code under test.
inline bool isPlatformNoise(const QString &text)
{
    for (const char *noise :
         {"This plugin does not support propagateSizeHints()", "This plugin does not support raise()",
          "This plugin does not support grabbing the keyboard", "XCB error: 8 (BadMatch)",
          "OpenType support missing for"}) {
        if (text.contains(QLatin1String(noise)))
            return true;
    }
    return false;
}

inline void handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (capture) {
        capture->append({type, QString::fromUtf8(context.category), QString::fromUtf8(context.file), context.line,
                         QString::fromUtf8(context.function), text});
        return;
    }
    if (type != QtDebugMsg && type != QtInfoMsg && !isPlatformNoise(text))
        QTest::qFail(qPrintable(QStringLiteral("unexpected message: ") + text), context.file ? context.file : "",
                     context.line);
    previousHandler(type, context, text);
}
} // namespace messages

inline void failOnUnexpectedMessages()
{
    messages::previousHandler = qInstallMessageHandler(messages::handle);
}

/// Keeps every message that is written during its lifetime. Captures may be nested; the innermost one gets the
/// messages.
class CapturedMessages
{
public:
    CapturedMessages()
        : m_outer(messages::capture)
    {
        messages::capture = &m_messages;
    }
    ~CapturedMessages() { messages::capture = m_outer; }
    Q_DISABLE_COPY(CapturedMessages)

    const QVector<CapturedMessage> &all() const { return m_messages; }
    int count() const { return m_messages.count(); }
    QStringList texts() const
    {
        QStringList texts;
        for (const CapturedMessage &message : m_messages)
            texts << message.text;
        return texts;
    }

private:
    QVector<CapturedMessage> m_messages;
    QVector<CapturedMessage> *m_outer;
};
