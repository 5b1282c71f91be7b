#pragma once

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class QTranslator;

/// The language of a program's texts: its own, those of the host and the libraries, and the toolkit's.
///
/// A language is named by its code, "en". Russian, the language of the sources, is always there; another one is there
/// if folder() has the settings library's texts in it. Needs an application object, which outlives this.
class Translations
{
public:
    /// @p program names the catalogue of the program's own texts. Texts are Russian until a language is set.
    explicit Translations(const QString &program);
    ~Translations();
    Q_DISABLE_COPY(Translations)

    /// Where the translations lie: with the program in the build tree, below its prefix wherever that is.
    static QString folder();
    /// Russian first, the others by code.
    static QStringList languages();
    /// What the speakers of @p language call it: "English".
    static QString name(const QString &language);
    /// The first of @p wishes that is there, else the first of the system's languages that is, else Russian.
    static QString preferred(const QStringList &wishes = {});
    /// What was chosen last by the user of this program; null if nothing was.
    static QString remembered();

    /// The settings library's texts in @p language, to look something up in; not installed. Null if it is not there.
    static std::unique_ptr<QTranslator> libraryTexts(const QString &language);

    QString language() const { return m_language; }
    /// Every window gets a LanguageChange event. False, and nothing changes, if @p language is not there.
    bool setLanguage(const QString &language);
    /// Sets @p language, and remembers it for the next start.
    bool choose(const QString &language);

private:
    static std::unique_ptr<QTranslator> load(const QString &catalogue, const QString &language, const QString &folder);
    void install(const QString &catalogue, const QString &folder);

    QString m_program;
    QString m_language;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};
