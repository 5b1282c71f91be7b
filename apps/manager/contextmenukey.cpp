#include "contextmenukey.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QWindow>

bool ContextMenuKey::eventFilter(QObject *watched, QEvent *event)
{
    // Seen by the window before anything in it, which then finds the place of the menu by itself.
    if (event->type() != QEvent::KeyPress || !watched->isWindowType())
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_F10 || key->modifiers() != Qt::ShiftModifier)
        return false;
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(watched, &menu);
    return true;
}
