#include "jsonparambuilder.h"

#include "dbsc.h"

#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettingshelper.h>

#include <localstorage/localstorage.h>

#include <QJsonDocument>
#include <QJsonObject>

DBSettingsBuilder &JsonParamBuilder::createValue()
{
    DBParamWidget *editor = boundEditor();
    if (!editor)
        return *this;
    const QString jsonKey = DBSettingsHelper::jsonParam(group());
    const QString text = vantorix::LocalStorage::instance()->dbSettings().value(jsonKey);
    qCDebug(dbsc) << jsonKey << text;

    // One member is converted; the whole object only for the log. A missing member must not become a JSON null.
    const QJsonObject object = QJsonDocument::fromJson(text.toLocal8Bit()).object();
    const auto member = object.find(key());
    const QVariant value = member == object.end() ? QVariant() : member->toVariant();
    qCDebug(dbsc) << "full json is" << object.toVariantHash() << key() << value;
    editor->setValue(value);
    return *this;
}

DBSettingsBuilder &JsonParamBuilder::createInvertedValue()
{
    return ParamBuilder::createInvertedValue();
}
