#include "editors.h"
#include "messages.h"
#include "nastytexts.h"
#include "testdatabase.h"
#include "testrun.h"

#include <host/hostenvironment.h>
#include <host/installationdatabase.h>
#include <host/jsonmembers.h>
#include <host/objectindex.h>
#include <host/parameterdomain.h>
#include <host/settingaddress.h>
#include <host/settingssession.h>
#include <host/settingsstore.h>
#include <host/sqltransaction.h>

#include <vxsettings/dbsettingshelper.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

/// Pages over stored texts that no editor has written: opened, looked at, saved without an edit.
class TestNastyTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nothingIsWrittenWithoutAnEdit_data();
    void nothingIsWrittenWithoutAnEdit();
};

namespace {

using Texts = QVector<QByteArray>;
using StoredTexts = QHash<QString, QByteArray>;
using Types = QVector<DBSettingsType>;

/// Which editors get which texts.
struct Kind
{
    const char *name;
    Types types;
    Texts (*texts)(QRandomGenerator &random);
    bool isMember = false;
};

const Kind kinds[] = {
    {"check boxes", {DBSettingsType::CheckBox}, nastytexts::flagMembers, true},
    {"spin boxes in JSON settings", {DBSettingsType::SpinBox}, nastytexts::numberMembers, true},
    {"spin boxes", {DBSettingsType::SpinBox}, nastytexts::numbers},
    {"combo boxes", {DBSettingsType::ComboBox}, nastytexts::choices},
    {"line edits", {DBSettingsType::LineEdit}, nastytexts::lines},
    {"read-only texts", {DBSettingsType::Readonly}, nastytexts::lines},
    {"passwords", {DBSettingsType::Password}, nastytexts::lines},
    {"object selectors",
     {DBSettingsType::OrgstructureSelector, DBSettingsType::SmartCardProfileSelector},
     nastytexts::references},
    {"JSON settings", {DBSettingsType::JsonGroup}, nullptr},
};

QVector<SettingAddress> addresses(const Kind &kind)
{
    QVector<SettingAddress> addresses;
    for (const SettingAddress &address : SettingAddress::all()) {
        const DBSettingsType type = DBSettingsHelper::paramType(address.parameter());
        if (kind.types.contains(type) && kind.isMember == !address.member.isEmpty())
            addresses.append(address);
    }
    return addresses;
}

/// Its texts for each address.
QHash<QString, Texts> texts(const Kind &kind, QRandomGenerator &random)
{
    QHash<QString, Texts> texts;
    const Texts common = kind.texts ? kind.texts(random) : Texts();
    for (const SettingAddress &address : addresses(kind)) {
        const QStringList members = DBSettingsHelper::groupParams(DBSettingsHelper::jsonGroup(address.key));
        texts.insert(address.text(), kind.texts ? common : nastytexts::objects(random, members));
    }
    return texts;
}

/// How many rounds it takes until each text was somewhere.
int roundsForAll(const Kind &kind)
{
    const int parameters = addresses(kind).size();
    return (nastytexts::count + parameters - 1) / parameters;
}

/// What stands under the keys in one round: each address another one of its texts.
StoredTexts storedTexts(const Kind &kind, const QHash<QString, Texts> &texts, int round)
{
    StoredTexts stored;
    QHash<QString, QByteArrayList> members;
    const int repetition = round / roundsForAll(kind); // gives each text to another address
    int index = round * addresses(kind).size() + repetition;
    for (const SettingAddress &address : addresses(kind)) {
        const QByteArray text = texts[address.text()].at(index++ % nastytexts::count);
        if (kind.isMember)
            members[address.key].append('"' + address.member.toUtf8() + "\": " + text);
        else
            stored.insert(address.key, text);
    }
    for (auto object = members.begin(); object != members.end(); ++object)
        stored.insert(object.key(), "{" + object->join(",\n") + "}");
    return stored;
}

void store(const TestDatabase &database, const StoredTexts &texts)
{
    SqlConnection connection(DatabaseLocation::ofFile(database.path()), SqlConnection::Mode::ReadWrite);
    SqlTransaction transaction(connection, SqlTransaction::Kind::Write);
    bool done = transaction.isActive();
    for (auto text = texts.begin(); text != texts.end(); ++text)
        done = done && connection.execute("UPDATE settings SET value = CAST(? AS TEXT) WHERE key = ?",
                                          {text.value(), text.key()});
    if (!done || !transaction.commit())
        throw std::runtime_error(connection.error().text().toStdString());
}

/// The editors of these parameters; those of the members for a JSON setting.
QVector<SettingAddress> shownAddresses(const Kind &kind)
{
    QVector<SettingAddress> shown;
    for (const SettingAddress &address : addresses(kind)) {
        if (!address.isJsonObject())
            shown.append(address);
        for (const SettingAddress &member : SettingAddress::all()) {
            if (address.isJsonObject() && member.key == address.key && !member.member.isEmpty())
                shown.append(member);
        }
    }
    return shown;
}

/// What the editor is to make of what is stored.
QString expectedText(const SettingAddress &address, const Installation &installation, const ObjectIndex &objects)
{
    const ParameterDomain domain(address.parameter(), objects);
    const QString text = installation.settings.value(address.key);
    if (address.member.isEmpty())
        return domain.shown(text);
    const auto members = JsonMembers::fromText(text);
    const bool isThere = members && members->contains(address.member);
    return domain.shown(isThere ? members->value(address.member).toVariant() : QVariant());
}

/// The page of the group on which the parameter is.
DBGroups pageOf(const SettingAddress &address)
{
    return SettingAddress{address.key}.group();
}

/// Everything that a host does between its start and its end, except an edit.
class Visit
{
public:
    Visit(const TestDatabase &database, const Kind &kind)
        : m_kind(kind)
        , m_database(DatabaseLocation::ofFile(database.path()))
        , m_session(m_database)
    {
        QSignalSpy loaded(&m_session, &SettingsSession::loaded);
        m_session.load();
        if (!loaded.wait())
            throw std::runtime_error("the database cannot be read");
        m_window.show();
        QApplication::setActiveWindow(&m_window);
    }

