#pragma once

#include "report.h"

#include <host/databaselocation.h>

#include <vxsettings/objectparameters.h>

#include <QCoreApplication>
#include <QString>

#include <optional>

/// A file with settings, as the command line names it.
class SettingsFile
{
    Q_DECLARE_TR_FUNCTIONS(SettingsFile)

public:
    explicit SettingsFile(const QString &path);

    /// Fills @p settings. What went wrong, or nothing.
    [[nodiscard]] std::optional<Report> read(vantorix::OBJECT_PARAMETERS &settings) const;
    /// Whether writing the file would destroy the database at @p location, or one of the files that it needs.
    bool isPartOf(const DatabaseLocation &location) const;

private:
    QString m_path;
};
