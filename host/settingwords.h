#pragma once

#include <QCoreApplication>
#include <QString>

struct SettingAddress;

/// Settings in the words of the person in front of them. @c key is a stored key of the catalogue throughout.
class SettingWords
{
    Q_DECLARE_TR_FUNCTIONS(SettingWords)

public:
    /// The caption; the title of its group for a JSON setting.
    static QString caption(const QString &key);
    /// @p text as the editor would put it: the caption of a choice, the name of an object, the members of a JSON
    /// setting by their captions, a text in quotes. Of a secret only whether there is one.
    static QString value(const QString &key, const QString &text);
    /// The same for what is stored at @p address, be it known to the catalogue or not: null for nothing. Numbers are as
    /// the editor shows them. Control characters are made blanks, and a text of immoderate length is cut off.
    static QString value(const SettingAddress &address, const QString &text);
    /// Whether nobody but its editor may show the value.
    static bool isSecret(const QString &key);
};
