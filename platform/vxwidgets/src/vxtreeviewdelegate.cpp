#include "singleline.h"
#include "tintedicon.h"

#include <vxwidgets/vxtreeviewdelegate.h>

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

namespace {

constexpr int air = 8; // pixels between two lines of text

QPalette::ColorGroup colorGroup(const QStyleOptionViewItem &option)
{
    if (!(option.state & QStyle::State_Enabled))
        return QPalette::Disabled;
    return (option.state & QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
}

void greyOut(QPalette *palette)
{
    const QColor grey = palette->color(QPalette::Disabled, QPalette::Text);
    palette->setColor(QPalette::Active, QPalette::Text, grey);
    palette->setColor(QPalette::Inactive, QPalette::Text, grey);
}
} // namespace

VXTreeViewDelegate::VXTreeViewDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{}

QString VXTreeViewDelegate::displayText(const QVariant &value, const QLocale &locale) const
{
    return value.userType() == QMetaType::QString ? singleLine(value.toString())
                                                  : QStyledItemDelegate::displayText(value, locale);
}

QSize VXTreeViewDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QSize hint = QStyledItemDelegate::sizeHint(option, index);
    return {hint.width(), qMax(hint.height(), option.fontMetrics.height() + air)};
}

bool VXTreeViewDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                                   const QModelIndex &index)
{
    const bool isCutOff = sizeHint(option, index).width() > option.rect.width();
    if (event->type() != QEvent::ToolTip || !isCutOff)
        return QStyledItemDelegate::helpEvent(event, view, option, index);

    const QString name = displayText(index.data(), option.locale);
    QToolTip::showText(event->globalPos(), QStringLiteral("<span>%1</span>").arg(name.toHtmlEscaped()), view);
    return true;
}

void VXTreeViewDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    const QSize iconSize = option->decorationSize;
    QStyledItemDelegate::initStyleOption(option, index);
    if (!(index.flags() & Qt::ItemIsSelectable))
        greyOut(&option->palette);
    const bool isSelected = option->state & QStyle::State_Selected;
    // The selection shows where the keyboard is; a frame around it adds nothing.
    option->state.setFlag(QStyle::State_HasFocus, !isSelected && option->state & QStyle::State_HasFocus);

    const QVariant icon = index.data(Qt::DecorationRole);
    if (icon.userType() == QMetaType::QIcon) {
        const QPalette::ColorRole role = isSelected ? QPalette::HighlightedText : QPalette::Text;
        const QColor color = option->palette.color(colorGroup(*option), role);
        // The place of an icon that the theme does not have is kept, so that names stand below each other.
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->decorationSize = iconSize;
        option->icon = tintedIcon(icon.value<QIcon>(), iconSize, color);
    }
}
