#pragma once

#include <vxwidgets/vxwidgets_export.h>

#include <QStyledItemDelegate>

/// Paints the rows of an object tree: icon and name, with some air between the rows.
///
/// A name takes one line, whatever is in it; one that is cut off has a tool tip. Icons are drawn in the colour of the
/// text. Rows that cannot be selected look disabled.
class VXWIDGETS_EXPORT VXTreeViewDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit VXTreeViewDelegate(QObject *parent = nullptr);

    QString displayText(const QVariant &value, const QLocale &locale) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
