#pragma once

#include <host/settingfinding.h>

#include <vxsettings/objectparameters.h>

#include <QVector>

class ObjectIndex;

/// What is wrong with all that an installation stores, and how to put it right.
///
/// A setting of the catalogue that was never stored is nothing wrong: the programs of the installation have their own
/// defaults. Takes time in proportion to what is stored.
class HealthCheck
{
public:
    /// @p settings: stored key → text. @p objects must live longer.
    HealthCheck(const vantorix::OBJECT_PARAMETERS &settings, const ObjectIndex &objects);

    /// In the order of the pages, then the broken rules, then what PageAccess finds, then the unknown keys in
    /// alphabetical order.
    QVector<SettingFinding> findings() const;

    /// What to store so that the repairs of all @p findings are made, which findings() has given: key → text. What is
    /// not concerned stays as it is written. Afterwards no finding is left that has a repair.
    vantorix::OBJECT_PARAMETERS repairs(const QVector<SettingFinding> &findings) const;

private:
    QVector<SettingFinding> valueFindings() const;
    QVector<SettingFinding> ruleFindings() const;
    QVector<SettingFinding> unknownKeyFindings() const;

    vantorix::OBJECT_PARAMETERS m_settings;
    const ObjectIndex &m_objects;
};
