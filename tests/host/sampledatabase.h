#pragma once

#include "testdatabase.h"

#include <host/sampleinstallation.h>
#include <host/settingsstore.h>

#include <stdexcept>

/// Makes @p database that of the sample installation, in which the settings in @p stored have other texts: key → text.
inline void makeSample(const TestDatabase &database, const QHash<QString, QString> &stored = {})
{
    const auto location = DatabaseLocation::ofFile(database.path());
    if (const auto error = SettingsStore::create(location, SampleInstallation::make()))
        throw std::runtime_error(error->text().toStdString());
    for (auto setting = stored.begin(); setting != stored.end(); ++setting)
        database.store(setting.key(), *setting);
}
