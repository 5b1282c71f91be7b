#pragma once

#include <QDateTime>
#include <QString>
#include <QVariant>

/// Who changed something, where and when. Null texts and an invalid time where that is not known.
struct ChangeStamp
{
    QDateTime at;        ///< UTC
    QString by;          ///< the account's name
    QString workstation; ///< the machine's host name
    QString program;     ///< the application's name

    /// Of a change that this process makes at this moment.
    static ChangeStamp now();

    /// As the columns changed_at (ISO 8601), changed_by, workstation, program hold it.
    QVariantList toColumns() const;
    static ChangeStamp fromColumns(const QVariantList &columns);
};
