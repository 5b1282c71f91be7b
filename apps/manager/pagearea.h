#pragma once

#include <QWidget>

class PageNotice;
class QScrollArea;

/// A page as large as it needs to be, in a view that scrolls where there is less room. Above the view stands
/// what is special about the page: why it is locked, or that something on it cannot be read.
class PageArea : public QWidget
{
    Q_OBJECT

public:
    explicit PageArea(QWidget *parent = nullptr);

    /// The page is built below this widget, then handed to setPage().
    QWidget *canvas() const;
    void setPage(QWidget *page);
    /// Says why the page cannot be edited, and disables it; null lets it be edited.
    void setLockReason(const QString &reason);
    /// Says that a stored text of the page cannot be read, and offers to repair it; null says nothing.
    void setRepairReason(const QString &reason);
    /// Unfolds what @p editor, which lies on the page, is folded into, and scrolls to it.
    void reveal(QWidget *editor);
    /// Puts the keyboard where a locked page says why it is.
    void focusLock();

Q_SIGNALS:
    /// Somebody wants to see which pages operators may edit.
    void accessRequested();
    /// Somebody wants to see what would be stored in the place of what cannot be read.
    void repairRequested();

protected:
    void changeEvent(QEvent *event) override;

private:
    void createNotices();
    void createView();
    void colorPage();

    QWidget *m_page = nullptr;
    PageNotice *m_lock;
    PageNotice *m_repair;
    QScrollArea *m_view;
};
