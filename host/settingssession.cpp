#include "settingssession.h"

#include <host/healthcheck.h>
#include <host/installationdatabase.h>
#include <host/jsonsetting.h>
#include <host/settingspage.h>

#include <vxsettings/dbsettingshelper.h>

#include <localstorage/localstorage.h>

#include <QPointer>
#include <QWidget>

#include <algorithm>

using vantorix::LocalStorage;
using vantorix::OBJECT_PARAMETERS;

namespace {

bool isReference(const SettingAddress &address)
{
    const DBSettingsType type = DBSettingsHelper::paramType(address.parameter());
    return type == DBSettingsType::OrgstructureSelector || type == DBSettingsType::SmartCardProfileSelector;
}

template <typename Value>
void copyEntry(QHash<QString, Value> &to, const QHash<QString, Value> &from, const QString &key)
{
    if (const auto entry = from.find(key); entry != from.end())
        to.insert(key, *entry);
    else
        to.remove(key);
}

/// @p known after what a refused save has brought to light.
Installation withTheirs(Installation known, const QVector<SettingConflict> &conflicts)
{
    for (const SettingConflict &conflict : conflicts) {
        known.settings.insert(conflict.key, conflict.stored);
        known.revisions.insert(conflict.key, conflict.revision);
        known.stamps.insert(conflict.key, conflict.stamp);
        if (conflict.revision == 0) {
            known.settings.remove(conflict.key);
            known.revisions.remove(conflict.key);
        }
    }
    return known;
}
} // namespace

SettingsSession::SettingsSession(InstallationDatabase &database, QObject *parent)
    : QObject(parent)
    , m_database(database)
    , m_objects({})
{
    connect(&m_database, &InstallationDatabase::changed, this, [this] { adopt(m_database.installation()); });
    connect(LocalStorage::instance(), &LocalStorage::objectsChanged, this, [this] { m_areObjectsKnown = false; });
}

SettingsSession::~SettingsSession() = default;

void SettingsSession::load()
{
    m_database.load([self = QPointer<SettingsSession>(this)](const DatabaseResult<Installation> &read) {
        if (!self)
            return;
        if (read.error) {
            Q_EMIT self->failed(*read.error);
            return;
        }
        self->adopt(self->m_database.installation());
        self->m_isLoaded = true;
        Q_EMIT self->loaded();
    });
}

bool SettingsSession::isLoaded() const
{
    return m_isLoaded;
}

const Installation &SettingsSession::stored() const
{
    return m_stored;
}

QString SettingsSession::storedText(const SettingAddress &address) const
{
    return SettingEdit::valueIn(m_stored.settings.value(address.key), address);
}

ChangeStamp SettingsSession::stamp(const QString &key) const
{
    return m_stored.stamps.value(key);
}

PageAccess SettingsSession::access() const
{
    return PageAccess::in(m_stored.settings);
}

bool SettingsSession::mayEdit(DBGroups page) const
{
    return m_authority == Authority::Administrator || access().mayEdit(page);
}

void SettingsSession::setAuthority(Authority authority)
{
    m_authority = authority;
}

QWidget *SettingsSession::openPage(DBGroups group, QWidget *parent)
{
    if (!isOpen(group))
        buildPage(group, parent);
    return page(group)->widget();
}

bool SettingsSession::isOpen(DBGroups group) const
{
    const SettingsPage *built = page(group);
    return built && built->widget();
}

DBParamWidget *SettingsSession::editor(const SettingAddress &address) const
{
    const SettingsPage *shown = page(address);
    return shown ? shown->editor(address) : nullptr;
}

void SettingsSession::retranslate()
{
    for (const auto &page : m_pages)
        page->retranslate();
}

QString SettingsSession::shownText(const SettingAddress &address) const
{
    const SettingsPage *shown = page(address);
    return shown ? shown->shown(address) : QString();
}

bool SettingsSession::hasChanges() const
{
    return !changedAddresses().isEmpty();
}

bool SettingsSession::hasChanges(DBGroups group) const
{
    const SettingsPage *open = page(group);
    return open && !open->changed().isEmpty();
}

