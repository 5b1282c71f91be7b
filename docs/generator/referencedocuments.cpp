#include "referencedocuments.h"

#include "cataloguereference.h"
#include "jsonschema.h"

#include <vxsettings/dbkeys.h>

using namespace db::database;

QVector<ReferenceDocument> referenceDocuments()
{
    QVector<ReferenceDocument> documents{{QStringLiteral("reference.md"), CatalogueReference().text()}};
    for (const QString &key : {PIN_STRENGTH, PASSWORD_STRENGTH, PALM_TEMPLATES_AMOUNT_SETTINGS})
        documents.append({QStringLiteral("schema/%1.json").arg(key), JsonSchema().text(key)});
    return documents;
}
