#pragma once

#include <host/changestamp.h>

/// One setting that a save has changed.
struct HistoryRecord
{
    qint64 id = 0;  ///< ascending in the order of the saves
    QString saveId; ///< the same for all settings of one save
    QString key;
    qint64 revision = 0; ///< that the setting got by it
    QString oldValue;    ///< null if there was no such setting
    QString newValue;    ///< both are null for a secret
    ChangeStamp stamp;
    QString reason; ///< null if none was given
};
