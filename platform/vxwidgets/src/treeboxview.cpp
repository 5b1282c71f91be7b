#include "treeboxview.h"

#include <qtcompat.h>

#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScrollBar>

TreeBoxView::TreeBoxView()
{
    setUniformRowHeights(true);
    setHeaderHidden(true);
    setExpandsOnDoubleClick(false);
}

void TreeBoxView::settle()
{
    m_isSettled = true;
    installEventFilter(this);
    viewport()->installEventFilter(this);
}

void TreeBoxView::setModel(QAbstractItemModel *model)
{
    if (m_isSettled)
        QTreeView::setModel(model);
}

void TreeBoxView::setRootIndex(const QModelIndex &index)
{
    if (!m_isRootHeld)
        QTreeView::setRootIndex(index);
}

void TreeBoxView::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    const int begin = rowBegin(index);
    const int end = begin + indentation() + 20 * fontMetrics().averageCharWidth();
    if (end > header()->length())
        header()->setMinimumSectionSize(end);

    // The base class goes back to the left edge each time; rows that begin in sight are not to move sideways.
    const int shift = horizontalScrollBar()->value();
    QTreeView::scrollTo(index, hint);
    horizontalScrollBar()->setValue(qMax(qMin(shift, begin), end - viewport()->width()));
}

bool TreeBoxView::isChoosable(const QModelIndex &index)
{
    constexpr Qt::ItemFlags needed = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return (index.flags() & needed) == needed;
}

bool TreeBoxView::eventFilter(QObject *watched, QEvent *event)
{
    const bool isHandled = watched == viewport() ? filterViewportEvent(event) : filterKeyEvent(event);
    return isHandled || QTreeView::eventFilter(watched, event);
}

bool TreeBoxView::filterViewportEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_isOpeningClick = false;
        m_isArrowPressed = isOnArrow(static_cast<QMouseEvent *>(event)->pos());
        return false;
    case QEvent::MouseMove: {
        const QPoint way = qtcompat::globalPosition(*static_cast<QMouseEvent *>(event)) - m_shownAt;
        m_isOpeningClick = m_isOpeningClick && way.manhattanLength() <= QApplication::startDragDistance();
        return false;
    }
    case QEvent::MouseButtonRelease:
        release(static_cast<QMouseEvent *>(event));
        return true;
    default:
        return false;
    }
}

bool TreeBoxView::filterKeyEvent(QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;

    event->accept();
    if (event->type() == QEvent::KeyPress && isChoosable(currentIndex()))
        Q_EMIT chosen(currentIndex());
    return true;
}

void TreeBoxView::release(QMouseEvent *event)
{
    const QPersistentModelIndex index = indexAt(event->pos());
    const bool isChoice = event->button() == Qt::LeftButton && !m_isOpeningClick && !m_isArrowPressed &&
                          !isOnArrow(event->pos()) && isChoosable(index);
    viewportEvent(event); // the popup's own handling is left out
    if (isChoice && index.isValid())
        Q_EMIT chosen(index);
}

bool TreeBoxView::isOnArrow(const QPoint &pos) const
{
    const QModelIndex index = indexAt(pos);
    if (!index.isValid() || !model()->hasChildren(index))
        return false;
    const QRect text = visualRect(index);
    const int distance = isRightToLeft() ? pos.x() - text.right() : text.left() - pos.x();
    return distance > 0 && distance <= indentation();
}

void TreeBoxView::showEvent(QShowEvent *event)
{
    m_shownAt = QCursor::pos();
    m_isOpeningClick = true;
    m_isArrowPressed = false;
    QTreeView::showEvent(event);
}

int TreeBoxView::rowBegin(const QModelIndex &index) const
{
    int depth = 0;
    for (QModelIndex parent = index.parent(); parent.isValid() && parent != rootIndex(); parent = parent.parent())
        ++depth;
    return depth * indentation();
}
