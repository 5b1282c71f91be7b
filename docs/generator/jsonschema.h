#pragma once

#include "bothlanguages.h"

#include <QJsonObject>
#include <QString>

/// JSON Schema, draft 2020-12, for the texts of the JSON settings: what is stored there without a fault.
///
/// That is what `vxsettingsctl check` finds no error in, but for what a schema cannot say: names that occur twice, and
/// the rules across members.
class JsonSchema
{
public:
    /// Indented, with a final line break. @p key is one of the JSON settings.
    QString text(const QString &key) const;

private:
    QJsonObject member(const QString &name) const;

    BothLanguages m_languages;
};
