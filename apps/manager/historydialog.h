#pragma once

#include <host/historyrecord.h>
#include <host/pageaccess.h>
#include <host/settingaddress.h>

#include <QDialog>
#include <QVector>

#include <optional>

class ChangeTree;
class QLabel;
class QPushButton;
class QTreeWidgetItem;
struct SettingChange;

/// Who has changed a setting, or all settings: where, when, with which program and why, from what to what in words. The
/// newest save comes first.
///
/// Opens empty and says that it is waiting, until setRecords() or setProblem(). Changes nothing itself.
class HistoryDialog : public QDialog
{
    Q_OBJECT

public:
    /// Of what is stored at @p address, be it a member of a JSON setting; of everything without one.
    explicit HistoryDialog(const std::optional<SettingAddress> &address, QWidget *parent = nullptr);

    /// What operators may not edit cannot be restored; by itself everything can. Before the records.
    void setAccess(const PageAccess &access);
    /// @p records: oldest first, of the key or of all settings.
    void setRecords(const QVector<HistoryRecord> &records);
    /// The history could not be read: @p problem, a sentence or more.
    void setProblem(const QString &problem);

Q_SIGNALS:
    /// The value before a change is wanted again: @p text, as it is stored at the address.
    void restoreRequested(const SettingAddress &address, const QString &text);

private:
    void addRecord(QTreeWidgetItem *save, const HistoryRecord &record);
    void addChange(QTreeWidgetItem *save, const SettingChange &change);
    bool isWanted(const SettingAddress &address) const;
    void showWhatCanBeRestored();
    void restore();

    std::optional<SettingAddress> m_address;
    PageAccess m_access;
    QLabel *m_state;
    ChangeTree *m_tree;
    QPushButton *m_restore = nullptr;
};
