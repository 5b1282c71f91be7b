#pragma once

#include <vxsettings/dbsettingstypes.h>

#include <QListWidget>

/// The pages by icon and title, one of them chosen.
class PageList : public QListWidget
{
    Q_OBJECT

public:
    explicit PageList(QWidget *parent = nullptr);

    void choose(DBGroups group);
    /// The page that is chosen; the first one at the start.
    DBGroups chosen() const;
    /// Marks the page as one with unsaved edits.
    void setChanged(DBGroups group, bool changed);

    /// Wide enough for every title, marked or not.
    QSize sizeHint() const override;

Q_SIGNALS:
    void pageChosen(DBGroups group);

protected:
    void changeEvent(QEvent *event) override;

private:
    QListWidgetItem *itemOf(DBGroups group) const;
    void paintIcons();
};
