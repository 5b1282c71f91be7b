#include "pagenotice.h"

#include "wrappedlabel.h"

#include <vxstyles/vxiconhelper.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr QSize iconSize(24, 24);
} // namespace

PageNotice::PageNotice(const QString &icon, QWidget *parent)
    : QFrame(parent)
    , m_iconName(icon)
    , m_icon(new QLabel(this))
    , m_text(new WrappedLabel({}, this))
    , m_action(new QPushButton(this))
{
    setFrameShape(StyledPanel);
    // The button is what the keyboard reaches.
    setFocusProxy(m_action);
    connect(m_action, &QPushButton::clicked, this, &PageNotice::actionRequested);

    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_icon);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_action);
    paintIcon();
    hide();
}

void PageNotice::tell(const QString &text, const QString &action)
{
    m_text->setText(text);
    m_action->setText(action);
    m_action->setAccessibleDescription(text);
    setVisible(!text.isNull());
}

void PageNotice::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        paintIcon();
}

void PageNotice::paintIcon()
{
    const QColor color = palette().color(QPalette::WindowText);
    m_icon->setPixmap(VXIconHelper::pixmap(QIcon::fromTheme(m_iconName), iconSize, color));
}
