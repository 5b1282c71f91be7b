#pragma once

#include <QString>
#include <QVector>

/// A file of the documentation that is made from the catalogue.
struct ReferenceDocument
{
    QString path; ///< below docs/
    QString text;
};

/// All of them. Needs an application object and English, see Translations.
QVector<ReferenceDocument> referenceDocuments();
