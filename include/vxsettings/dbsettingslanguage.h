#pragma once

#include <vxsettings/vxsettings_export.h>

#include <QtGlobal>

class QString;
class QTranslator;

/// While one lives, DBSettingsHelper gives its texts in this language, whichever is installed; of several the one that
/// was made last counts. Nobody is told, so that nothing on the screen changes. GUI thread only.
class VXSETTINGS_EXPORT DBSettingsLanguage
{
public:
    /// The language of @p translator, which must live longer; it need not be installed. Without one, and for a text
    /// that it does not have, the source language, which is Russian.
    explicit DBSettingsLanguage(const QTranslator *translator = nullptr);
    ~DBSettingsLanguage();
    Q_DISABLE_COPY(DBSettingsLanguage)

    /// @p source, a text of the catalogue, in the language that counts now.
    static QString translated(const char *source);

private:
    const QTranslator *m_translator; // borrowed
    const DBSettingsLanguage *m_previous;
};
