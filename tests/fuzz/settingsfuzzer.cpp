#include <host/healthcheck.h>
#include <host/jsonmembers.h>
#include <host/jsonsetting.h>
#include <host/objectindex.h>
#include <host/parameterdomain.h>
#include <host/sampleinstallation.h>
#include <host/settingsdifference.h>
#include <host/settingsdocument.h>
#include <host/settingvalue.h>
#include <host/settingwords.h>
#include <host/storedtext.h>

#include <vxsettings/dbsettingshelper.h>

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>
#include <cstdlib>

// What is read of files and databases may be anything. An input that starts with "ADDRESS=" is what is stored at that
// address, with invalid bytes standing for halves of surrogate pairs; any other input is a file to import.

using State = SettingsDifference::State;
using vantorix::OBJECT_PARAMETERS;

namespace {

[[noreturn]] void fail(const char *property, const QString &about)
{
    fprintf(stderr, "Broken property: %s\n%s\n", property, qPrintable(about));
    abort();
}

void require(bool holds, const char *property, const QString &about = {})
{
    if (!holds)
        fail(property, about);
}

void failOnMessage(QtMsgType, const QMessageLogContext &, const QString &text)
{
    fail("nothing is logged", text);
}

const Installation &sample()
{
    static const Installation sample = SampleInstallation::make();
    return sample;
}

const ObjectIndex &objects()
{
    static const ObjectIndex objects(sample().objects);
    return objects;
}

OBJECT_PARAMETERS with(OBJECT_PARAMETERS settings, const OBJECT_PARAMETERS &others)
{
    for (auto other = others.begin(); other != others.end(); ++other)
        settings.insert(other.key(), *other);
    return settings;
}

bool isSecret(const SettingAddress &address)
{
    return address.isKnown() && SettingWords::isSecret(address.key);
}

// Findings and repairs

void checkFinding(const SettingFinding &finding)
{
    const QString about = finding.address.text() + QLatin1Char(' ') + SettingProblem::name(finding.problem);
    require(!finding.words.isEmpty(), "a finding has words", about);
    if (isSecret(finding.address))
        require(finding.stored.isNull() && finding.shown.isNull() && finding.repair.isNull(),
                "a finding of a secret tells no value", about);
}

void checkHealth(const OBJECT_PARAMETERS &settings)
{
    const HealthCheck check(settings, objects());
    const QVector<SettingFinding> findings = check.findings();
    for (const SettingFinding &finding : findings)
        checkFinding(finding);

    const OBJECT_PARAMETERS repaired = with(settings, check.repairs(findings));
    for (const SettingFinding &finding : HealthCheck(repaired, objects()).findings())
        require(finding.repair.isNull(), "a repair leaves nothing to repair",
                finding.address.text() + QLatin1Char(' ') + SettingProblem::name(finding.problem));
}

// JSON objects

QJsonObject parsed(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

bool areWrittenAlike(const JsonMembers &left, const JsonMembers &right, const QString &except = {})
{
    QStringList names = left.names() + right.names();
    names.removeAll(except);
    return std::all_of(names.begin(), names.end(), [&](const QString &name) {
        return left.contains(name) && right.contains(name) && left.written(name).last() == right.written(name).last();
    });
}

void checkMembers(const QString &text)
{
    const auto members = JsonMembers::fromText(text);
    require(members.has_value() == QJsonDocument::fromJson(text.toUtf8()).isObject(), "an object has members");
    if (!members)
        return;
    const auto again = JsonMembers::fromText(members->text());
    require(again && again->areUnique() && areWrittenAlike(*members, *again), "members stay as they are written");
    require(again->text() == members->text(), "members are always written alike");
    require(parsed(members->text()) == parsed(text), "members are read as others read them");
}

/// What the page of a setting shows where nothing is stored.
JsonSetting::Texts pageTexts(const SettingAddress &address)
{
    const auto page = JsonMembers::fromText(StoredText(address.key, {}, objects()).shownInstead());
    JsonSetting::Texts texts;
    for (const QString &name : page->names())
        texts.insert(name, *page->scalar(name));
    return texts;
}

void checkMerge(const SettingAddress &address, const QString &text)
{
    const JsonSetting setting(text);
    const auto members = JsonMembers::fromText(text);
    require((setting.state() == JsonSetting::State::Object) == (members && members->areUnique()),
            "an object of unique names can be merged");
    if (setting.state() != JsonSetting::State::Object || members->names().isEmpty())
        return;

    const JsonSetting::Texts page = pageTexts(address);
    const auto merged = JsonMembers::fromText(setting.merged({}, page));
    require(merged && areWrittenAlike(*members, *merged), "an unedited page changes nothing");
    const QString name = page.begin().key();
    const QString edited = setting.merged({{name, QStringLiteral("edited")}}, page);
    const auto mergedEdit = JsonMembers::fromText(edited);
    require(mergedEdit && mergedEdit->scalar(name) == QStringLiteral("edited"), "an edit is merged");
    require(areWrittenAlike(*members, *mergedEdit, name), "an edit of one member leaves the others");
    require(edited == SettingAddress{address.key, name}.textWith(QStringLiteral("edited"), text),
            "a page and a command line store the same");
}

// Values

void checkShown(const SettingAddress &address, const QString &text)
{
    const ParameterDomain domain(address.parameter(), objects());
    const QString shown = domain.shown(text);
    require(domain.shown(shown) == shown, "what an editor would save is shown as it is", shown);
    if (domain.problem(text) == SettingProblem::Kind::None && !text.isEmpty())
        require(domain.shown(domain.stored(shown)) == shown, "what an editor would save can be stored", shown);
}

void checkJudgement(const SettingAddress &address, const QString &words)
{
    const auto judgement = SettingValue::judge(address, words, objects());
    require(judgement.stored.has_value() == judgement.error.isEmpty(), "a value is stored or refused in words");
    if (isSecret(address) && words.size() > 40)
        require(!judgement.error.contains(words), "a refusal does not repeat a secret");
    if (!judgement.stored)
        return;

    require(SettingValue::judge(address, *judgement.stored, objects()).stored == judgement.stored,
            "what is stored is accepted as it is", *judgement.stored);
    const auto text = address.textWith(*judgement.stored, {});
    require(text && address.valueIn({{address.key, *text}}) == *judgement.stored, "what was stored is read again");
    for (const SettingFinding &finding : StoredText(address.key, *text, objects()).findings())
        require(SettingProblem::isNotice(finding.problem), "what is accepted is healthy", finding.address.text());
}

void checkStored(const SettingAddress &address, const QString &text)
{
    if (address.isJsonObject()) {
        checkMembers(text);
        checkMerge(address, text);
    } else if (address.isKnown()) {
        checkShown(address, text);
    }
    checkJudgement(address, text);
    checkHealth(with(sample().settings, {{address.key, address.textWith(text, {}).value_or(text)}}));
}

// Files

void checkDifference(const OBJECT_PARAMETERS &wanted)
{
    for (const SettingsDifference::Row &row : SettingsDifference::rows(wanted, wanted, objects()))
        require(row.state == State::Unchanged, "nothing differs from itself", row.key);
    for (const SettingsDifference::Row &row : SettingsDifference::rows(wanted, sample().settings, objects()))
        require(row.state != State::Invalid || !row.error.isEmpty(), "what is invalid has an error", row.key);
    for (const SettingsDifference::Row &row : SettingsDifference::rows(wanted, {}, objects())) {
        const QString text = wanted.value(row.key);
        const auto judged = SettingValue::judge({row.key}, text, objects()).stored;
        if (row.state == State::Changed && row.error.isEmpty())
            require(judged.has_value(), "what a file may store a command line may store", row.key);
        if (row.state == State::Invalid)
            require(judged != text, "what a command line stores a file may store", row.key);
    }
}

void checkDocument(const QByteArray &json)
{
    const auto reading = SettingsDocument::fromJson(json);
    require(reading.document.has_value() == reading.error.isEmpty(), "a file is read or refused in words");
    if (!reading.document)
        return;

    const QByteArray written = reading.document->toJson();
    const auto again = SettingsDocument::fromJson(written);
    require(again.document && again.document->settings() == reading.document->settings(), "a document is read again",
            again.error);
    require(again.document->toJson() == written, "a document is always written alike");
    checkDifference(reading.document->settings());
    checkHealth(reading.document->settings());
}

QString storedText(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes).replace(QChar(QChar::ReplacementCharacter), QChar(0xD800));
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    qInstallMessageHandler(failOnMessage);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(data), int(size));
    const int sign = input.indexOf('=');
    const SettingAddress address = SettingAddress::fromText(QString::fromUtf8(input.left(sign)));
    if (sign > 0 && address.isKnown())
        checkStored(address, storedText(input.mid(sign + 1)));
    else
        checkDocument(input);
    return 0;
}
