#include "accessiblesecrets.h"

#include <vxwidgets/passwordedit.h>

#include <QAccessible>

namespace accessiblesecrets {
namespace {

QAccessible::UpdateHandler nextHandler = nullptr;

void forwardMasked(QAccessibleEvent *event);

void forward(QAccessibleEvent *event)
{
    if (nextHandler) {
        nextHandler(event);
        return;
    }
    // Only without any handler does Qt tell the platform.
    QAccessible::installUpdateHandler(nullptr);
    QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(forwardMasked);
}

bool isSecret(const QAccessibleEvent *event)
{
    const auto *edit = qobject_cast<PasswordEdit *>(event->object());
    return edit && edit->echoMode() != QLineEdit::Normal;
}

QString masked(const QString &text)
{
    return QString(text.size(), QLatin1Char('*'));
}

void forwardMasked(QAccessibleEvent *event)
{
    switch (isSecret(event) ? event->type() : QAccessible::InvalidEvent) {
    case QAccessible::TextInserted: {
        const auto *insert = static_cast<const QAccessibleTextInsertEvent *>(event);
        QAccessibleTextInsertEvent told(event->object(), insert->changePosition(), masked(insert->textInserted()));
        told.setCursorPosition(insert->cursorPosition());
        return forward(&told);
    }
    case QAccessible::TextRemoved: {
        const auto *remove = static_cast<const QAccessibleTextRemoveEvent *>(event);
        QAccessibleTextRemoveEvent told(event->object(), remove->changePosition(), masked(remove->textRemoved()));
        told.setCursorPosition(remove->cursorPosition());
        return forward(&told);
    }
    case QAccessible::TextUpdated: {
        const auto *update = static_cast<const QAccessibleTextUpdateEvent *>(event);
        QAccessibleTextUpdateEvent told(event->object(), update->changePosition(), masked(update->textRemoved()),
                                        masked(update->textInserted()));
        told.setCursorPosition(update->cursorPosition());
        return forward(&told);
    }
    default:
        forward(event);
    }
}
} // namespace

void guard()
{
    static bool isGuarded = false;
    if (isGuarded)
        return;
    isGuarded = true;
    nextHandler = QAccessible::installUpdateHandler(forwardMasked);
}
} // namespace accessiblesecrets
