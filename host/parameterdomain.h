#pragma once

#include <host/objectindex.h>
#include <host/settingproblem.h>

#include <QVariant>

/// The texts that one parameter of the catalogue can hold: its choices, its range and what else its editor can show.
class ParameterDomain
{
    Q_DECLARE_TR_FUNCTIONS(ParameterDomain)

public:
    /// @p parameter is known to the catalogue and no JSON object; @p objects must live longer.
    ParameterDomain(const QString &parameter, const ObjectIndex &objects);

    /// What is stored for the words that a person may use: for a choice its caption, for a flag "да", "нет", "yes",
    /// "no", "1" and "0", for a number what the editor shows instead of it, upper and lower case being alike unless
    /// that makes two of them one; for no object an empty text. Anything else stays as it is.
    QString stored(const QString &words) const;

    /// The same for a flag that is no parameter of the catalogue.
    static QString storedFlag(const QString &words);

    SettingProblem::Kind problem(const QString &stored) const;

    /// What the editor makes of @p stored, a text or the value of a JSON member, as the text that it would save. An
    /// invalid value stands for a missing member.
    QString shown(const QVariant &stored) const;

    /// One sentence in the current language: the range, the choices.
    QString allowed() const;

private:
    QString m_parameter;
    const ObjectIndex &m_objects;
};
