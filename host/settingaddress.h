#pragma once

#include <vxsettings/dbsettingstypes.h>

#include <QHash>
#include <QString>
#include <QVector>

#include <optional>

/// Where a value is stored: a stored key, or a member of the JSON object under one. As text "PT_MOBILE_PORT" and
/// "PT_PIN_STRENGTH.min_len"; upper and lower case matter.
struct SettingAddress
{
    QString key;
    QString member = {}; ///< empty for all that is stored under the key

    /// The part behind the first dot is the member. What is no address becomes one that is not known.
    static SettingAddress fromText(const QString &text);
    /// Every address of the catalogue in the order of the pages, the members behind their key.
    static const QVector<SettingAddress> &all();

    QString text() const;

    /// Whether the catalogue has it. Only then the four functions below may be called, the last one also for all
    /// members of an object that the catalogue has, and for PageAccess.
    bool isKnown() const;
    /// Whether a JSON object is stored here.
    bool isJsonObject() const;
    /// The group that shows the editor: a page, or the JSON group of a member.
    DBGroups group() const;
    /// Under what name the catalogue describes the value.
    const QString &parameter() const;
    /// The parameter's caption; for a caption that occurs more than once with what tells it apart, as in
    /// "Сложность пароля: Минимальная длина". A JSON object has the title of its group; a member that the catalogue
    /// does not have has its name behind that title.
    QString caption() const;

    /// What is stored here; of a member its JsonMembers::scalar(). Nothing if there is nothing of that kind.
    std::optional<QString> valueIn(const QHash<QString, QString> &settings) const;
    /// What to store under the key so that @p value is stored here; @p stored, null or empty for nothing, is there now.
    /// Other members stay as they are written; those of PageAccess are booleans. Nothing for a member of a text that is
    /// no JSON object of unique names.
    std::optional<QString> textWith(const QString &value, const QString &stored) const;
};

bool operator==(const SettingAddress &left, const SettingAddress &right);
