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
    /// Serves any number of views; @p parent owns it.
    explicit VXTreeViewDelegate(QObject *parent = nullptr);

    /// The name in one line.
    QString displayText(const QVariant &value, const QLocale &locale) const override;
    /// Of one line, with the air around it.
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    /// Shows the whole name as a tool tip if it is cut off, else the tool tip of the model.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

protected:
    /// Gives the icon the colour of the text, and what cannot be selected the look of what is disabled.
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
