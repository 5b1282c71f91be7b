#pragma once

#include <QString>

/// Where an installation database is.
class DatabaseLocation
{
public:
    /// @p url is "sqlite:PATH" or a bare path; "~/" at the start of the path is the user's home folder.
    explicit DatabaseLocation(const QString &url);

    /// @p url unless it is empty, else VXSETTINGS_DATABASE from the environment, else a file in the user's data folder.
    static DatabaseLocation chosen(const QString &url);

    /// False for the URL of a database that is not a file ("postgresql://…"), and for an empty path.
    bool isValid() const;
    /// What was asked for, as it was written.
    QString url() const;
    /// The absolute path of the database file.
    QString filePath() const;

private:
    QString m_url;
    QString m_path;
};
