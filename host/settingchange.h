#pragma once

#include <host/settingaddress.h>

#include <QString>
#include <QVector>

/// What is stored at an address, and what would be stored or was stored instead.
struct SettingChange
{
    SettingAddress address;
    QString before = {}; ///< null for nothing
    QString after = {};  ///< null for nothing

    /// Where the two texts under @p key differ: of a JSON setting each member whose value is another, in the order of
    /// its page, members that no editor shows behind them; of PageAccess each page's flag, as it holds; of anything
    /// else the setting as a whole. A JSON text that cannot be read counts as one without members before, and as a
    /// whole after the change.
    static QVector<SettingChange> between(const QString &key, const QString &before, const QString &after);

    /// Puts @p changes into the order of the pages, what the catalogue does not have behind it.
    static void sort(QVector<SettingChange> &changes);
};

bool operator==(const SettingChange &left, const SettingChange &right);
