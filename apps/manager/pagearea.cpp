#include "pagearea.h"

#include "locknotice.h"

#include <vxwidgets/vxsettingsgroupwidget.h>

#include <QCoreApplication>
#include <QEvent>
#include <QVBoxLayout>

namespace {

constexpr int margin = 6;
} // namespace

PageArea::PageArea(QWidget *parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    // Not a stop of its own on the way through the editors, which scroll into view when they are reached.
    setFocusPolicy(Qt::NoFocus);
    auto *canvas = new QWidget;
    auto *layout = new QVBoxLayout(canvas);
    layout->setContentsMargins(0, margin, 0, margin); // the page has margins of its own at its sides
    m_notice = new LockNotice(canvas);
    m_notice->hide();
    layout->addWidget(m_notice);
    connect(m_notice, &LockNotice::accessRequested, this, &PageArea::accessRequested);
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
    m_page = page;
    layout->addStretch(1);
}

void PageArea::setLockReason(const QString &reason)
{
    m_notice->setReason(reason);
    m_notice->setVisible(!reason.isNull());
    m_page->setEnabled(reason.isNull());
}

void PageArea::focusLock()
{
    m_notice->setFocus(Qt::OtherFocusReason);
}

void PageArea::reveal(QWidget *editor)
{
    for (QWidget *above = editor->parentWidget(); above && above != this; above = above->parentWidget()) {
        if (auto *frame = qobject_cast<VXSettingsGroupWidget *>(above))
            frame->expand();
    }
    // Until then a page that was built just now, or a frame that was unfolded, has no room yet.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    ensureWidgetVisible(editor, margin, margin);
}
