#include "spotlight.h"

#include <QEvent>
#include <QPainter>

namespace {

constexpr int duration = 2500; // milliseconds
constexpr qreal lineWidth = 2;
constexpr qreal radius = 4;
constexpr qreal tint = 0.12; // of the area inside the frame
} // namespace

void Spotlight::pointAt(QWidget *target)
{
    qDeleteAll(target->window()->findChildren<Spotlight *>());
    new Spotlight(target);
}

Spotlight::Spotlight(QWidget *target)
    : QWidget(target)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    target->installEventFilter(this);
    resize(target->size());
    show();
    raise();

    m_end.setSingleShot(true);
    connect(&m_end, &QTimer::timeout, this, &QObject::deleteLater);
    m_end.start(duration);
}

bool Spotlight::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        resize(parentWidget()->size());
    return QWidget::eventFilter(watched, event);
}

void Spotlight::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor color = palette().color(QPalette::Highlight);
    painter.setPen(QPen(color, lineWidth));
    color.setAlphaF(tint);
    painter.setBrush(color);
    const qreal inset = lineWidth * 0.5;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius, radius);
}
