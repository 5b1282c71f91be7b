#include <vxwidgets/vxsettingsgroupwidget.h>

#include "lazyvisibility.h"
#include "settingsgroupheader.h"

#include <QAccessibleWidget>
#include <QVBoxLayout>

namespace {

/// Does not ask for spare height: a nested group would drag its row apart and take the space from the end of the page.
class FrameLayout : public QVBoxLayout
{
public:
    using QVBoxLayout::QVBoxLayout;

    Qt::Orientations expandingDirections() const override
    {
        return QVBoxLayout::expandingDirections() & ~Qt::Orientations(Qt::Vertical);
    }
};

/// For assistive technology a frame is a group of what is in it.
QAccessibleInterface *createInterface(const QString &className, QObject *object)
{
    if (className != QLatin1String("VXSettingsGroupWidget"))
        return nullptr;
    return new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::Grouping);
}
} // namespace

VXSettingsGroupWidget::VXSettingsGroupWidget(QWidget *parent)
    : QWidget(parent)
    , m_header(new SettingsGroupHeader(this))
    , m_body(new QWidget(this))
{
    QAccessible::installFactory(createInterface);
    auto *layout = new FrameLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_header, 0, Qt::AlignTop);
    layout->addWidget(m_body, 1);
    auto *bodyLayout = new QVBoxLayout(m_body);
    bodyLayout->setContentsMargins({});

    updateHeader();
    connect(m_header, &SettingsGroupHeader::toggleRequested, this, [this] { setExpanded(!isExpanded()); });
}

void VXSettingsGroupWidget::setShowHideButton(bool shown)
{
    m_header->setButtonShown(shown);
    updateHeader();
}

bool VXSettingsGroupWidget::isShowHideButton() const
{
    return m_header->isButtonShown();
}

void VXSettingsGroupWidget::setShowLineHorizontal(bool shown)
{
    m_header->setLineShown(shown);
}

bool VXSettingsGroupWidget::isShowLineHorizontal() const
{
    return m_header->isLineShown();
}

void VXSettingsGroupWidget::setContentMargins(const QMargins &margins)
{
    layout()->setContentsMargins(margins);
}

QMargins VXSettingsGroupWidget::contentMargins() const
{
    return layout()->contentsMargins();
}

void VXSettingsGroupWidget::setTitle(const QString &title)
{
    m_header->setTitle(title);
    setAccessibleName(title);
    updateHeader();
}

QString VXSettingsGroupWidget::title() const
{
    return m_header->title();
}

void VXSettingsGroupWidget::setIcon(const QIcon &icon)
{
    m_header->setIcon(icon);
    updateHeader();
}

QIcon VXSettingsGroupWidget::icon() const
{
    return m_header->icon();
}

void VXSettingsGroupWidget::collapse()
{
    setExpanded(false);
}

void VXSettingsGroupWidget::expand()
{
    setExpanded(true);
}

bool VXSettingsGroupWidget::isExpanded() const
{
    return m_header->isExpanded();
}

void VXSettingsGroupWidget::addWidget(QWidget *widget)
{
    m_body->layout()->addWidget(widget);
}

void VXSettingsGroupWidget::setExpanded(bool expanded)
{
    if (expanded == isExpanded())
        return;

    m_header->setExpanded(expanded);
    setVisibleLazily(m_body, expanded);
}

void VXSettingsGroupWidget::updateHeader()
{
    const bool wanted = !m_header->isEmpty();
    if (m_header->isHidden() == wanted)
        setVisibleLazily(m_header, wanted);
}
