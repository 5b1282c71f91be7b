#include "importplan.h"

#include "messages.h"

#include <host/objectindex.h>

#include <vxsettings/dbkeys.h>

#include <QTest>

using namespace db::database;
using vantorix::OBJECT_PARAMETERS;

class TestImportPlan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void rows_data();
    void rows();
    void theOrderOfThePages();
};

namespace {

const ObjectIndex noObjects({});

QString word(ImportPlan::State state)
{
    switch (state) {
    case ImportPlan::State::Unchanged:
        return "unchanged";
    case ImportPlan::State::Changed:
        return "changed";
    case ImportPlan::State::Unknown:
        return "unknown";
    case ImportPlan::State::Invalid:
        return "invalid";
    case ImportPlan::State::Missing:
        return "missing";
    }
    return {};
}

/// "address: old → new, state" of each row.
QStringList outline(const QVector<ImportPlan::Row> &rows)
{
    QStringList lines;
    for (const auto &row : rows)
        lines << QString("%1: %2 → %3, %4")
                     .arg(row.change.address.text(), row.change.before, row.change.after, word(row.state));
    return lines;
}
} // namespace

void TestImportPlan::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestImportPlan::rows_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("stored"); // null for nothing
    QTest::addColumn<QString>("wanted"); // null for nothing
    QTest::addColumn<QStringList>("rows");

    const auto row = [](const char *name, const QString &key, const QString &stored, const QString &wanted,
                        const QStringList &rows) { QTest::newRow(name) << key << stored << wanted << rows; };
    row("changed", MOBILE_PORT, "80", "81", {"PT_MOBILE_PORT: 80 → 81, changed"});
    row("not stored yet", MOBILE_PORT, QString(), "81", {"PT_MOBILE_PORT:  → 81, changed"});
    row("unchanged", MOBILE_PORT, "80", "80", {"PT_MOBILE_PORT: 80 → 80, unchanged"});
    row("invalid", MOBILE_PORT, "80", "x", {"PT_MOBILE_PORT: 80 → x, invalid"});
    row("missing", MOBILE_PORT, "80", QString(), {"PT_MOBILE_PORT: 80 → , missing"});
    row("unknown", "PT_OTHER", "1", "2", {"PT_OTHER: 1 → 2, unknown"});
    row("members", PIN_STRENGTH, R"({"min_len": "4", "max_len": "8", "deny_equal": "true"})",
        R"({"min_len": "5", "deny_equal": "true", "zone": 1})",
        {"PT_PIN_STRENGTH.min_len: 4 → 5, changed", "PT_PIN_STRENGTH.max_len: 8 → , missing",
         "PT_PIN_STRENGTH.zone:  → 1, unknown"});
    row("members, written otherwise", PIN_STRENGTH, R"({"min_len": "4"})", R"({"min_len":4})",
        {R"(PT_PIN_STRENGTH: {"min_len": "4"} → {"min_len":4}, unchanged)"});
    row("an invalid member", PIN_STRENGTH, "{}", R"({"min_len": "x"})",
        {R"(PT_PIN_STRENGTH: {} → {"min_len": "x"}, invalid)"});
    row("what is stored cannot be read", PIN_STRENGTH, "{", R"({"min_len": "5"})",
        {"PT_PIN_STRENGTH.min_len:  → 5, changed"});
}

void TestImportPlan::rows()
{
    QFETCH(QString, key);
    QFETCH(QString, stored);
    QFETCH(QString, wanted);
    const auto settings = [&key](const QString &text) {
        return text.isNull() ? OBJECT_PARAMETERS() : OBJECT_PARAMETERS{{key, text}};
    };
    const auto rows = ImportPlan::rows(settings(wanted), settings(stored), noObjects);
    QTEST(outline(rows), "rows");
    for (const auto &row : rows)
        QCOMPARE(row.error.isEmpty(), row.state != ImportPlan::State::Invalid);
}

void TestImportPlan::theOrderOfThePages()
{
    const auto rows = ImportPlan::rows(
        {{"PT_OTHER", "1"}, {MOBILE_PORT, "1"}, {MAX_CARD_COUNT, "1"}, {PIN_STRENGTH, R"({"min_len": "1"})"}}, {},
        noObjects);
    QStringList addresses;
    for (const auto &row : rows)
        addresses << row.change.address.text();
    QCOMPARE(addresses, (QStringList{MAX_CARD_COUNT, "PT_PIN_STRENGTH.min_len", MOBILE_PORT, "PT_OTHER"}));
}

QTEST_MAIN(TestImportPlan)
#include "tst_importplan.moc"
