#pragma once

#include <vxsettings/dbsettingstypes.h>

#include <QListWidget>
#include <QMap>
#include <QSet>

/// The pages by icon and title under headings, one of them chosen.
class PageList : public QListWidget
{
    Q_OBJECT

public:
    explicit PageList(QWidget *parent = nullptr);

    /// From the top to the bottom.
    static QVector<DBGroups> pages();

    void choose(DBGroups group);
    /// The page that is chosen; the first one at the start.
    DBGroups chosen() const;
    /// Marks the page as one with unsaved edits.
    void setChanged(DBGroups group, bool changed);
    /// Marks the page as one that operators may not edit.
    void setLocked(DBGroups group, bool locked);
    /// Tells behind each title how many results a search has there; empty while nothing is searched for.
    void setHits(const QMap<DBGroups, int> &hits);
    /// The row of the page.
    QListWidgetItem *itemOf(DBGroups group) const;

    /// Wide enough for every title in two lines, marked or not.
    QSize sizeHint() const override;

Q_SIGNALS:
    void pageChosen(DBGroups group);

protected:
    void changeEvent(QEvent *event) override;
    /// Steps over the headings.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void addHeading();
    void addPage(DBGroups group);
    void describe(QListWidgetItem *item) const;
    int heightOf(const QListWidgetItem *item) const;
    int titleWidth() const;
    /// The farthest page within the height of the list, down with @p direction 1, up with -1.
    QModelIndex scrolledCursor(int direction) const;
    void retranslate();
    void paint();

    QMap<DBGroups, int> m_hits;
    QSet<int> m_changed; ///< groups
    QSet<int> m_locked;  ///< groups
};
