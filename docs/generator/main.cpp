#include "referencedocuments.h"

#include <host/translations.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

namespace {

bool write(const QString &path, const QString &text)
{
    QSaveFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0 &&
           file.commit();
}
} // namespace

/// Writes what the documentation takes from the catalogue below a folder.
int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fputs("usage: vxsettings-reference FOLDER\n", stderr);
        return 2;
    }
    Translations translations(QStringLiteral("vxsettingsctl"));
    if (!translations.setLanguage(QStringLiteral("en"))) {
        std::fputs("vxsettings-reference: there is no English\n", stderr);
        return 1;
    }
    const QDir folder(QCoreApplication::arguments().at(1));
    for (const ReferenceDocument &document : referenceDocuments()) {
        if (!write(folder.filePath(document.path), document.text)) {
            std::fprintf(stderr, "vxsettings-reference: cannot write %s\n", qPrintable(document.path));
            return 1;
        }
    }
    return 0;
}
