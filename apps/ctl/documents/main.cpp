#include "manualpage.h"
#include "shellcompletion.h"

#include <host/translations.h>

#include <QCoreApplication>
#include <QSaveFile>

#include <cstdio>

namespace {

struct Document
{
    const char *name;
    QString (*text)();
};

constexpr Document documents[] = {
    {"bash", ShellCompletion::bash},
    {"zsh", ShellCompletion::zsh},
    {"fish", ShellCompletion::fish},
    {"man", ManualPage::text},
};

bool write(const QString &path, const QString &text)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0 && file.commit();
}
} // namespace

/// Writes what accompanies vxsettingsctl. A part of the build, which installs what is written.
int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(VXSETTINGS_VERSION));
    const QStringList arguments = QCoreApplication::arguments();
    Translations translations(QStringLiteral("vxsettingsctl"));
    if (!translations.setLanguage(arguments.value(3, translations.language())))
        return 1;
    for (const Document &document : documents) {
        if (arguments.size() >= 3 && arguments[1] == QLatin1String(document.name))
            return write(arguments[2], document.text()) ? 0 : 1;
    }
    std::fputs("usage: vxsettingsctl-documents bash|zsh|fish|man FILE [LANGUAGE]\n", stderr);
    return 2;
}
