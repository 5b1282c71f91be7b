#pragma once

#include <host/changestamp.h>

#include <localstorage/localstorage.h>

#include <QHash>
#include <QString>
#include <QVector>

/// Everything that an installation database holds.
struct Installation
{
    QHash<QString, QString> settings;                        ///< stored key → text
    QHash<QString, QVector<vantorix::ObjectRecord>> objects; ///< data name → objects, in their stored order
    QHash<QString, qint64> revisions = {};                   ///< stored key → a number that grows with every change
    QHash<QString, ChangeStamp> stamps = {};                 ///< stored key → who changed it last
};
