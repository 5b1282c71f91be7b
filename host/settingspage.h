#pragma once

#include <vxsettings/dbsettingstypes.h>
#include <vxsettings/objectparameters.h>

#include <QObject>

#include <memory>

class DBParamWidget;
class DBSettings;
class DBSettingsGroup;
class QWidget;

/// One open page: its tree of editors, and what they showed before anybody touched them.
///
/// Dependents follow the parameters that switch them. A page whose widget is gone has no changes.
class SettingsPage : public QObject
{
    Q_OBJECT

public:
    /// Builds the page from vantorix::LocalStorage as a child of @p parent.
    SettingsPage(DBGroups group, QWidget *parent);
    ~SettingsPage() override;

    DBGroups group() const;
    /// Null once its Qt parent was deleted.
    QWidget *widget() const;

    /// What the user has edited: stored key → what the editors show.
    vantorix::OBJECT_PARAMETERS changes() const;
    /// What the editors showed before that.
    vantorix::OBJECT_PARAMETERS baseline() const;

    /// Makes what the editors show the new baseline.
    void accept();
    /// Brings the baseline back into the editors.
    void revert();

Q_SIGNALS:
    /// What changes() says may have changed.
    void edited();

private:
    void follow(DBParamWidget *editor);
    void switchDependents(const QString &key);
    DBSettingsGroup *tree() const;

    DBGroups m_group;
    std::unique_ptr<DBSettings> m_tree;
    vantorix::OBJECT_PARAMETERS m_baseline;
};
