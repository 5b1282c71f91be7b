#pragma once

#include <QCoreApplication>
#include <QString>

class QTextStream;
class SettingsSession;

/// Pictures of all pages. Nothing appears on a screen.
class PagePictures
{
    Q_DECLARE_TR_FUNCTIONS(PagePictures)

public:
    /// Writes a PNG a page into @p folder, which is made if there is none, and each path to @p out. False, and a
    /// message on @p err, if a picture could not be written. No page of @p session may be open.
    static bool write(SettingsSession &session, const QString &folder, QTextStream &out, QTextStream &err);
};