bool SettingsSession::isChanged(const SettingAddress &address) const
{
    const SettingsPage *shown = page(address);
    return shown && shown->isChanged(address);
}

QVector<SettingAddress> SettingsSession::changedAddresses() const
{
    QVector<SettingAddress> changed;
    for (const auto &page : m_pages)
        changed += page->changed();
    return changed;
}

OBJECT_PARAMETERS SettingsSession::changes() const
{
    return textsOf(edits());
}

bool SettingsSession::setParameter(const SettingAddress &address, const QString &text)
{
    SettingsPage *shown = page(address);
    if (!shown)
        return false;
    const bool isShown = shown->edit(address, text);
    Q_EMIT edited();
    return isShown;
}

bool SettingsSession::replaceStored(const SettingAddress &address, const QString &text)
{
    SettingsPage *shown = page(address);
    if (!shown)
        return false;
    const bool isShown = shown->edit(address, text);
    if (isShown && storedText(address) != text)
        shown->insist(address);
    Q_EMIT edited();
    return isShown;
}

bool SettingsSession::isReplacing(const SettingAddress &address) const
{
    const SettingsPage *shown = page(address);
    return shown && shown->isInsistedOn(address);
}

QVector<SettingAddress> SettingsSession::replacing() const
{
    QVector<SettingAddress> addresses;
    for (const auto &page : m_pages)
        addresses += page->insistedOn();
    return addresses;
}

bool SettingsSession::isUnreadable(const QString &key) const
{
    const SettingAddress address{key};
    return address.isKnown() && address.isJsonObject() &&
           JsonSetting(m_stored.settings.value(key)).state() == JsonSetting::State::Unreadable;
}

QString SettingsSession::repairedText(const QString &key) const
{
    JsonSetting::Texts shown;
    if (const SettingsPage *open = page(SettingAddress{key}.group())) {
        for (const SettingAddress &address : open->addresses(key))
            shown.insert(address.member, open->shown(address));
    }
    return JsonSetting(m_stored.settings.value(key)).merged(shown, {});
}

void SettingsSession::repair(const QString &key)
{
    SettingsPage *open = page(SettingAddress{key}.group());
    if (!open)
        return;
    for (const SettingAddress &address : open->addresses(key))
        open->insist(address);
    m_repairedRevisions.insert(key, m_stored.revisions.value(key));
    Q_EMIT edited();
}

bool SettingsSession::isRepaired(const QString &key) const
{
    if (!m_repairedRevisions.contains(key) || m_repairedRevisions.value(key) != m_stored.revisions.value(key))
        return false;
    // An undone repair has left no parameter that insists.
    const QVector<SettingAddress> insisting = replacing();
    return std::any_of(insisting.begin(), insisting.end(),
                       [&key](const SettingAddress &address) { return address.key == key; });
}

void SettingsSession::revert(const SettingAddress &address)
{
    if (SettingsPage *shown = page(address))
        shown->revert(address);
    forgetOrigin(address);
    Q_EMIT edited();
}

void SettingsSession::revert()
{
    for (const auto &page : m_pages) {
        for (const SettingAddress &address : page->changed())
            page->revert(address);
    }
    m_origins.clear();
    Q_EMIT edited();
}

QVector<SettingsSession::Conflict> SettingsSession::conflicts() const
{
    QVector<Conflict> conflicts;
    for (const SettingEdit &edit : clashes(edits())) {
        conflicts.append({edit.address, SettingEdit::valueIn(edit.base, edit.address), storedText(edit.address),
                          edit.text, stamp(edit.address.key)});
    }
    return conflicts;
}

bool SettingsSession::keepMine(const Conflict &seen)
{
    if (storedText(seen.address) != seen.theirs)
        return false;
    forgetOrigin(seen.address);
    Q_EMIT edited();
    return true;
}

QVector<SettingRules::Violation> SettingsSession::violations() const
{
    OBJECT_PARAMETERS settings = m_stored.settings;
    const OBJECT_PARAMETERS changed = changes();
    for (auto setting = changed.begin(); setting != changed.end(); ++setting)
        settings.insert(setting.key(), *setting);
    return SettingRules::violations(settings);
}

