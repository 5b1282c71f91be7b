#include "messages.h"
#include "testdatabase.h"
#include "testrun.h"

#include <host/hostenvironment.h>
#include <host/installationdatabase.h>
#include <host/sampleinstallation.h>
#include <host/settingssession.h>
#include <host/settingsstore.h>

#include <vxsettings/dbkeys.h>

#include <QSet>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <rapidcheck.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <optional>

using namespace db::database;
using Outcome = SaveResult::Outcome;

/// Invented sequences of what happens to a session, which a small model foretells.
class TestSessionModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aSessionDoesWhatTheModelSays();
};

namespace {

struct Parameter
{
    SettingAddress address;
    std::array<QString, 3> values;
};

/// Settings of three kinds, and two members of one JSON object.
const std::array<Parameter, 5> parameters{{
    {{MOBILE_HOST}, {"a", "b", "ж"}},
    {{MOBILE_PORT}, {"1", "2", "3"}},
    {{CARD_VIEW_FORMAT}, {"0", "1", "2"}},
    {{PIN_STRENGTH, json::MIN_LEN}, {"4", "5", "6"}},
    {{PIN_STRENGTH, json::MAX_LEN}, {"7", "8", "9"}},
}};

enum class Action { Edit, Save, ExternalWrite, Refresh, Revert, RevertAll, KeepMine, TakeTheirs };
const char *const actionNames[] = {"edit",   "save",       "external write", "refresh",
                                   "revert", "revert all", "keep mine",      "take theirs"};

struct Step
{
    Action action;
    size_t parameter;
    size_t value;
};

std::ostream &operator<<(std::ostream &stream, const Step &step)
{
    return stream << actionNames[int(step.action)] << ' ' << parameters.at(step.parameter).address.text().toStdString()
                  << ' ' << parameters.at(step.parameter).values.at(step.value).toStdString();
}

/// A text and the number of writes of its key that had led to it.
struct Version
{
    QString text;
    int writes = 0;
};

/// One parameter as the session has to see it.
struct ModelParameter
{
    Version stored; ///< in the database
    Version known;  ///< as the session has heard last
    std::optional<QString> mine;
    std::optional<Version> base; ///< what mine started from, if others have written since
    bool isMember = false;

    bool isConflict() const
    {
        // A whole setting that was written again is another one, be it to the same text.
        return mine && base && (isMember ? known.text != base->text : known.writes != base->writes);
    }
};

/// What a session has to do, in a few lines.
class Model
{
public:
    explicit Model(const QHash<QString, QString> &stored)
    {
        for (size_t i = 0; i < parameters.size(); ++i) {
            m_parameters[i].stored = m_parameters[i].known = {*parameters[i].address.valueIn(stored)};
            m_parameters[i].isMember = !parameters[i].address.member.isEmpty();
        }
    }

    const ModelParameter &parameter(size_t i) const { return m_parameters[i]; }

    /// What it started from stays when the edit passes what is stored: a person may be typing.
    void edit(size_t i, const QString &value)
    {
        ModelParameter &parameter = m_parameters[i];
        parameter.mine = value == parameter.known.text ? std::nullopt : std::optional(value);
    }

    void write(size_t i, const QString &value)
    {
        if (value == m_parameters[i].stored.text)
            return;
        m_parameters[i].stored.text = value;
        countWrite(parameters[i].address.key);
    }

    void refresh()
    {
        hear([](size_t) { return true; });
    }

    void revert(size_t i)
    {
        m_parameters[i].mine.reset();
        m_parameters[i].base.reset();
    }
    void revertAll()
    {
        for (size_t i = 0; i < m_parameters.size(); ++i)
            revert(i);
    }
    void keepMine(size_t i) { m_parameters[i].base.reset(); }

