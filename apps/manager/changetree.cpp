#include "changetree.h"

#include <host/pageaccess.h>
#include <host/settingchange.h>
#include <host/settingwords.h>

#include <vxsettings/dbsettingshelper.h>

#include <QHeaderView>
#include <QStyledItemDelegate>

namespace {

constexpr int addressRole = Qt::UserRole;
constexpr int padding = 3; // above and below a text
constexpr int indent = 12;
const QColor checkFrameColor(0xa0, 0xa0, 0xa0);
constexpr QSize largestHint(760, 420);

bool isSecret(const SettingAddress &address)
{
    return address.isKnown() && SettingWords::isSecret(address.parameter());
}

QString headingOf(const SettingAddress &setting)
{
    if (PageAccess::isAbout(setting))
        return setting.caption();
    return setting.isKnown() ? DBSettingsHelper::groupName(setting.group())
                             : ChangeTree::tr("Настройки, которых нет в каталоге");
}

/// That a secret is another one cannot be seen from its words.
QString newWords(const SettingChange &change)
{
    const QString words = SettingWords::value(change.address, change.after);
    const bool isHidden = isSecret(change.address) && !change.before.isEmpty() && !change.after.isEmpty();
    return isHidden && change.before != change.after ? ChangeTree::tr("%1, другое значение").arg(words) : words;
}

/// Cells as high as their text needs at the width of their column.
class WrappingDelegate : public QStyledItemDelegate
{
public:
    explicit WrappingDelegate(QTreeView *view)
        : QStyledItemDelegate(view)
        , m_view(view)
    {}

    QSize sizeHint(const QStyleOptionViewItem &givenOption, const QModelIndex &index) const override
    {
        QStyleOptionViewItem option = givenOption;
        initStyleOption(&option, index);
        option.features |= QStyleOptionViewItem::WrapText;
        option.rect = QRect(0, 0, width(index), 1);
        const QSize size = option.widget->style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, {}, m_view);
        return {0, size.height() + 2 * padding};
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        // The style derives the frame of a check box from this colour, and on a dark list nobody would see it.
        option->palette.setColor(QPalette::Window, checkFrameColor);
    }

private:
    int width(const QModelIndex &index) const
    {
        if (m_view->isFirstColumnSpanned(index.row(), index.parent()))
            return m_view->viewport()->width();
        const int indentHere = index.column() == 0 ? indent : 0;
        return m_view->columnWidth(index.column()) - indentHere;
    }

    const QTreeView *m_view; // its parent
};
} // namespace

ChangeTree::ChangeTree(const QStringList &columns, QWidget *parent)
    : QTreeWidget(parent)
{
    setHeaderLabels(columns);
    setItemDelegate(new WrappingDelegate(this));
    setWordWrap(true);
    setAllColumnsShowFocus(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setIndentation(indent);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    header()->setSectionResizeMode(QHeaderView::Stretch);
    header()->setSectionsMovable(false);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(header(), &QHeaderView::sectionResized, this, &ChangeTree::scheduleDelayedItemsLayout);
    setTabKeyNavigation(false);
}

QTreeWidgetItem *ChangeTree::addHeading(const QString &text)
{
    auto *heading = new QTreeWidgetItem(this, {text});
    heading->setFlags(Qt::ItemIsEnabled);
    QFont font = heading->font(0);
    font.setBold(true);
    heading->setFont(0, font);
    heading->setFirstColumnSpanned(true);
    heading->setExpanded(true);
    return heading;
}

QTreeWidgetItem *ChangeTree::pageHeading(const SettingAddress &address)
{
    const SettingAddress whole{address.key};
    const QString title = headingOf(whole);
    for (int row = 0; row < topLevelItemCount(); ++row) {
        if (topLevelItem(row)->text(0) == title)
            return topLevelItem(row);
    }
    return addHeading(title);
}

QTreeWidgetItem *ChangeTree::addSetting(QTreeWidgetItem *heading, const SettingAddress &address,
                                        const QStringList &words)
{
    const bool hasCaption = address.isKnown() || PageAccess::isAbout(address);
    const QString caption = hasCaption ? address.caption() : address.text();
    auto *item = new QTreeWidgetItem(heading, QStringList{caption} + words);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    item->setData(0, addressRole, address.text());
    item->setToolTip(0, address.text());
    for (int column = 1; column < item->columnCount(); ++column)
        item->setToolTip(column, item->text(column));
    return item;
}

QTreeWidgetItem *ChangeTree::addChange(QTreeWidgetItem *heading, const SettingChange &change)
{
    return addSetting(heading, change.address, {SettingWords::value(change.address, change.before), newWords(change)});
}

QVector<QTreeWidgetItem *> ChangeTree::settings() const
{
    QVector<QTreeWidgetItem *> settings;
    for (int row = 0; row < topLevelItemCount(); ++row) {
        for (int child = 0; child < topLevelItem(row)->childCount(); ++child)
            settings.append(topLevelItem(row)->child(child));
    }
    return settings;
}

SettingAddress ChangeTree::address(const QTreeWidgetItem *item)
{
    return SettingAddress::fromText(item->data(0, addressRole).toString());
}

void ChangeTree::goToFirstSetting()
{
    for (QTreeWidgetItem *item : settings()) {
        if (!item->isHidden()) {
            setCurrentItem(item);
            scrollToTop();
            return;
        }
    }
}

QSize ChangeTree::sizeHint() const
{
    const int rows = settings().size() + topLevelItemCount() + 1;
    const int rowHeight = 2 * (fontMetrics().lineSpacing() + 2 * padding); // captions may need two lines
    const int height = header()->sizeHint().height() + rows * rowHeight + 2 * frameWidth();
    return {largestHint.width(), qMin(height, largestHint.height())};
}
