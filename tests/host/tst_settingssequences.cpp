#include "messages.h"
#include "testdatabase.h"
#include "testrun.h"

#include <host/hostenvironment.h>
#include <host/installationdatabase.h>
#include <host/settingssession.h>
#include <host/settingsstore.h>

#include <vxsettings/dbkeys.h>

#include <QSignalSpy>
#include <QTest>
#include <QWidget>

#include <rapidcheck.h>

#include <array>
#include <iostream>

using namespace db::database;
using Outcome = SaveResult::Outcome;

/// Random sequences of what a person, other people and the database do, held against a small model.
class TestSettingsSequences : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theSessionDoesWhatTheModelSays();
};

namespace {

struct Place
{
    SettingAddress address;
    std::array<const char *, 3> values;
};

/// Two settings, and two members of a third one.
const std::array<Place, 4> places{{
    {{MOBILE_HOST}, {"a", "b", "c"}},
    {{MOBILE_PORT}, {"1", "2", "3"}},
    {{PIN_STRENGTH, json::MAX_LEN}, {"6", "7", "8"}},
    {{PIN_STRENGTH, json::DENY_EQUAL}, {"true", "false", "true"}},
}};

/// What happens, where, and with which value, as far as that matters.
struct Step
{
    enum Kind { Edit, Others, Refresh, Revert, KeepMine, Save, Count };

    int kind;
    int place;
    int value;

    SettingAddress address() const { return places.at(place).address; }
    QString text() const { return QString::fromLatin1(places.at(place).values.at(value)); }
};

void showValue(const Step &step, std::ostream &out)
{
    static const std::array<const char *, Step::Count> names{"edit",   "others store", "refresh",
                                                             "revert", "keep mine",    "save"};
    out << names.at(step.kind) << ' ' << qPrintable(step.address().text()) << ' ' << qPrintable(step.text());
}

/// What a parameter should be like.
struct Parameter
{
    /// A value in the database. A setting that is stored again is another one, be it with the same text.
    struct Value
    {
        QString text;
        int revision = 0;
    };

    bool isMember = false;
    Value stored; ///< in the database
    Value known;  ///< to the session
    std::optional<QString> edit;
    std::optional<Value> origin; ///< of the edit, if others have stored something since

    bool differs(const Value &left, const Value &right) const
    {
        return isMember ? left.text != right.text : left.revision != right.revision;
    }
    bool isConflict() const { return edit && origin; }

    void type(const QString &text) { edit = text == known.text ? std::nullopt : std::optional(text); }
    void store(const QString &text) { stored = {text, stored.revision + 1}; }
    void revert()
    {
        edit.reset();
        origin.reset();
    }
    void refresh()
    {
        if (edit && !origin && differs(stored, known))
            origin = known;
        known = stored;
        if (edit == known.text)
            edit.reset();
        if (!edit || (origin && isMember && !differs(*origin, known)))
            origin.reset();
    }
    void save()
    {
        if (!edit)
            return;
        store(*edit);
        known = stored;
        revert();
    }
};

/// A session, and the model beside it.
class Run
{
public:
    explicit Run(const QByteArray &sample)
        : m_database(DatabaseLocation::ofFile(m_file.path()))
        , m_session(m_database)
    {
        m_file.setBytes(sample);
        load();
        for (const Place &place : places) {
            m_session.openPage(SettingAddress{place.address.key}.group(), &m_window);
            const QString text = m_session.storedText(place.address);
            m_model.append({!place.address.member.isEmpty(), {text}, {text}, {}, {}});
        }
    }

    void take(const Step &step)
    {
        Parameter &parameter = m_model[step.place];
        switch (step.kind) {
        case Step::Edit:
            m_session.setParameter(step.address(), step.text());
            return parameter.type(step.text());
        case Step::Others:
            storeBehindItsBack(step.address(), step.text());
            return parameter.store(step.text());
        case Step::Refresh:
            return refresh();
        case Step::Revert:
            m_session.revert(step.address());
            return parameter.revert();
        case Step::KeepMine:
            return keepMine();
        default:
            return save();
        }
    }

    /// What is not as the model says.
    QStringList differences() const
    {
        QStringList differences;
        const auto compare = [&differences](const SettingAddress &address, const char *what, const QString &found,
                                            const QString &expected) {
            if (found != expected)
                differences << QStringLiteral("%1 %2: %3 instead of %4").arg(address.text(), what, found, expected);
        };
        const QHash<QString, QString> settings = m_file.settings();
        for (int i = 0; i < m_model.size(); ++i) {
            const SettingAddress &address = places.at(i).address;
            const Parameter &parameter = m_model[i];
            compare(address, "stored", SettingEdit::valueIn(settings.value(address.key), address),
                    parameter.stored.text);
            compare(address, "shown", m_session.shownText(address), parameter.edit.value_or(parameter.known.text));
            compare(address, "conflict", conflict(address),
                    parameter.isConflict()
                        ? QStringList{parameter.origin->text, parameter.known.text, *parameter.edit}.join(
                              QStringLiteral(" | "))
                        : QString());
            if (m_session.isChanged(address) != parameter.edit.has_value())
                differences << address.text() + (parameter.edit ? " is not changed" : " is changed");
        }
        return differences + m_surprises;
    }

private:
    void load()
    {
        QSignalSpy loaded(&m_session, &SettingsSession::loaded);
        m_session.load();
        if (!loaded.wait())
            throw std::runtime_error("not loaded");
    }

