#pragma once

#include <host/settingfinding.h>

#include <QCoreApplication>
#include <QVector>

class JsonMembers;
class ObjectIndex;
class ParameterDomain;

/// What is stored under one key of the catalogue, held against it.
///
/// The repair of a value is what its editor shows, so that afterwards what people see is what is stored. There is none
/// where another program's or operator's value would be lost by it.
class StoredText
{
    Q_DECLARE_TR_FUNCTIONS(StoredText)

public:
    /// @p key is one of the catalogue's; @p objects must live longer.
    StoredText(const QString &key, const QString &text, const ObjectIndex &objects);

    /// Linear in the text; members in the order of their page, those that no editor shows behind them. A member that is
    /// missing is none.
    QVector<SettingFinding> findings() const;

    /// What the page would save in the place of a text that it cannot read.
    QString shownInstead() const;

private:
    QVector<SettingFinding> valueFindings() const;
    QVector<SettingFinding> memberFindings(const JsonMembers &members) const;
    SettingFinding memberFinding(const JsonMembers &members, const QString &name) const;
    SettingFinding duplicateFinding(const JsonMembers &members, const QString &name) const;
    SettingFinding unknownFinding(const JsonMembers &members, const QString &name) const;
    bool isShown(const QString &name) const;
    QStringList knownMembers() const;

    SettingAddress m_address;
    QString m_text;
    const ObjectIndex &m_objects;
};
