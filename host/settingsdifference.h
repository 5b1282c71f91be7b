#pragma once

#include <vxsettings/objectparameters.h>

#include <QCoreApplication>
#include <QString>
#include <QVector>

class ObjectIndex;

/// What it would mean to store the settings of a document in an installation. No value is part of it: SettingWords
/// tells the two texts without betraying a secret.
class SettingsDifference
{
    Q_DECLARE_TR_FUNCTIONS(SettingsDifference)

public:
    enum class State {
        Unchanged, ///< stored is the same text, right or wrong
        Changed,   ///< stored is another text, or none
        Unknown,   ///< it would change, but the catalogue does not have it
        Invalid,   ///< it would change, but its text is none that may be stored, see the error
        Missing, ///< stored, but not in the document, which leaves it alone; not told of secret and read-only settings
    };

    struct Row
    {
        QString key;
        State state;
        /// What is wrong and what would be right; null unless the state is Invalid, or Changed to an object that is
        /// not there.
        QString error;
    };

    /// A row for each key, in alphabetical order. @p wanted: what the document says, as it would be stored: a caption
    /// does not stand for its choice. The rules across settings are not looked at.
    static QVector<Row> rows(const vantorix::OBJECT_PARAMETERS &wanted, const vantorix::OBJECT_PARAMETERS &stored,
                             const ObjectIndex &objects);

private:
    static Row accessRow(const QString &wanted);
    static Row row(const QString &key, const QString &wanted, const ObjectIndex &objects);
};