    Outcome save()
    {
        if (const auto outcome = refusal())
            return *outcome;
        if (const QSet<QString> refused = editedKeys(&Model::isBehind); !refused.isEmpty()) {
            hear(refused);
            if (const auto outcome = refusal())
                return *outcome;
        }
        store();
        return Outcome::Saved;
    }

    /// A session may hear of a key earlier than it must, but then as it is stored.
    void mayHear(const QHash<QString, qint64> &revisions)
    {
        const auto isHeard = [&](size_t i) {
            return revisions.value(parameters[i].address.key) == m_parameters[i].stored.writes + 1;
        };
        for (size_t i = 0; i < m_parameters.size(); ++i) {
            if (isHeard(i) && isBehind(m_parameters[i]))
                return hear(isHeard);
        }
    }

private:
    static bool isBehind(const ModelParameter &parameter) { return parameter.known.writes != parameter.stored.writes; }
    static bool isAny(const ModelParameter &) { return true; }

    void hear(const QSet<QString> &keys)
    {
        hear([&keys](size_t i) { return keys.contains(parameters[i].address.key); });
    }
    void hear(const std::function<bool(size_t)> &isHeard)
    {
        for (size_t i = 0; i < m_parameters.size(); ++i) {
            if (isHeard(i))
                hear(m_parameters[i]);
        }
        for (ModelParameter &parameter : m_parameters) {
            const bool isAsBefore =
                parameter.base && parameter.isMember && parameter.base->text == parameter.known.text;
            if (!parameter.mine || isAsBefore)
                parameter.base.reset();
        }
    }
    static void hear(ModelParameter &parameter)
    {
        if (parameter.mine && !parameter.base && isBehind(parameter))
            parameter.base = parameter.known;
        parameter.known = parameter.stored;
        if (parameter.mine == parameter.known.text)
            parameter.mine.reset(); // whatever was wanted is stored
    }

    std::optional<Outcome> refusal() const
    {
        if (editedKeys(isAny).isEmpty())
            return Outcome::NothingToDo;
        const bool hasConflicts = std::any_of(m_parameters.begin(), m_parameters.end(),
                                              [](const ModelParameter &parameter) { return parameter.isConflict(); });
        return hasConflicts ? std::optional(Outcome::Conflicting) : std::nullopt;
    }

    QSet<QString> editedKeys(bool (*isMeant)(const ModelParameter &)) const
    {
        QSet<QString> keys;
        for (size_t i = 0; i < m_parameters.size(); ++i) {
            if (m_parameters[i].mine && isMeant(m_parameters[i]))
                keys.insert(parameters[i].address.key);
        }
        return keys;
    }

    void store()
    {
        const QSet<QString> keys = editedKeys(isAny);
        for (ModelParameter &parameter : m_parameters) {
            if (parameter.mine)
                parameter.stored.text = *parameter.mine;
        }
        for (const QString &key : keys)
            countWrite(key);
        hear(keys);
    }

    void countWrite(const QString &key)
    {
        for (size_t i = 0; i < m_parameters.size(); ++i) {
            if (parameters[i].address.key == key)
                ++m_parameters[i].stored.writes;
        }
    }

    std::array<ModelParameter, parameters.size()> m_parameters;
};

size_t indexOf(const SettingAddress &address)
{
    const auto found = std::find_if(parameters.begin(), parameters.end(),
                                    [&address](const Parameter &parameter) { return parameter.address == address; });
    return size_t(found - parameters.begin());
}

QByteArray sampleBytes()
{
    const TestDatabase sample;
    if (SettingsStore::create(DatabaseLocation::ofFile(sample.path()), SampleInstallation::make()))
        throw std::runtime_error("no sample database");
    return sample.bytes();
}

/// The session and, beside it, another writer.
class Real
{
public:
    Real()
        : m_database(DatabaseLocation::ofFile(prepared(m_file).path()))
        , m_session(m_database)
    {
        if (m_other.open(DatabaseLocation::ofFile(m_file.path())))
            throw std::runtime_error("the database cannot be opened");
        refresh();
        m_session.openPage(DBGroups::Connection, &m_window);
        m_session.openPage(DBGroups::Employees, &m_window);
    }

