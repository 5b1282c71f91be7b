#include "settingsgroupheader.h"

#include "lazyvisibility.h"

#include <vxstyles/vxiconhelper.h>

#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QToolButton>

namespace {

constexpr QSize iconSize(24, 24);
constexpr int spacing = 6;
constexpr qreal lineOpacity = 0.25; // of the text colour: faint, yet there in a light palette and in a dark one

/// Makes @p button follow its parent, which is older than the members of the group. Qt orders only what can have the
/// focus.
void putInTabOrder(QToolButton *button)
{
    QWidget *header = button->parentWidget();
    header->setFocusPolicy(Qt::TabFocus);
    QWidget::setTabOrder(header, button);
    header->setFocusPolicy(Qt::NoFocus);
}

int spaceFor(const QSize &part)
{
    return part.isEmpty() ? 0 : part.width() + spacing;
}
} // namespace

SettingsGroupHeader::SettingsGroupHeader(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void SettingsGroupHeader::setTitle(const QString &title)
{
    m_title = title;
    updateButton();
    updateGeometry();
    update();
}

void SettingsGroupHeader::setIcon(const QIcon &icon)
{
    m_icon = icon;
    updateGeometry();
    update();
}

void SettingsGroupHeader::setLineShown(bool shown)
{
    m_lineShown = shown;
    update();
}

void SettingsGroupHeader::setButtonShown(bool shown)
{
    if (shown == isButtonShown())
        return;

    if (shown) {
        m_button = new QToolButton(this);
        m_button->setAutoRaise(true);
        putInTabOrder(m_button);
        connect(m_button, &QToolButton::clicked, this, &SettingsGroupHeader::toggleRequested);
        updateButton();
        placeButton();
        setVisibleLazily(m_button, true);
    } else {
        m_button->deleteLater();
        m_button->hide();
        m_button = nullptr;
    }
    updateGeometry();
    update();
}

void SettingsGroupHeader::setExpanded(bool expanded)
{
    m_expanded = expanded;
    updateButton();
}

bool SettingsGroupHeader::isEmpty() const
{
    return !m_button && m_icon.isNull() && m_title.isEmpty();
}

QSize SettingsGroupHeader::sizeHint() const
{
    QSize hint;
    for (const QSize &part : partSizes())
        hint = {hint.width() + spaceFor(part), qMax(hint.height(), part.height())};
    return hint;
}

QSize SettingsGroupHeader::minimumSizeHint() const
{
    return sizeHint();
}

void SettingsGroupHeader::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::LanguageChange:
    case QEvent::LayoutDirectionChange:
    case QEvent::StyleChange:
        updateButton();
        placeButton();
        break;
    default:
        break;
    }
}

void SettingsGroupHeader::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const auto rects = partRects();
    painter.drawPixmap(rects[Icon],
                       VXIconHelper::pixmap(m_icon, rects[Icon].size(), palette().color(QPalette::WindowText)));
    if (m_lineShown)
        painter.fillRect(rects[Line], lineColor());

    painter.setFont(titleFont());
    style()->drawItemText(&painter, rects[Title], Qt::TextSingleLine, palette(), isEnabled(), m_title,
                          QPalette::WindowText);
}

void SettingsGroupHeader::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    placeButton();
}

void SettingsGroupHeader::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    placeButton();
}

std::array<QSize, SettingsGroupHeader::Line> SettingsGroupHeader::partSizes() const
{
    return {m_button ? m_button->sizeHint() : QSize(), m_icon.isNull() ? QSize() : iconSize,
            m_title.isEmpty() ? QSize() : QFontMetrics(titleFont()).size(Qt::TextSingleLine, m_title)};
}

std::array<QRect, SettingsGroupHeader::PartCount> SettingsGroupHeader::partRects() const
{
    const auto toReadingDirection = [this](const QRect &rect) {
        return QStyle::visualRect(layoutDirection(), this->rect(), rect);
    };
    std::array<QRect, PartCount> rects;
    const auto sizes = partSizes();
    int x = 0;
    for (int part = Button; part < Line; ++part) {
        const QSize size = sizes[part];
        rects[part] = toReadingDirection({{x, (height() - size.height()) / 2}, size});
        x += spaceFor(size);
    }
    rects[Line] = toReadingDirection({x, height() / 2, width() - x, 1});
    return rects;
}

QColor SettingsGroupHeader::lineColor() const
{
    QColor color = palette().color(QPalette::WindowText);
    color.setAlphaF(lineOpacity);
    return color;
}

QFont SettingsGroupHeader::titleFont() const
{
    QFont titleFont = font();
    titleFont.setBold(true);
    return titleFont;
}

void SettingsGroupHeader::updateButton()
{
    if (!m_button)
        return;

    const Qt::ArrowType folded = isRightToLeft() ? Qt::LeftArrow : Qt::RightArrow;
    m_button->setArrowType(m_expanded ? Qt::DownArrow : folded);
    m_button->setToolTip(m_expanded ? tr("Свернуть") : tr("Развернуть"));
    m_button->setAccessibleName(m_button->toolTip());
    m_button->setAccessibleDescription(m_title);
}

void SettingsGroupHeader::placeButton()
{
    if (m_button && isVisible())
        m_button->setGeometry(partRects()[Button]);
}
