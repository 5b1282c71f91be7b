#include "settingswriter.h"

#include "settingaddress.h"
#include "settingwords.h"
#include "sqliteconnection.h"

#include <QUuid>

namespace {

const QString selectSetting = QStringLiteral("SELECT value, revision, changed_at, changed_by, workstation, program "
                                             "FROM settings WHERE key = ?");
const QString insertSetting =
    QStringLiteral("INSERT INTO settings(value, changed_at, changed_by, workstation, program, key, revision) "
                   "VALUES(?, ?, ?, ?, ?, ?, ? + 1) ON CONFLICT(key) DO NOTHING");
const QString updateSetting =
    QStringLiteral("UPDATE settings SET value = ?, changed_at = ?, changed_by = ?, workstation = ?, program = ?, "
                   "revision = revision + 1 WHERE key = ? AND revision = ?");
const QString insertRecord = QStringLiteral("INSERT INTO history(save_id, key, revision, old_value, new_value, "
                                            "changed_at, changed_by, workstation, program, reason) "
                                            "SELECT ?, key, revision, ?, CASE WHEN ? THEN NULL ELSE value END, "
                                            "changed_at, changed_by, workstation, program, ? "
                                            "FROM settings WHERE key = ?");

bool isSecret(const QString &key)
{
    return SettingAddress{key}.isKnown() && SettingWords::isSecret(key);
}

/// NULL stands for what is not told or not there, in the history as well.
QString notNull(const QString &text)
{
    return text.isNull() ? QLatin1String("") : text;
}
} // namespace

SettingsWriter::SettingsWriter(SqliteConnection &connection, const QString &reason)
    : m_connection(connection)
    , m_saveId(QUuid::createUuid().toString(QUuid::WithoutBraces))
    , m_reason(reason)
    , m_stamp(ChangeStamp::now())
{}

QString SettingsWriter::saveId() const
{
    return m_saveId;
}

bool SettingsWriter::write(const QString &key, const QString &text, const QString &loadedText, qint64 loadedRevision)
{
    const auto before = read(key);
    if (!before)
        return false;
    const bool isThere = before->revision > 0;
    if (isThere && before->revision == loadedRevision && before->text == text)
        return true;

    const int written = compareAndSet(key, notNull(text), loadedRevision);
    if (written == 0)
        m_conflicts.append({key, loadedText, before->text, text, before->revision, before->stamp});
    return written == 0 || (written == 1 && remember(key, *before));
}

const QVector<SettingConflict> &SettingsWriter::conflicts() const
{
    return m_conflicts;
}

const QHash<QString, qint64> &SettingsWriter::revisions() const
{
    return m_revisions;
}

std::optional<SettingsWriter::Stored> SettingsWriter::read(const QString &key)
{
    auto row = m_connection.select(selectSetting, {key});
    if (!row)
        return {};
    if (!row->next())
        return Stored{};
    return Stored{notNull(row->value(0).toString()), row->value(1).toLongLong(),
                  ChangeStamp::fromColumns({row->value(2), row->value(3), row->value(4), row->value(5)})};
}

int SettingsWriter::compareAndSet(const QString &key, const QString &text, qint64 loadedRevision)
{
    const QVariantList values = QVariantList{text} + m_stamp.toColumns() + QVariantList{key, loadedRevision};
    if (!m_connection.executePrepared(loadedRevision == 0 ? insertSetting : updateSetting, values))
        return -1;
    return m_connection.affectedRows();
}

bool SettingsWriter::remember(const QString &key, const Stored &before)
{
    const bool secret = isSecret(key);
    const QString oldValue = secret ? QString() : before.text;
    if (!m_connection.executePrepared(insertRecord, {m_saveId, oldValue, secret, m_reason, key}))
        return false;
    const QVariant revision =
        m_connection.selectOne(QStringLiteral("SELECT revision FROM settings WHERE key = ?"), {key});
    m_revisions.insert(key, revision.toLongLong());
    return revision.isValid();
}
