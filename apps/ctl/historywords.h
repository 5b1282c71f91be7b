#pragma once

#include <host/historyrecord.h>
#include <host/settingaddress.h>

#include <QCoreApplication>
#include <QJsonObject>
#include <QVector>

#include <optional>

/// Remembered changes as the program prints them.
class HistoryWords
{
    Q_DECLARE_TR_FUNCTIONS(HistoryWords)

public:
    struct Row
    {
        SettingAddress address;
        QString before;
        QString after;
    };

    /// What has changed in it, for people: of a JSON setting each member, of a secret one row without values.
    static QVector<Row> rows(const HistoryRecord &record);

    /// An object with "key", "old" and "new" of what is stored at @p address, which belongs to the record's setting,
    /// and with "revision", "by", "workstation", "at", "program", "save" and "reason". A secret has null values and is
    /// "hidden". Nothing if the record did not change what is stored there.
    static std::optional<QJsonObject> json(const HistoryRecord &record, const SettingAddress &address);
};
