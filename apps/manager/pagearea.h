#pragma once

#include <QScrollArea>

class LockNotice;

/// A page as large as it needs to be, in a view that scrolls where there is less room. Above the view of a locked page
/// stands why it is locked.
class PageArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit PageArea(QWidget *parent = nullptr);

    /// The page is built below this widget, then handed to setPage().
    QWidget *canvas() const;
    void setPage(QWidget *page);
    /// Says why the page cannot be edited, and disables it; null lets it be edited.
    void setLockReason(const QString &reason);
    /// Unfolds what @p editor, which lies on the page, is folded into, and scrolls to it.
    void reveal(QWidget *editor);
    /// Puts the keyboard where a locked page says why it is.
    void focusLock();

Q_SIGNALS:
    /// Somebody wants to see which pages operators may edit.
    void accessRequested();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void placeNotice();
    void colorPage();

    QWidget *m_page = nullptr;
    LockNotice *m_notice;
};