QVector<SettingRules::Violation> SettingsSession::newViolations() const
{
    QStringList known;
    for (const SettingRules::Violation &violation : SettingRules::violations(m_stored.settings))
        known.append(violation.message);
    QVector<SettingRules::Violation> violations = this->violations();
    const auto isKnown = [&known](const SettingRules::Violation &violation) {
        return known.contains(violation.message);
    };
    violations.erase(std::remove_if(violations.begin(), violations.end(), isKnown), violations.end());
    return violations;
}

QVector<SettingFinding> SettingsSession::findings() const
{
    return HealthCheck(m_stored.settings, m_objects).findings();
}

void SettingsSession::save(const QString &reason, Unreadable unreadable)
{
    if (isSaving())
        return;
    if (unreadable == Unreadable::Keep)
        m_refusedRevisions.clear();
    m_save = Save{edits(), reason, unreadable, {}, {}};
    sendSave();
}

bool SettingsSession::isSaving() const
{
    return m_save.has_value();
}

void SettingsSession::saveAccess(const QString &text, qint64 seen, const QString &reason,
                                 const std::function<void(const SaveResult &)> &done)
{
    SaveOrder order{{{PageAccess::KEY, text}}, m_stored, reason, Authority::Administrator};
    order.base.revisions.insert(PageAccess::KEY, seen);
    m_database.save(order, [self = QPointer<SettingsSession>(this), done](const SaveResult &result) {
        if (!self)
            return;
        if (result.isDone())
            self->adopt(self->m_database.installation());
        if (result.outcome == SaveResult::Outcome::Conflicting)
            self->adopt(withTheirs(self->m_stored, result.conflicts));
        done(result);
    });
}

SettingsPage *SettingsSession::page(DBGroups group) const
{
    const auto found =
        std::find_if(m_pages.begin(), m_pages.end(), [group](const auto &page) { return page->group() == group; });
    return found == m_pages.end() ? nullptr : found->get();
}

SettingsPage *SettingsSession::page(const SettingAddress &address) const
{
    const auto found = std::find_if(m_pages.begin(), m_pages.end(),
                                    [&address](const auto &page) { return page->editor(address) != nullptr; });
    return found == m_pages.end() ? nullptr : found->get();
}

void SettingsSession::buildPage(DBGroups group, QWidget *parent)
{
    const auto isGone = [](const auto &page) { return !page->widget(); };
    m_pages.erase(std::remove_if(m_pages.begin(), m_pages.end(), isGone), m_pages.end());
    m_pages.push_back(std::make_unique<SettingsPage>(group, parent));
    SettingsPage &page = *m_pages.back();
    forgetSettledOrigins();
    if (isSaving())
        m_save->builtMeanwhile.append(group);

    // The storage may be ahead of this session or, after a refused save, behind it.
    const QHash<QString, QString> builtFrom = LocalStorage::instance()->dbSettings();
    for (const SettingAddress &address : page.addresses()) {
        if (builtFrom.value(address.key) != m_stored.settings.value(address.key))
            follow(page, address);
    }
    connect(&page, &SettingsPage::edited, this, [this](const SettingAddress &address) {
        Q_EMIT parameterEdited(address);
        Q_EMIT edited();
    });
    Q_EMIT pageOpened(group);
}

// What is edited

QVector<SettingEdit> SettingsSession::edits() const
{
    QVector<SettingEdit> edits;
    for (const SettingAddress &address : changedAddresses()) {
        const Origin *known = originOf(address);
        const Origin origin = known ? *known : currentOrigin(address);
        edits.append({address, shownText(address), origin.text, origin.revision});
    }
    return edits;
}

OBJECT_PARAMETERS SettingsSession::textsOf(const QVector<SettingEdit> &edits) const
{
    QHash<QString, JsonSetting::Texts> shown;
    for (const SettingEdit &edit : edits) {
        const SettingsPage *open = page(edit.address);
        if (!open || edit.address.member.isEmpty() || shown.contains(edit.address.key))
            continue;
        for (const SettingAddress &address : open->addresses(edit.address.key))
            shown[address.key].insert(address.member, open->baseline(address));
    }
    return SettingEdit::texts(edits, m_stored.settings, shown);
}

