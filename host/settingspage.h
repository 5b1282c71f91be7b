#pragma once

#include <host/settingaddress.h>

#include <vxsettings/dbsettingstypes.h>

#include <QObject>
#include <QPointer>
#include <QVector>

#include <memory>
#include <vector>

class DBParamWidget;
class DBSettings;
class DBSettingsGroup;
class QWidget;

/// One open page: its tree of editors, and what they showed before anybody touched them, which is their baseline.
///
/// A parameter is changed while its editor shows something else than the baseline. The baselines are kept here and not
/// in the editors, which cannot be given a new one without showing it. Dependents follow the parameters that switch
/// them. A page whose widget is gone has no parameters any more.
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
    /// Shows all texts in the language that is installed now. Edits stay, and nobody is told of one.
    void retranslate();

    /// Every parameter of the page in display order, the members of a JSON setting included.
    QVector<SettingAddress> addresses() const;
    /// The parameters under one stored key, one or the members.
    QVector<SettingAddress> addresses(const QString &key) const;
    /// Null for a parameter that the page does not have.
    DBParamWidget *editor(const SettingAddress &address) const;
    /// What would be saved for what the editor shows now; null for a parameter that the page does not have.
    QString shown(const SettingAddress &address) const;
    QString baseline(const SettingAddress &address) const;
    bool isChanged(const SettingAddress &address) const;
    QVector<SettingAddress> changed() const;

    /// Shows @p text as if it were typed. False if the editor makes something else of it.
    bool edit(const SettingAddress &address, const QString &text);
    /// Makes the parameter changed although it shows its baseline, until somebody touches it, it is edited, or the
    /// baseline is shown or replaced by one of the functions below.
    void insist(const SettingAddress &address);
    bool isInsistedOn(const SettingAddress &address) const;
    QVector<SettingAddress> insistedOn() const;
    /// Shows the baseline.
    void revert(const SettingAddress &address);
    /// Makes @p text the baseline, whatever the editor shows by now.
    void accept(const SettingAddress &address, const QString &text);
    /// Makes @p text, which the editor can show, the baseline; shows it unless the parameter is changed.
    void follow(const SettingAddress &address, const QString &text);

Q_SIGNALS:
    /// A person has touched the editor. None of the functions above says so.
    void edited(const SettingAddress &address);

private:
    struct Parameter
    {
        SettingAddress address;
        QPointer<DBParamWidget> editor;
        QString baseline;
        bool isInsistedOn = false;

        QString shown() const;
        bool isChanged() const { return isInsistedOn || shown() != baseline; }
    };

    void addParameters(DBSettingsGroup &group, const QString &jsonKey);
    void listen(const Parameter &parameter);
    void show(Parameter &parameter, const QString &text);
    void showBaseline(Parameter &parameter);
    void switchDependents(const QString &parameter);
    DBSettingsGroup *tree() const;
    /// Null for a parameter that the page does not have.
    const Parameter *find(const SettingAddress &address) const;
    Parameter *find(const SettingAddress &address);

    DBGroups m_group;
    std::unique_ptr<DBSettings> m_tree;
    std::vector<Parameter> m_parameters;
    bool m_isTyping = true; ///< not this class but a person changes what the editors show
};
