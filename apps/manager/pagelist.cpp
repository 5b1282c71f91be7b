#include "pagelist.h"

#include <host/settingspages.h>

#include <vxsettings/dbsettingshelper.h>

#include <vxstyles/vxiconhelper.h>

#include <QEvent>
#include <QIcon>

namespace {

constexpr QSize pictureSize(24, 24);
constexpr int rowHeight = 36;
constexpr int margin = 6; // around the rows
constexpr int groupRole = Qt::UserRole;

DBGroups groupOf(const QListWidgetItem *item)
{
    return DBGroups(item->data(groupRole).toInt());
}

/// The theme's black drawing in the colours of the text beside it.
QIcon icon(DBGroups group, const QPalette &palette)
{
    const QIcon drawing = QIcon::fromTheme(DBSettingsHelper::groupIconName(group));
    QIcon icon;
    icon.addPixmap(VXIconHelper::pixmap(drawing, pictureSize, palette.color(QPalette::Text)), QIcon::Normal);
    icon.addPixmap(VXIconHelper::pixmap(drawing, pictureSize, palette.color(QPalette::HighlightedText)),
                   QIcon::Selected);
    return icon;
}
} // namespace

PageList::PageList(QWidget *parent)
    : QListWidget(parent)
{
    setObjectName(QStringLiteral("pageList"));
    setAccessibleName(tr("Страницы настроек"));
    setIconSize(pictureSize);
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setViewportMargins(margin, margin, margin, margin);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);

    for (const SettingsPageName &page : settingsPages) {
        auto *item = new QListWidgetItem(DBSettingsHelper::groupName(page.group), this);
        item->setData(groupRole, int(page.group));
        item->setSizeHint({0, rowHeight});
    }
    paintIcons();
    setCurrentRow(0);
    connect(this, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem *item) {
        if (item)
            Q_EMIT pageChosen(groupOf(item));
    });
}

void PageList::choose(DBGroups group)
{
    setCurrentItem(itemOf(group));
}

DBGroups PageList::chosen() const
{
    return groupOf(currentItem());
}

void PageList::setChanged(DBGroups group, bool changed)
{
    QListWidgetItem *item = itemOf(group);
    QFont font = item->font();
    font.setBold(changed);
    item->setFont(font);
    item->setToolTip(changed ? tr("Есть несохранённые изменения") : QString());
}

QSize PageList::sizeHint() const
{
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    int textWidth = 0;
    for (int row = 0; row < count(); ++row)
        textWidth = qMax(textWidth, metrics.horizontalAdvance(item(row)->text()));

    const int textMargin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    const int rowWidth = pictureSize.width() + textWidth + 4 * textMargin;
    return {rowWidth + 2 * (frameWidth() + margin), QListWidget::sizeHint().height()};
}

void PageList::changeEvent(QEvent *event)
{
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        paintIcons();
}

QListWidgetItem *PageList::itemOf(DBGroups group) const
{
    int row = 0;
    while (groupOf(item(row)) != group)
        ++row;
    return item(row);
}

void PageList::paintIcons()
{
    for (int row = 0; row < count(); ++row)
        item(row)->setIcon(icon(groupOf(item(row)), palette()));
}