    void refresh()
    {
        load();
        for (Parameter &parameter : m_model)
            parameter.refresh();
    }

    void storeBehindItsBack(const SettingAddress &address, const QString &text) const
    {
        m_file.store(address.key, *address.textWith(text, m_file.stored(address.key)));
    }

    void keepMine()
    {
        const QVector<SettingsSession::Conflict> conflicts = m_session.conflicts();
        if (conflicts.isEmpty())
            return;
        if (!m_session.keepMine(conflicts.first()))
            m_surprises << QStringLiteral("mine is not kept");
        for (int i = 0; i < m_model.size(); ++i) {
            if (places.at(i).address == conflicts.first().address)
                m_model[i].origin.reset();
        }
    }

    void save()
    {
        const Outcome expected = expectedOutcome();
        std::optional<Outcome> outcome;
        const auto connection = QObject::connect(&m_session, &SettingsSession::saveFinished,
                                                 [&outcome](const SaveResult &result) { outcome = result.outcome; });
        m_session.save();
        if (!QTest::qWaitFor([&outcome] { return outcome.has_value(); }))
            throw std::runtime_error("the save does not end");
        QObject::disconnect(connection);
        if (outcome != expected)
            m_surprises << QStringLiteral("a save gives %1 instead of %2").arg(int(*outcome)).arg(int(expected));
        refresh(); // which a refused save leads to by itself, some time
    }

    /// Does in the model what a save does.
    Outcome expectedOutcome()
    {
        if (isAny(&Parameter::isConflict))
            return Outcome::Conflicting;
        if (isAnEditedKeyOutdated()) {
            for (Parameter &parameter : m_model)
                parameter.refresh();
        }
        if (isAny(&Parameter::isConflict))
            return Outcome::Conflicting;
        if (std::none_of(m_model.begin(), m_model.end(), [](const Parameter &p) { return p.edit.has_value(); }))
            return Outcome::NothingToDo;
        for (Parameter &parameter : m_model)
            parameter.save();
        return Outcome::Saved;
    }

    bool isAny(bool (Parameter::*is)() const) const
    {
        return std::any_of(m_model.begin(), m_model.end(),
                           [is](const Parameter &parameter) { return (parameter.*is)(); });
    }

    bool isAnEditedKeyOutdated() const
    {
        for (int edited = 0; edited < m_model.size(); ++edited) {
            for (int i = 0; i < m_model.size(); ++i) {
                const bool isSameKey = places.at(i).address.key == places.at(edited).address.key;
                if (m_model[edited].edit && isSameKey && m_model[i].stored.revision != m_model[i].known.revision)
                    return true;
            }
        }
        return false;
    }

    QString conflict(const SettingAddress &address) const
    {
        for (const SettingsSession::Conflict &conflict : m_session.conflicts()) {
            if (conflict.address == address)
                return QStringList{conflict.base, conflict.theirs, conflict.mine}.join(QStringLiteral(" | "));
        }
        return {};
    }

    TestDatabase m_file;
    QWidget m_window;
    InstallationDatabase m_database;
    SettingsSession m_session;
    QVector<Parameter> m_model;
    QStringList m_surprises;
};

QByteArray sampleDatabase()
{
    const TestDatabase database;
    if (auto error = SettingsStore().open(DatabaseLocation::ofFile(database.path())))
        throw std::runtime_error(error->text().toStdString());
    return database.bytes();
}
} // namespace

template <>
struct rc::Arbitrary<Step>
{
    static Gen<Step> arbitrary()
    {
        return gen::build<Step>(gen::set(&Step::kind, gen::inRange(0, int(Step::Count))),
                                gen::set(&Step::place, gen::inRange(0, int(places.size()))),
                                gen::set(&Step::value, gen::inRange(0, 3)));
    }
};

void TestSettingsSequences::initTestCase()
{
    failOnUnexpectedMessages();
    HostEnvironment::prepare();
    // Read when the first property is checked, and printed then.
    if (!qEnvironmentVariableIsSet("RC_PARAMS"))
        qputenv("RC_PARAMS", QStringLiteral("seed=%1 max_success=%2 max_size=40")
                                 .arg(testrun::seed())
                                 .arg(testrun::times(50))
                                 .toLatin1());
}

void TestSettingsSequences::theSessionDoesWhatTheModelSays()
{
    const QByteArray sample = sampleDatabase();
    const bool holds = rc::check("a session does what the model says", [&sample](const std::vector<Step> &steps) {
        Run run(sample);
        for (const Step &step : steps) {
            run.take(step);
            const QStringList differences = run.differences();
            if (!differences.isEmpty())
                RC_FAIL(differences.join('\n').toStdString());
        }
    });
    QVERIFY(holds);
}

QTEST_MAIN(TestSettingsSequences)
#include "tst_settingssequences.moc"
