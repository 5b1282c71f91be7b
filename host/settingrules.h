#pragma once

#include <host/settingaddress.h>

#include <vxsettings/objectparameters.h>

#include <QCoreApplication>
#include <QString>
#include <QVector>

/// What the catalogue asks of several parameters together: that one is no greater than another.
///
/// A rule is judged where both values are stored and whole numbers; a rule of palm amounts only while their limitation
/// is on. Zero has no meaning of its own: a password that is valid for 0 days leaves no room for a notice.
class SettingRules
{
    Q_DECLARE_TR_FUNCTIONS(SettingRules)

public:
    struct Violation
    {
        SettingAddress lower; ///< holds the greater value although it must not
        SettingAddress upper;
        QString message; ///< names both by their captions, tells both values and what to do
    };

    /// The rules that @p settings, all of an installation, break; in the order of the pages.
    static QVector<Violation> violations(const vantorix::OBJECT_PARAMETERS &settings);
};
