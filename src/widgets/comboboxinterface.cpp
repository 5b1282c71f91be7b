#include "comboboxinterface.h"

#include <vxsettings/dbparamwidget.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>

namespace {

/// An editor makes its box as its own child before it puts it into its slot.
bool belongsToAnEditor(const QWidget *widget)
{
    const QWidget *parent = widget->parentWidget();
    return parent &&
           (qobject_cast<const DBParamWidget *>(parent) || qobject_cast<const DBParamWidget *>(parent->parentWidget()));
}

QAccessibleInterface *createInterface(const QString &, QObject *object)
{
    auto *box = qobject_cast<QComboBox *>(object);
    return box && belongsToAnEditor(box) ? new ComboBoxInterface(box) : nullptr;
}
} // namespace

void ComboBoxInterface::install()
{
    QAccessible::installFactory(createInterface);
}

void ComboBoxInterface::announceChoice(QComboBox *box)
{
    // Qt makes an interface for each event even if nobody listens.
    if (!QAccessible::isActive())
        return;
    QAccessibleTextUpdateEvent event(box, 0, {}, box->currentText());
    QAccessible::updateAccessibility(&event);
}

ComboBoxInterface::ComboBoxInterface(QComboBox *box)
    : QAccessibleWidget(box, QAccessible::ComboBox)
{}

void *ComboBoxInterface::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString ComboBoxInterface::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? box()->currentText() : QAccessibleWidget::text(kind);
}

QAccessible::State ComboBoxInterface::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.expanded = box()->view()->isVisible();
    state.collapsed = !state.expanded;
    return state;
}

int ComboBoxInterface::childCount() const
{
    return 1;
}

QAccessibleInterface *ComboBoxInterface::child(int index) const
{
    return index == 0 ? QAccessible::queryAccessibleInterface(box()->view()) : nullptr;
}

int ComboBoxInterface::indexOfChild(const QAccessibleInterface *child) const
{
    return child && child->object() == box()->view() ? 0 : -1;
}

QStringList ComboBoxInterface::actionNames() const
{
    return {showMenuAction(), pressAction(), increaseAction(), decreaseAction()};
}

void ComboBoxInterface::doAction(const QString &name)
{
    if (!box()->isEnabled())
        return;
    if (name == increaseAction())
        pressKey(Qt::Key_Down);
    else if (name == decreaseAction())
        pressKey(Qt::Key_Up);
    else if (box()->view()->isVisible())
        box()->hidePopup();
    else
        box()->showPopup();
}

QString ComboBoxInterface::text(int begin, int end) const
{
    return box()->currentText().mid(begin, end - begin);
}

int ComboBoxInterface::characterCount() const
{
    return int(box()->currentText().size());
}

QString ComboBoxInterface::attributes(int, int *begin, int *end) const
{
    *begin = 0;
    *end = characterCount();
    return {};
}

QComboBox *ComboBoxInterface::box() const
{
    return static_cast<QComboBox *>(widget());
}

void ComboBoxInterface::pressKey(Qt::Key key)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(box(), &press);
}