QVector<SettingEdit> SettingsSession::clashes(const QVector<SettingEdit> &edits) const
{
    QVector<SettingEdit> clashes;
    for (const SettingEdit &edit : edits) {
        const QString &key = edit.address.key;
        if (edit.clashesWith(m_stored.settings.value(key), m_stored.revisions.value(key), m_objects))
            clashes.append(edit);
    }
    return clashes;
}

// What others have stored

void SettingsSession::adopt(const Installation &now)
{
    if (!m_areObjectsKnown)
        adoptObjects(now);
    for (const QString &key : m_stored.settings.keys() + now.settings.keys())
        adoptSetting(now, key);
    forgetSettledOrigins();
    Q_EMIT storedChanged();
    Q_EMIT edited();
}

void SettingsSession::adoptSetting(const Installation &now, const QString &key)
{
    const bool isOther = now.settings.value(key) != m_stored.settings.value(key);
    if (isOther || now.revisions.value(key) != m_stored.revisions.value(key))
        rememberOrigins(key);
    copyEntry(m_stored.settings, now.settings, key);
    copyEntry(m_stored.revisions, now.revisions, key);
    copyEntry(m_stored.stamps, now.stamps, key);
    if (!isOther)
        return;
    for (const auto &page : m_pages) {
        for (const SettingAddress &address : page->addresses(key))
            follow(*page, address);
    }
}

void SettingsSession::adoptObjects(const Installation &now)
{
    m_areObjectsKnown = true;
    m_stored.objects = now.objects;
    m_objects = ObjectIndex(now.objects);
    for (const auto &page : m_pages) {
        for (const SettingAddress &address : page->addresses()) {
            if (isReference(address))
                follow(*page, address);
        }
    }
}

void SettingsSession::follow(SettingsPage &page, const SettingAddress &address)
{
    page.follow(address, SettingEdit::shownIn(m_stored.settings.value(address.key), address, m_objects));
    // Whatever was wanted is stored now.
    if (page.shown(address) == storedText(address))
        page.accept(address, storedText(address));
}

void SettingsSession::rememberOrigins(const QString &key)
{
    for (const SettingAddress &address : changedAddresses()) {
        if (address.key == key && !originOf(address))
            m_origins.append(currentOrigin(address));
    }
}

SettingsSession::Origin SettingsSession::currentOrigin(const SettingAddress &address) const
{
    return {address, m_stored.settings.value(address.key), m_stored.revisions.value(address.key)};
}

const SettingsSession::Origin *SettingsSession::originOf(const SettingAddress &address) const
{
    const auto found = std::find_if(m_origins.begin(), m_origins.end(),
                                    [&address](const Origin &origin) { return origin.address == address; });
    return found == m_origins.end() ? nullptr : &*found;
}

void SettingsSession::forgetOrigin(const SettingAddress &address)
{
    const auto isOfAddress = [&address](const Origin &origin) { return origin.address == address; };
    m_origins.erase(std::remove_if(m_origins.begin(), m_origins.end(), isOfAddress), m_origins.end());
}

void SettingsSession::forgetSettledOrigins()
{
    const auto isSettled = [this](const Origin &origin) {
        const SettingAddress &address = origin.address;
        const bool isAsBefore =
            !address.member.isEmpty() && storedText(address) == SettingEdit::valueIn(origin.text, address);
        return isAsBefore || !isChanged(address);
    };
    m_origins.erase(std::remove_if(m_origins.begin(), m_origins.end(), isSettled), m_origins.end());
}

// Saving

void SettingsSession::sendSave()
{
    if (const auto refused = refusal()) {
        QMetaObject::invokeMethod(
            this, [this, result = *refused] { finishSave(result); }, Qt::QueuedConnection);
        return;
    }
    m_save->texts = textsOf(m_save->edits);
    m_database.save({m_save->texts, m_stored, m_save->reason, m_authority},
                    [self = QPointer<SettingsSession>(this)](const SaveResult &result) {
                        if (self)
                            self->receiveSave(result);
                    });
}

