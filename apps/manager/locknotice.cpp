#include "locknotice.h"

#include <vxstyles/vxiconhelper.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr QSize lockSize(24, 24);
} // namespace

LockNotice::LockNotice(QWidget *parent)
    : QFrame(parent)
    , m_lock(new QLabel(this))
    , m_reason(new QLabel(this))
    , m_access(new QPushButton(this))
{
    setObjectName(QStringLiteral("lockNotice"));
    setFrameShape(StyledPanel);
    m_reason->setTextFormat(Qt::PlainText);
    m_reason->setWordWrap(true);
    // The button is what the keyboard reaches, and says why.
    m_reason->setBuddy(m_access);
    setFocusProxy(m_access);
    connect(m_access, &QPushButton::clicked, this, &LockNotice::accessRequested);

    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_lock);
    layout->addWidget(m_reason, 1);
    layout->addWidget(m_access);
    retranslate();
    paintLock();
}

void LockNotice::setReason(const QString &reason)
{
    m_reason->setText(reason);
    m_access->setAccessibleDescription(reason);
}

void LockNotice::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::PaletteChange)
        paintLock();
}

void LockNotice::retranslate()
{
    m_access->setText(tr("Доступ операторов…"));
}

void LockNotice::paintLock()
{
    const QColor color = palette().color(QPalette::WindowText);
    m_lock->setPixmap(VXIconHelper::pixmap(QIcon::fromTheme(QStringLiteral("common-lock")), lockSize, color));
}
