#include "pagearea.h"

#include <QVBoxLayout>

PageArea::PageArea(QWidget *parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
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
