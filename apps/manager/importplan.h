#pragma once

#include <host/settingchange.h>
#include <host/settingsdifference.h>

#include <vxsettings/objectparameters.h>

#include <QCoreApplication>
#include <QVector>

class ObjectIndex;
class PageAccess;

/// What a file of settings would change, address by address: a JSON setting that would change is taken apart into its
/// members, because they are what editors show.
class ImportPlan
{
    Q_DECLARE_TR_FUNCTIONS(ImportPlan)

public:
    using State = SettingsDifference::State;

    struct Row
    {
        SettingChange change; ///< from what is stored to what the file says
        State state;
        QString error; ///< what is wrong; null unless the state is Invalid
    };

    /// In the order of the pages, what the catalogue does not have behind it.
    static QVector<Row> rows(const vantorix::OBJECT_PARAMETERS &wanted, const vantorix::OBJECT_PARAMETERS &stored,
                             const ObjectIndex &objects);
    /// @p rows, of which those that would change what operators may not are invalid.
    static QVector<Row> locked(QVector<Row> rows, const PageAccess &access);
};
