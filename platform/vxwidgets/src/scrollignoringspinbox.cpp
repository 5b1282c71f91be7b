#include <vxwidgets/scrollignoringspinbox.h>

#include <QWheelEvent>

ScrollIgnoringSpinBox::ScrollIgnoringSpinBox(QWidget *parent)
    : QSpinBox(parent)
{
    setFocusPolicy(Qt::StrongFocus); // the default, WheelFocus, pulls the focus here while the page scrolls
}

void ScrollIgnoringSpinBox::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}