    SettingsSession &session() { return m_session; }

    void refresh()
    {
        bool isLoaded = false;
        const auto connection =
            QObject::connect(&m_session, &SettingsSession::loaded, [&isLoaded] { isLoaded = true; });
        m_session.load();
        waitFor([&isLoaded] { return isLoaded; });
        QObject::disconnect(connection);
    }

    Outcome save()
    {
        std::optional<Outcome> outcome;
        const auto connection = QObject::connect(&m_session, &SettingsSession::saveFinished,
                                                 [&outcome](const SaveResult &result) { outcome = result.outcome; });
        m_session.save();
        waitFor([&outcome] { return outcome.has_value(); });
        QObject::disconnect(connection);
        hearEverything();
        return *outcome;
    }

    void write(const SettingAddress &address, const QString &value)
    {
        const Installation now = stored();
        const QString text = *address.textWith(value, now.settings.value(address.key));
        if (!m_other.save({{address.key, text}}, now).isDone())
            throw std::runtime_error("the other writer cannot write");
    }

    Installation stored()
    {
        Installation installation;
        if (m_other.load(installation))
            throw std::runtime_error("the database cannot be read");
        return installation;
    }

    std::optional<SettingsSession::Conflict> conflict(const SettingAddress &address) const
    {
        for (const SettingsSession::Conflict &conflict : m_session.conflicts()) {
            if (conflict.address == address)
                return conflict;
        }
        return {};
    }

    /// Of the parameter or the next one that has a conflict.
    std::optional<SettingsSession::Conflict> conflictNear(size_t i) const
    {
        for (size_t step = 0; step < parameters.size(); ++step) {
            if (const auto found = conflict(parameters[(i + step) % parameters.size()].address))
                return found;
        }
        return {};
    }

private:
    /// What the database reads again after a save arrives before the answer to a later call.
    void hearEverything()
    {
        bool isAnswered = false;
        m_database.history(QStringLiteral("none"), [&isAnswered](const auto &) { isAnswered = true; });
        waitFor([&isAnswered] { return isAnswered; });
    }

    /// Without the pauses that QTest makes.
    static void waitFor(const std::function<bool()> &isDone)
    {
        QTimer deadline;
        deadline.setSingleShot(true);
        deadline.start(30000);
        while (!isDone() && deadline.isActive())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (!isDone())
            throw std::runtime_error("the session does not answer");
    }

    static const TestDatabase &prepared(const TestDatabase &file)
    {
        static const QByteArray sample = sampleBytes();
        file.setBytes(sample);
        return file;
    }

