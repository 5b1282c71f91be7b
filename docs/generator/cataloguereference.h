#pragma once

#include "bothlanguages.h"

#include <vxsettings/dbsettingstypes.h>

#include <QString>

/// The page of the documentation that lists every group and parameter of the catalogue, in Markdown.
///
/// It is in English: the program that writes it has English installed.
class CatalogueReference
{
public:
    QString text() const;

private:
    QString page(DBGroups group, const QString &name) const;
    QString jsonSetting(const QString &key) const;
    QString groupFacts(DBGroups group) const;
    QString table(DBGroups group) const;
    QString row(const QString &parameter) const;
    QString caption(const QString &parameter) const;
    QString values(const QString &parameter) const;
    QString choices(const QString &parameter) const;
    QString range(const QString &parameter) const;
    QString toolTips(DBGroups group) const;

    BothLanguages m_languages;
};
