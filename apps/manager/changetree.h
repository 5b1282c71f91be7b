#pragma once

#include <host/settingaddress.h>

#include <QTreeWidget>

struct SettingChange;

/// Rows about settings below headings, a caption and columns of words beside it. Long texts wrap, so that nothing is
/// cut off. Every column is as wide as the others.
class ChangeTree : public QTreeWidget
{
    Q_OBJECT

public:
    explicit ChangeTree(const QStringList &columns, QWidget *parent = nullptr);

    /// A heading over the rows that are added to it.
    QTreeWidgetItem *addHeading(const QString &text);
    /// The heading of the page that shows the setting; one of its own for what the catalogue does not have.
    QTreeWidgetItem *pageHeading(const SettingAddress &address);
    /// @p words are for the columns behind the first one, which has the caption.
    QTreeWidgetItem *addSetting(QTreeWidgetItem *heading, const SettingAddress &address, const QStringList &words);

    /// The same with the old and the new value in words.
    QTreeWidgetItem *addChange(QTreeWidgetItem *heading, const SettingChange &change);

    /// Every row that is no heading, in order.
    QVector<QTreeWidgetItem *> settings() const;
    /// Of a row that is no heading.
    static SettingAddress address(const QTreeWidgetItem *item);
    /// Makes the first row current that is no heading and not hidden.
    void goToFirstSetting();

    /// High enough for a few rows, and for many not higher than a small screen.
    QSize sizeHint() const override;
};