    /// Opens the pages of all parameters of the kind and goes through their editors: whoever leaves one may have
    /// changed it. Returns the number of pages.
    int openPages()
    {
        QSet<int> pages;
        for (const SettingAddress &address : addresses(m_kind)) {
            QWidget *page = m_session.openPage(pageOf(address), &m_window);
            page->show();
            for (DBParamWidget *editor : page->findChildren<DBParamWidget *>())
                editor->centralWidget()->setFocus();
            pages.insert(int(pageOf(address)));
        }
        QApplication::processEvents();
        return pages.size();
    }

    /// The editors of these parameters that show something else than the health check says.
    QStringList surprises()
    {
        const ObjectIndex objects(m_session.stored().objects);
        QStringList surprises;
        for (const SettingAddress &address : shownAddresses(m_kind)) {
            const QString shown = m_session.shownText(address);
            const QString expected = expectedText(address, m_session.stored(), objects);
            if (shown != expected)
                surprises
                    << QStringLiteral("%1: %2 instead of %3").arg(address.text(), shown.left(40), expected.left(40));
        }
        return surprises;
    }

    QStringList changes() const { return m_session.changes().keys(); }
    bool hasNothingToSave()
    {
        QVector<SaveResult::Outcome> outcomes;
        const auto connection = QObject::connect(&m_session, &SettingsSession::saveFinished,
                                                 [&](const SaveResult &result) { outcomes << result.outcome; });
        m_session.save();
        const bool isFinished = QTest::qWaitFor([&] { return !outcomes.isEmpty(); });
        QObject::disconnect(connection);
        return isFinished && outcomes.first() == SaveResult::Outcome::NothingToDo;
    }

private:
    const Kind &m_kind;
    QWidget m_window;
    InstallationDatabase m_database;
    SettingsSession m_session;
};
} // namespace

void TestNastyTexts::initTestCase()
{
    failOnUnexpectedMessages();
    HostEnvironment::prepare();
}

void TestNastyTexts::nothingIsWrittenWithoutAnEdit_data()
{
    QTest::addColumn<int>("index");
    for (const Kind &kind : kinds)
        QTest::newRow(kind.name) << int(&kind - kinds);
}

void TestNastyTexts::nothingIsWrittenWithoutAnEdit()
{
    QFETCH(int, index);
    const Kind &kind = kinds[index];
    const quint32 seed = testrun::seed();
    QRandomGenerator random(seed);
    const TestDatabase database;
    QVERIFY(!SettingsStore().open(DatabaseLocation::ofFile(database.path())));

    int pages = 0;
    QHash<QString, Texts> nasty;
    const int repetitions = testrun::times(1);
    for (int round = 0; round < repetitions * roundsForAll(kind); ++round) {
        if (round % roundsForAll(kind) == 0)
            nasty = texts(kind, random);
        store(database, storedTexts(kind, nasty, round));
        const QByteArray before = database.bytes();
        const QByteArray about = QStringLiteral("seed %1, round %2 ").arg(seed).arg(round).toUtf8();
        {
            Visit visit(database, kind);
            pages += visit.openPages();
            QVERIFY2(visit.surprises().isEmpty(), about + visit.surprises().join('\n').toUtf8());
            QVERIFY2(visit.changes().isEmpty(), about + visit.changes().join(' ').toUtf8());
            QVERIFY2(visit.hasNothingToSave(), about);
        }
        QVERIFY2(database.bytes() == before, about);
        QCOMPARE(database.files(), QStringList{"installation.db"});
    }
    qInfo("seed %u: %d texts for %d parameters, %d pages opened, nothing written", seed,
          repetitions * nastytexts::count, int(addresses(kind).size()), pages);
}

QTEST_MAIN(TestNastyTexts)
#include "tst_nastytexts.moc"
