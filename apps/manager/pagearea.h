#pragma once

#include <QScrollArea>

/// A page as large as it needs to be, in a view that scrolls where there is less room.
class PageArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit PageArea(QWidget *parent = nullptr);

    /// The page is built below this widget, then handed to setPage().
    QWidget *canvas() const;
    void setPage(QWidget *page);
    /// Unfolds what @p editor, which lies on the page, is folded into, and scrolls to it.
    void reveal(QWidget *editor);
};