    TestDatabase m_file;
    SettingsStore m_other;
    InstallationDatabase m_database;
    QWidget m_window;
    SettingsSession m_session;
};

void require(bool holds, const char *what, const SettingAddress &address = {})
{
    if (!holds)
        throw std::runtime_error((QString::fromUtf8(what) + ": " + address.text()).toStdString());
}

/// What has happened in all sequences, to see that they are not all harmless.
std::map<std::string, int> happened;

void perform(const Step &step, Real &real, Model &model)
{
    SettingsSession &session = real.session();
    const auto &[address, values] = parameters.at(step.parameter);
    const QString &value = values.at(step.value);
    switch (step.action) {
    case Action::Edit:
        require(session.setParameter(address, value), "an editor takes the value", address);
        return model.edit(step.parameter, value);
    case Action::Save: {
        const Outcome outcome = real.save();
        ++happened[outcome == Outcome::Saved ? "saved" : "not saved"];
        return require(outcome == model.save(), "a save ends as foretold");
    }
    case Action::ExternalWrite:
        real.write(address, value);
        return model.write(step.parameter, value);
    case Action::Refresh:
        real.refresh();
        return model.refresh();
    case Action::Revert:
        session.revert(address);
        return model.revert(step.parameter);
    case Action::RevertAll:
        session.revert();
        return model.revertAll();
    case Action::KeepMine:
        if (const auto conflict = real.conflictNear(step.parameter)) {
            require(session.keepMine(*conflict), "mine is kept", conflict->address);
            model.keepMine(indexOf(conflict->address));
            ++happened["conflict kept"];
        }
        return;
    case Action::TakeTheirs:
        if (const auto conflict = real.conflictNear(step.parameter)) {
            session.revert(conflict->address);
            model.revert(indexOf(conflict->address));
            ++happened["conflict given up"];
        }
        return;
    }
}

void compare(Real &real, const Model &model)
{
    const SettingsSession &session = real.session();
    const Installation stored = real.stored();
    for (size_t i = 0; i < parameters.size(); ++i) {
        const SettingAddress &address = parameters[i].address;
        const ModelParameter &expected = model.parameter(i);
        require(address.valueIn(stored.settings) == expected.stored.text, "the database holds it", address);
        require(stored.revisions.value(address.key) == expected.stored.writes + 1, "every write counts", address);
        require(session.storedText(address) == expected.known.text, "the session knows it", address);
        require(session.shownText(address) == expected.mine.value_or(expected.known.text), "the editor shows it",
                address);
        require(session.isChanged(address) == expected.mine.has_value(), "an edit is known as one", address);
        const auto conflict = real.conflict(address);
        require(conflict.has_value() == expected.isConflict(), "a conflict is known as one", address);
        if (conflict)
            require(conflict->base == expected.base->text && conflict->theirs == expected.known.text &&
                        conflict->mine == *expected.mine,
                    "a conflict has its three values", address);
    }
}

void performAll(const std::vector<Step> &steps)
{
    Real real;
    Model model(real.stored().settings);
    compare(real, model);
    for (const Step &step : steps) {
        perform(step, real, model);
        model.mayHear(real.session().stored().revisions);
        compare(real, model);
        ++happened["steps"];
    }
}

rc::Gen<std::vector<Step>> anySteps()
{
    // Short sequences are to have every action as well.
    const auto below = [](size_t count) {
        return rc::gen::resize(rc::kNominalSize, rc::gen::inRange<size_t>(0, count));
    };
    const auto anyStep =
        rc::gen::construct<Step>(rc::gen::weightedElement<Action>({{12, Action::Edit},
                                                                   {8, Action::ExternalWrite},
                                                                   {5, Action::Refresh},
                                                                   {6, Action::Save},
                                                                   {4, Action::KeepMine},
                                                                   {2, Action::TakeTheirs},
                                                                   {2, Action::Revert},
                                                                   {1, Action::RevertAll}}),
                                 rc::gen::weightedElement<size_t>({{5, 0}, {1, 1}, {1, 2}, {5, 3}, {2, 4}}), below(3));
    return rc::gen::container<std::vector<Step>>(anyStep);
}
} // namespace

void TestSessionModel::initTestCase()
{
    failOnUnexpectedMessages();
    HostEnvironment::prepare();
    // Read once, by the first check.
    const int sequences = testrun::times(100);
    qputenv("RC_PARAMS", QByteArray("seed=") + QByteArray::number(testrun::seed()) +
                             " max_success=" + QByteArray::number(sequences));
}

void TestSessionModel::aSessionDoesWhatTheModelSays()
{
    const bool holds = rc::check("a session does what the model says", [] { performAll(*anySteps().as("sequence")); });
    qInfo("RC_PARAMS: %s", qgetenv("RC_PARAMS").constData());
    for (const auto &[what, count] : happened)
        qInfo("%6d %s", count, what.c_str());
    QVERIFY(holds);
    QVERIFY(happened["conflict kept"] > 0 && happened["conflict given up"] > 0 && happened["saved"] > 0);
}

QTEST_MAIN(TestSessionModel)
#include "tst_sessionmodel.moc"
