#include "pagearea.h"

#include <QVBoxLayout>

PageArea::PageArea(QWidget *parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    // Not a stop of its own on the way through the editors, which scroll into view when they are reached.
    setFocusPolicy(Qt::NoFocus);
    auto *canvas = new QWidget;
    new QVBoxLayout(canvas);
    setWidget(canvas);
}

QWidget *PageArea::canvas() const
{
    return widget();
}

void PageArea::setPage(QWidget *page)
{
    auto *layout = static_cast<QVBoxLayout *>(canvas()->layout());
    layout->addWidget(page);
    layout->addStretch(1);
}
