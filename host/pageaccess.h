#pragma once

#include <host/jsonmembers.h>
#include <host/settingaddress.h>
#include <host/settingfinding.h>

#include <vxsettings/dbsettingstypes.h>
#include <vxsettings/objectparameters.h>

#include <QCoreApplication>
#include <QJsonObject>
#include <QStringList>
#include <QVector>

/// Which settings pages operators may edit: one flat JSON object of flags, stored under a key of its own.
///
///     {"checked": true, "connection": false, "users": true, …}
///
/// A member is the name of a page, true if operators may edit it. "checked" tells whether there is any, for the group
/// check box; it decides nothing. A page that is not named may be edited, and so may all of them while nothing is
/// stored. A flag that is no boolean locks its page, as the box shows it. Where the text is no JSON object of unique
/// names, every page is locked: a restriction must not go away because somebody has spoilt its text.
///
/// The flags keep people from changing by mistake what is not theirs. They are no protection from somebody who wants
/// to: who can write to the database can change them as well.
class PageAccess
{
    Q_DECLARE_TR_FUNCTIONS(PageAccess)

public:
    /// Not one of the catalogue's keys, which all begin with "PT_".
    inline static const QString KEY = QStringLiteral("VX_PAGE_ACCESS");

    /// Nothing is stored.
    PageAccess() = default;
    /// @p stored is what is stored under KEY.
    explicit PageAccess(const QString &stored);
    /// @p settings: stored key → text.
    static PageAccess in(const vantorix::OBJECT_PARAMETERS &settings);
    /// Whether it is the access that is stored at @p address, or one of its flags.
    static bool isAbout(const SettingAddress &address);
    /// The page that the flag at @p address is about; nothing if there is no such page.
    static std::optional<DBGroups> pageOf(const SettingAddress &address);

    bool isReadable() const;
    bool mayEdit(DBGroups page) const;
    /// Those of the stored @p keys that operators may not change, sorted. KEY is always one of them.
    QStringList locked(const QStringList &keys) const;

    /// A flag for each page, and "checked".
    QJsonObject flags() const;
    /// What to store so that these are the flags, each a page's name and a boolean. What else is stored stays as it is
    /// written, unless that cannot be read.
    QString textWith(const QJsonObject &flags) const;

    /// What is wrong with what is stored. No repair is offered: which pages are to be open is for a person to decide.
    QVector<SettingFinding> findings() const;

private:
    SettingFinding flagFinding(const QString &name) const;

    QString m_stored;
    JsonMembers m_members;
    bool m_isReadable = true;
};