std::optional<SaveResult> SettingsSession::refusal()
{
    if (m_save->edits.isEmpty())
        return SaveResult::nothingToDo();
    if (const QStringList forbidden = forbiddenKeys(); !forbidden.isEmpty())
        return SaveResult::forbidden(forbidden);
    if (const QVector<SettingEdit> clashing = clashes(m_save->edits); !clashing.isEmpty())
        return conflicting(clashing);

    const QStringList unreadable = unreadableKeys();
    for (const QString &key : unreadable)
        m_refusedRevisions.insert(key, m_stored.revisions.value(key));
    if (!unreadable.isEmpty())
        return SaveResult::unreadable(unreadable);
    return {};
}

SaveResult SettingsSession::conflicting(const QVector<SettingEdit> &clashes) const
{
    const OBJECT_PARAMETERS wanted = textsOf(m_save->edits);
    QVector<SettingConflict> conflicts;
    for (const SettingEdit &edit : clashes) {
        const QString &key = edit.address.key;
        if (conflicts.isEmpty() || conflicts.last().key != key)
            conflicts.append({key, edit.base, m_stored.settings.value(key), wanted.value(key),
                              m_stored.revisions.value(key), stamp(key)});
    }
    return SaveResult::conflicting(conflicts);
}

QStringList SettingsSession::unreadableKeys() const
{
    QStringList keys;
    for (const SettingEdit &edit : m_save->edits) {
        const QString &key = edit.address.key;
        if (!edit.address.member.isEmpty() && isUnreadable(key) && !mayReplace(key) && !keys.contains(key))
            keys.append(key);
    }
    keys.sort();
    return keys;
}

/// Whether somebody has decided to replace the text that is stored now.
bool SettingsSession::mayReplace(const QString &key) const
{
    const bool isAgreed = m_save->unreadable == Unreadable::Replace && m_refusedRevisions.contains(key) &&
                          m_refusedRevisions.value(key) == m_stored.revisions.value(key);
    return isAgreed || isRepaired(key);
}

QStringList SettingsSession::forbiddenKeys() const
{
    if (m_authority == Authority::Administrator)
        return {};
    QStringList keys;
    for (const SettingEdit &edit : m_save->edits)
        keys.append(edit.address.key);
    keys.removeDuplicates();
    return access().locked(keys);
}

void SettingsSession::receiveSave(const SaveResult &result)
{
    if (result.outcome == SaveResult::Outcome::Conflicting) {
        mergeAndSendAgain(result);
        return;
    }
    if (result.isDone())
        acceptSave(result);
    finishSave(result);
}

void SettingsSession::mergeAndSendAgain(const SaveResult &result)
{
    adopt(withTheirs(m_stored, result.conflicts));
    const auto isMade = [this](const SettingEdit &edit) {
        return edit.isMadeIn(m_stored.settings.value(edit.address.key), m_objects);
    };
    QVector<SettingEdit> &edits = m_save->edits;
    edits.erase(std::remove_if(edits.begin(), edits.end(), isMade), edits.end());
    sendSave();
}

void SettingsSession::acceptSave(const SaveResult &result)
{
    // Not what others have changed: an edit that came after this save started from it.
    for (auto text = m_save->texts.cbegin(); text != m_save->texts.cend(); ++text)
        m_stored.settings.insert(text.key(), *text);
    for (auto revision = result.revisions.cbegin(); revision != result.revisions.cend(); ++revision)
        m_stored.revisions.insert(revision.key(), *revision);
    for (const SettingEdit &edit : qAsConst(m_save->edits)) {
        forgetOrigin(edit.address);
        if (SettingsPage *open = page(edit.address))
            acceptEdit(*open, edit);
    }
    adopt(m_database.installation());
}

void SettingsSession::acceptEdit(SettingsPage &page, const SettingEdit &edit)
{
    // Such a page shows what was stored before; what it shows is nobody's edit.
    if (m_save->builtMeanwhile.contains(page.group()))
        follow(page, edit.address);
    else
        page.accept(edit.address, edit.text);
}

void SettingsSession::finishSave(const SaveResult &result)
{
    m_save.reset();
    Q_EMIT saveFinished(result);
}
