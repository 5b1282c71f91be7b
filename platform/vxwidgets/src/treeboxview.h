#pragma once

#include <QPoint>
#include <QTreeView>

/// The tree in the popup of a VXTreeBox. Tells a choice from a mere click, and keeps the text of deep nodes in sight.
class TreeBoxView : public QTreeView
{
    Q_OBJECT

public:
    using QTreeView::sizeHintForColumn;

    /// Without a parent: moving the view out of a large window into its popup would be slow.
    TreeBoxView();

    /// To be called once the view is in its popup, which has to look at each event after it: the popup would take any
    /// release of the mouse for a choice. Until then setModel() is ignored, because each model that is soon replaced
    /// costs as much as the one that stays.
    void settle();
    void setModel(QAbstractItemModel *model) override;

    /// While held, setRootIndex() is ignored.
    void holdRootIndex(bool hold) { m_isRootHeld = hold; }
    void setRootIndex(const QModelIndex &index) override;

    /// Scrolls sideways as well, if the row of @p index begins out of sight.
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;

    static bool isChoosable(const QModelIndex &index);

Q_SIGNALS:
    /// The user chose @p index, with the mouse or with the Enter key.
    void chosen(const QModelIndex &index);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    bool filterViewportEvent(QEvent *event);
    bool filterKeyEvent(QEvent *event);
    void release(QMouseEvent *event);
    bool isOnArrow(const QPoint &pos) const;
    /// How far from the edge of the tree the arrow of @p index is.
    int rowBegin(const QModelIndex &index) const;

    QPoint m_shownAt;              // where the mouse was, in global coordinates
    bool m_isOpeningClick = false; // the button is still down, or was released, from the click that opened the popup
    bool m_isArrowPressed = false;
    bool m_isSettled = false;
    bool m_isRootHeld = false;
};
