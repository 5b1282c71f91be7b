#include "settingsdraft.h"

#include <host/databaselocation.h>
#include <host/durablefile.h>
#include <host/settingwords.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QStandardPaths>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto delay = 300ms; // leaves time to write within a second
constexpr int mostProcesses = 100;

const QString formatName = QStringLiteral("vxsettings-draft");
constexpr int currentVersion = 1;

QString folder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/vxsettings/drafts");
}

QString pathOf(const QString &database, int number)
{
    const QByteArray hash = QCryptographicHash::hash(database.toUtf8(), QCryptographicHash::Sha256).toHex().left(32);
    return QStringLiteral("%1/%2-%3.json").arg(folder(), QString::fromLatin1(hash)).arg(number);
}

/// Null if another living process has it, or if nothing can be written there.
std::unique_ptr<QLockFile> locked(const QString &path)
{
    auto lock = std::make_unique<QLockFile>(path + QStringLiteral(".lock"));
    lock->setStaleLockTime(0); // only the death of its owner ends it
    return lock->tryLock() ? std::move(lock) : nullptr;
}

QJsonObject toJson(const DraftEdit &edit)
{
    QJsonObject json{{QStringLiteral("address"), edit.address.text()},
                     {QStringLiteral("text"), edit.text},
                     {QStringLiteral("revision"), edit.revision}};
    if (!edit.base.isNull())
        json.insert(QStringLiteral("base"), edit.base);
    if (edit.isRepair)
        json.insert(QStringLiteral("repair"), true);
    return json;
}

DraftEdit editFromJson(const QJsonObject &json)
{
    const QJsonValue base = json[QStringLiteral("base")];
    return {SettingAddress::fromText(json[QStringLiteral("address")].toString()),
            json[QStringLiteral("text")].toString(QLatin1String("")),
            base.isString() ? base.toString(QLatin1String("")) : QString(),
            qint64(json[QStringLiteral("revision")].toDouble()), json[QStringLiteral("repair")].toBool()};
}

bool isKept(const DraftEdit &edit)
{
    return edit.address.isKnown() && !SettingWords::isSecret(edit.address.parameter());
}
} // namespace

SettingsDraft::SettingsDraft(const DatabaseLocation &location, QObject *parent)
    : QObject(parent)
    , m_database(location.name())
{
    m_writer.setMaxThreadCount(1);
    m_timer.setSingleShot(true);
    m_timer.setInterval(delay);
    connect(&m_timer, &QTimer::timeout, this, &SettingsDraft::write);
    if (takePath(Content::Left))
        read();
    else
        takePath(Content::None);
}

SettingsDraft::~SettingsDraft()
{
    m_writer.waitForDone();
    if (m_timer.isActive() && m_lock)
        static_cast<void>(store(m_path, content())); // nobody is left who could be told
}

bool SettingsDraft::takePath(Content content)
{
    QDir().mkpath(folder());
    QFile::setPermissions(folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    for (int number = 0; number < mostProcesses && !m_lock; ++number) {
        m_path = pathOf(m_database, number);
        if (QFile::exists(m_path) == (content == Content::Left))
            m_lock = locked(m_path);
    }
    return m_lock != nullptr;
}

void SettingsDraft::read()
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        m_found.problem = tr("Черновик несохранённых изменений «%1» не читается: %2.").arg(m_path, file.errorString());
        return;
    }
    const QJsonObject json = QJsonDocument::fromJson(file.readAll()).object();
    const bool isDraft = json[QStringLiteral("format")] == formatName &&
                         json[QStringLiteral("version")] == currentVersion &&
                         json[QStringLiteral("database")] == m_database;
    if (!isDraft) {
        m_found.problem = tr("Файл «%1» — не черновик изменений этой базы данных.").arg(m_path);
        return;
    }
    m_found.at = QDateTime::fromString(json[QStringLiteral("at")].toString(), Qt::ISODateWithMs);
    // The iterators of an array make the values.
    for (const QJsonValue edit : json[QStringLiteral("edits")].toArray()) // clazy:exclude=range-loop-reference
        m_found.edits.append(editFromJson(edit.toObject()));
}

const SettingsDraft::Found &SettingsDraft::found() const
{
    return m_found;
}

void SettingsDraft::forgetFound()
{
    m_found = {};
    m_timer.start();
}

void SettingsDraft::keep(const QVector<DraftEdit> &edits)
{
    QVector<DraftEdit> kept;
    std::copy_if(edits.begin(), edits.end(), std::back_inserter(kept), isKept);
    if (kept == m_edits)
        return;
    m_edits = kept;
    // An edit that follows another one must not put the first one off.
    if (!m_timer.isActive())
        m_timer.start();
}

QByteArray SettingsDraft::content() const
{
    QJsonArray edits;
    const auto isNew = [this](const DraftEdit &found) {
        return std::none_of(m_edits.begin(), m_edits.end(),
                            [&](const DraftEdit &edit) { return edit.address == found.address; });
    };
    for (const DraftEdit &edit : m_edits)
        edits.append(toJson(edit));
    for (const DraftEdit &found : m_found.edits) {
        if (isNew(found))
            edits.append(toJson(found));
    }
    if (edits.isEmpty())
        return {};
    const QJsonObject json{{QStringLiteral("format"), formatName},
                           {QStringLiteral("version"), currentVersion},
                           {QStringLiteral("database"), m_database},
                           {QStringLiteral("at"), QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs)},
                           {QStringLiteral("edits"), edits}};
    return QJsonDocument(json).toJson();
}

void SettingsDraft::write()
{
    if (m_isWriting) {
        m_timer.start();
        return;
    }
    if (!m_lock && !takePath(Content::None)) {
        finishWriting(tr("Не удаётся создать черновик несохранённых изменений в папке «%1».").arg(folder()));
        return;
    }
    m_isWriting = true;
    m_writer.start([this, path = m_path, bytes = content()] {
        const auto problem = store(path, bytes);
        QMetaObject::invokeMethod(
            this, [this, problem] { finishWriting(problem); }, Qt::QueuedConnection);
    });
}

void SettingsDraft::finishWriting(const std::optional<QString> &problem)
{
    m_isWriting = false;
    const bool isNews = problem && !m_hasFailed;
    m_hasFailed = problem.has_value();
    if (!problem)
        Q_EMIT written();
    else if (isNews)
        Q_EMIT failed(*problem);
}

std::optional<QString> SettingsDraft::store(const QString &path, const QByteArray &content)
{
    if (!content.isEmpty())
        return DurableFile::write(path, content, DurableFile::Readers::OwnerOnly);
    QFile file(path);
    if (!file.exists() || file.remove())
        return {};
    return tr("Не удаётся удалить файл «%1»: %2.").arg(path, file.errorString());
}
