#pragma once

#include <host/settingaddress.h>
#include <host/settingssession.h>

#include <vxsettings/dbparamwidget.h>

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>

#include <vector>

/// Tells beside every open editor what there is to know of its parameter: that it is changed, and from what; that
/// somebody else has changed it too; that what is stored is not what is shown; which rule it breaks;
/// what switches it on.
///
/// Secrets are never told.
class ParameterMarks : public QObject
{
    Q_OBJECT

public:
    /// @p session, of which no page is open yet, lives longer. @p window is the parent, and shows the pages.
    ParameterMarks(SettingsSession &session, QWidget *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// A mark and its words.
    struct Remark
    {
        DBParamWidget::Mark mark = DBParamWidget::Mark::None;
        QString words;

        bool operator==(const Remark &other) const { return mark == other.mark && words == other.words; }
    };

    struct Parameter
    {
        SettingAddress address;
        QPointer<DBParamWidget> editor;
        Remark remark; ///< what is shown
    };

    /// What is the same for all parameters at one moment, by SettingAddress::text().
    struct State
    {
        QSet<QString> changed;
        QHash<QString, SettingsSession::Conflict> conflicts;
        QHash<QString, QString> problems;
    };

    void addPage();
    void refresh();
    State state() const;
    void findFindings();
    Remark remark(const SettingAddress &address, const State &state) const;
    QString storedWords(const SettingAddress &address) const;
    static QString findingWords(const SettingFinding &finding);

    SettingsSession &m_session;
    std::vector<Parameter> m_parameters;
    QHash<QString, SettingFinding> m_findings; ///< of what is stored, by SettingAddress::text()
    bool m_areFindingsKnown = false;
};
