#pragma once

#include <QLayout>
#include <QWidget>

/// QWidget::setVisible() for a child widget, without its price while the parent is not on screen.
///
/// There, setVisible(true) polishes the whole subtree and lays it out, for nobody to see. With the mere flag changed
/// the child gets all that from the parent's own show event, once, and not at all if there is none.
inline void setVisibleLazily(QWidget *child, bool visible)
{
    QWidget *parent = child->parentWidget();
    if (parent->isVisible()) {
        child->setVisible(visible);
        return;
    }

    child->setAttribute(Qt::WA_WState_Hidden, !visible);
    if (parent->layout())
        parent->layout()->invalidate();
    parent->updateGeometry();
}
