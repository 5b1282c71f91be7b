#include "settingswriter.h"

#include "settingaddress.h"
#include "settingwords.h"
#include "sqlconnection.h"

#include <QUuid>

namespace {

const QString selectSetting = QStringLiteral("SELECT value, revision, changed_at, changed_by, workstation, program "
                                             "FROM settings WHERE key = ?");
const QString insertSetting =
    QStringLiteral("INSERT INTO settings(value, changed_at, changed_by, workstation, program, key, revision) "
                   "VALUES(?, ?, ?, ?, ?, ?, 1) ON CONFLICT(key) DO NOTHING");
const QString updateSetting =
    QStringLiteral("UPDATE settings SET value = ?, changed_at = ?, changed_by = ?, workstation = ?, program = ?, "
                   "revision = revision + 1 WHERE key = ? AND revision = ?");
const QString insertRecord =
    QStringLiteral("INSERT INTO history(save_id, key, revision, old_value, new_value, reason, "
                   "changed_at, changed_by, workstation, program) VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
const QString selectRevision = QStringLiteral("SELECT revision FROM settings WHERE key = ?");

bool isSecret(const QString &key)
{
    const SettingAddress address{key};
    return address.isKnown() && SettingWords::isSecret(key);
}

/// NULL stands for what is not told or not there, in the history as well.
QString notNull(const QString &text)
{
    return text.isNull() ? QLatin1String("") : text;
}
} // namespace

SettingsWriter::SettingsWriter(SqlConnection &connection, const QString &saveId, const QString &reason)
    : m_connection(connection)
    , m_saveId(saveId)
    , m_reason(reason.isEmpty() ? QString() : reason)
    , m_stamp(ChangeStamp::now())
{}

bool SettingsWriter::write(const QString &key, const QString &text, const QString &loadedText, qint64 loadedRevision)
{
    const auto before = read(key);
    if (!before)
        return false;
    const bool isThere = before->revision > 0;
    if (isThere && before->revision == loadedRevision && before->text == text)
        return true;

    switch (compareAndSet(key, notNull(text), loadedRevision)) {
    case 1:
        return remember(key, notNull(text), before->text);
    case 0:
        return addConflict(key, text, loadedText);
    default:
        return false;
    }
}

const QVector<SettingConflict> &SettingsWriter::conflicts() const
{
    return m_conflicts;
}

const QHash<QString, qint64> &SettingsWriter::revisions() const
{
    return m_revisions;
}

const ChangeStamp &SettingsWriter::stamp() const
{
    return m_stamp;
}

std::optional<SettingsWriter::Stored> SettingsWriter::read(const QString &key)
{
    auto row = m_connection.select(selectSetting, {key});
    const bool isThere = row && row->next();
    if (!m_connection.isComplete(row))
        return {};
    if (!isThere)
        return Stored{};
    return Stored{notNull(row->value(0).toString()), row->value(1).toLongLong(),
                  ChangeStamp::fromColumns({row->value(2), row->value(3), row->value(4), row->value(5)})};
}

int SettingsWriter::compareAndSet(const QString &key, const QString &text, qint64 loadedRevision)
{
    const bool isNew = loadedRevision == 0;
    QVariantList values = QVariantList{text} + m_stamp.toColumns() + QVariantList{key};
    if (!isNew)
        values.append(loadedRevision);
    if (!m_connection.execute(isNew ? insertSetting : updateSetting, values))
        return -1;
    return m_connection.affectedRows();
}

bool SettingsWriter::remember(const QString &key, const QString &text, const QString &textBefore)
{
    const QVariant revision = m_connection.selectOne(selectRevision, {key});
    m_revisions.insert(key, revision.toLongLong());
    const bool secret = isSecret(key);
    const QVariantList record{m_saveId, key, revision, secret ? QString() : textBefore, secret ? QString() : text,
                              m_reason};
    return revision.isValid() && m_connection.execute(insertRecord, record + m_stamp.toColumns());
}

bool SettingsWriter::addConflict(const QString &key, const QString &text, const QString &loadedText)
{
    // Another writer on a server may have been faster since it was read.
    const auto stored = read(key);
    if (stored)
        m_conflicts.append({key, loadedText, stored->text, text, stored->revision, stored->stamp});
    return stored.has_value();
}
