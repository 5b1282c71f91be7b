#include "pagearea.h"

#include "pagenotice.h"

#include <vxwidgets/vxsettingsgroupwidget.h>

#include <QCoreApplication>
#include <QEvent>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {

constexpr int margin = 6;
constexpr qreal lockedStrength = 0.75; // of the colour of texts that can be edited

/// What is disabled is too pale to be read, and a locked page is there to be read.
QPalette readable(QPalette palette)
{
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        QColor color = palette.color(QPalette::Active, role);
        color.setAlphaF(lockedStrength);
        palette.setColor(QPalette::Disabled, role, color);
    }
    return palette;
}
} // namespace

PageArea::PageArea(QWidget *parent)
    : QWidget(parent)
    , m_lock(new PageNotice(QStringLiteral("common-lock")))
    , m_repair(new PageNotice(QStringLiteral("common-warning")))
    , m_view(new QScrollArea)
{
    createNotices();
    createView();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_lock);
    layout->addWidget(m_repair);
    layout->addWidget(m_view, 1);
}

QWidget *PageArea::canvas() const
{
    return m_view->widget();
}

void PageArea::setPage(QWidget *page)
{
    auto *layout = static_cast<QVBoxLayout *>(canvas()->layout());
    layout->addWidget(page);
    m_page = page;
    layout->addStretch(1);
}

void PageArea::createNotices()
{
    m_lock->setObjectName(QStringLiteral("lockNotice"));
    m_repair->setObjectName(QStringLiteral("repairNotice"));
    connect(m_lock, &PageNotice::actionRequested, this, &PageArea::accessRequested);
    connect(m_repair, &PageNotice::actionRequested, this, &PageArea::repairRequested);
}

void PageArea::createView()
{
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setWidgetResizable(true);
    // Not a stop of its own on the way through the editors, which scroll into view when they are reached.
    m_view->setFocusPolicy(Qt::NoFocus);
    auto *canvas = new QWidget;
    auto *layout = new QVBoxLayout(canvas);
    layout->setContentsMargins(0, margin, 0, margin); // the page has margins of its own at its sides
    m_view->setWidget(canvas);
}

void PageArea::setLockReason(const QString &reason)
{
    m_lock->tell(reason, tr("Доступ операторов…"));
    m_page->setEnabled(reason.isNull());
    colorPage();
}

void PageArea::setRepairReason(const QString &reason)
{
    m_repair->tell(reason, tr("Исправить запись…"));
}

void PageArea::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_page)
        colorPage();
}

void PageArea::colorPage()
{
    m_page->setPalette(m_page->isEnabled() ? QPalette() : readable(palette()));
}

void PageArea::focusLock()
{
    m_lock->setFocus(Qt::OtherFocusReason);
}

void PageArea::reveal(QWidget *editor)
{
    for (QWidget *above = editor->parentWidget(); above && above != m_view; above = above->parentWidget()) {
        if (auto *frame = qobject_cast<VXSettingsGroupWidget *>(above))
            frame->expand();
    }
    // Until then a page that was built just now, or a frame that was unfolded, has no room yet.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    m_view->ensureWidgetVisible(editor, margin, margin);
}
