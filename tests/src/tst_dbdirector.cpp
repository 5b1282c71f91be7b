#include "dbdirector.h"
#include "dbsettingsbuilder.h"
#include "loggingrules.h"
#include "messages.h"
#include "storedsettings.h"

#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettingsvalue.h>

#include <QComboBox>

using Recipe = void (DBDirector::*)();
Q_DECLARE_METATYPE(Recipe)

namespace {

/// Writes down what it is asked for, in order, and keeps the editor that it is given.
class RecordingBuilder : public DBSettingsBuilder
{
public:
    std::unique_ptr<DBSettings> getSettings() override
    {
        m_calls << "getSettings";
        return std::make_unique<DBSettingsValue>();
    }
    DBSettingsType type() const override
    {
        m_calls << "type";
        return DBSettingsType::Unknown;
    }
    DBSettingsBuilder &createWidget() override { return record("createWidget"); }
    DBSettingsBuilder &createIcon() override { return record("createIcon"); }
    DBSettingsBuilder &createTitle() override { return record("createTitle"); }
    DBSettingsBuilder &createKey() override { return record("createKey"); }
    DBSettingsBuilder &createValue() override { return record("createValue"); }
    DBSettingsBuilder &createParamValues() override { return record("createParamValues"); }
    DBSettingsBuilder &createParamRange() override { return record("createParamRange"); }
    DBSettingsBuilder &setParamWidget(DBParamWidget *widget) override
    {
        m_editors.emplace_back(widget);
        m_hadParent = widget->parent();
        return record("setParamWidget");
    }
    DBSettingsBuilder &setReadonly() override { return record("setReadonly"); }
    DBSettingsBuilder &createSpecialValue() override { return record("createSpecialValue"); }
    DBSettingsBuilder &createInvertedValue() override { return record("createInvertedValue"); }
    DBSettingsBuilder &createToolTip() override { return record("createToolTip"); }

    QStringList calls() const { return m_calls; }
    bool hadParent() const { return m_hadParent; }
    int editorCount() const { return int(m_editors.size()); }
    DBParamWidget *editor() const { return m_editors.empty() ? nullptr : m_editors.back().get(); }

private:
    DBSettingsBuilder &record(const char *call)
    {
        m_calls << call;
        return *this;
    }

    mutable QStringList m_calls;
    std::vector<std::unique_ptr<DBParamWidget>> m_editors;
    bool m_hadParent = false;
};

bool offers(const DBParamWidget *editor, const QString &name)
{
    const QAbstractItemModel *objects = editor->findChild<QComboBox *>()->model();
    const Qt::MatchFlags anywhere = Qt::MatchExactly | Qt::MatchRecursive;
    return !objects->match(objects->index(0, 0), Qt::DisplayRole, name, 1, anywhere).isEmpty();
}
} // namespace

class TestDBDirector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void constructionAsksForNothing();
    void stepsComeInOrder_data();
    void stepsComeInOrder();
    void editorIsHandedOverFresh_data();
    void editorIsHandedOverFresh();
    void selectorOffersItsOwnObjects_data();
    void selectorOffersItsOwnObjects();
    void eachRunMakesAnEditorOfItsOwn();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
};

void TestDBDirector::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestDBDirector::constructionAsksForNothing()
{
    RecordingBuilder builder;
    {
        DBDirector director(builder);
    }
    QCOMPARE(builder.calls(), QStringList());
}

void TestDBDirector::stepsComeInOrder_data()
{
    QTest::addColumn<Recipe>("recipe");
    QTest::addColumn<QString>("editorClass");
    QTest::addColumn<QStringList>("calls");

    QTest::newRow("group") << &DBDirector::makeGroup << "" << QStringList{"createWidget", "createTitle", "createIcon"};
    QTest::newRow("read-only") << &DBDirector::makeReadonlySetting << "DBLineEditWidget"
                               << QStringList{"setParamWidget", "createWidget", "createTitle",
                                              "createKey",      "createValue",  "setReadonly"};
    QTest::newRow("line edit") << &DBDirector::makeLineEditSetting << "DBLineEditWidget"
                               << QStringList{"setParamWidget", "createWidget", "createTitle",
                                              "createKey",      "createValue",  "createToolTip"};
    QTest::newRow("password") << &DBDirector::makePasswordSetting << "DBPasswordWidget"
                              << QStringList{"setParamWidget", "createWidget", "createTitle",
                                             "createKey",      "createValue",  "createToolTip"};
    QTest::newRow("combo box") << &DBDirector::makeComboBoxSetting << "DBComboBoxWidget"
                               << QStringList{"setParamWidget", "createWidget",      "createTitle",  "createKey",
                                              "createValue",    "createParamValues", "createToolTip"};
    QTest::newRow("organisational structure")
        << &DBDirector::makeOrgstructureSelectorSetting << "DBObjSelectorWidget"
        << QStringList{"setParamWidget", "createWidget",      "createTitle",  "createKey",
                       "createValue",    "createParamValues", "createToolTip"};
    QTest::newRow("smart-card profile") << &DBDirector::makeSmartCardProfileSelectorSetting << "DBObjSelectorWidget"
                                        << QStringList{"setParamWidget", "createWidget", "createTitle",
                                                       "createKey",      "createValue",  "createParamValues",
                                                       "createToolTip"};
    QTest::newRow("check box") << &DBDirector::makeCheckBoxSetting << "DBCheckBoxWidget"
                               << QStringList{"setParamWidget", "createWidget", "createTitle",
                                              "createKey",      "createValue",  "createInvertedValue"};
    QTest::newRow("spin box") << &DBDirector::makeSpinBoxSetting << "DBSpinBoxWidget"
                              << QStringList{"setParamWidget",     "createWidget", "createTitle",
                                             "createKey",          "createValue",  "createParamRange",
                                             "createSpecialValue", "createToolTip"};
    QTest::newRow("JSON group") << &DBDirector::makeJsonGroup << ""
                                << QStringList{"createWidget", "createTitle", "createKey"};
}

void TestDBDirector::stepsComeInOrder()
{
    QFETCH(Recipe, recipe);
    QFETCH(QString, editorClass);
    QFETCH(QStringList, calls);
    RecordingBuilder builder;

    (DBDirector(builder).*recipe)();
    QCOMPARE(builder.calls(), calls);
    QCOMPARE(builder.editorCount(), editorClass.isEmpty() ? 0 : 1);
    if (builder.editor())
        QCOMPARE(QString(builder.editor()->metaObject()->className()), editorClass);
}

void TestDBDirector::editorIsHandedOverFresh_data()
{
    QTest::addColumn<Recipe>("recipe");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("read-only") << &DBDirector::makeReadonlySetting << QVariant("");
    QTest::newRow("line edit") << &DBDirector::makeLineEditSetting << QVariant("");
    QTest::newRow("password") << &DBDirector::makePasswordSetting << QVariant("");
    QTest::newRow("combo box") << &DBDirector::makeComboBoxSetting << QVariant();
    QTest::newRow("organisational structure") << &DBDirector::makeOrgstructureSelectorSetting << QVariant(0U);
    QTest::newRow("smart-card profile") << &DBDirector::makeSmartCardProfileSelectorSetting << QVariant(0U);
    QTest::newRow("check box") << &DBDirector::makeCheckBoxSetting << QVariant(false);
    QTest::newRow("spin box") << &DBDirector::makeSpinBoxSetting << QVariant(0);
}

void TestDBDirector::editorIsHandedOverFresh()
{
    QFETCH(Recipe, recipe);
    QFETCH(QVariant, value);
    RecordingBuilder builder;

    (DBDirector(builder).*recipe)();
    QVERIFY(!builder.hadParent());
    QVERIFY(!builder.editor()->parent());
    QCOMPARE(builder.editor()->key(), QString());
    QCOMPARE(builder.editor()->toolTip(), QString());
    QCOMPARE(builder.editor()->isReadOnly(), false);
    QCOMPARE(builder.editor()->value(), value);
    QCOMPARE(builder.editor()->value().userType(), value.userType());
}

void TestDBDirector::selectorOffersItsOwnObjects_data()
{
    QTest::addColumn<Recipe>("recipe");
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("offersFirm");
    QTest::addColumn<bool>("offersProfile");

    QTest::newRow("organisational structure") << &DBDirector::makeOrgstructureSelectorSetting << 400 << true << false;
    QTest::newRow("smart-card profile") << &DBDirector::makeSmartCardProfileSelectorSetting << 256 << false << true;
}

void TestDBDirector::selectorOffersItsOwnObjects()
{
    QFETCH(Recipe, recipe);
    StoredObjects structure("orgstructure", {{1, 0, "OT_SUBJECTROOT", "Организации"}, {7, 1, "OT_FIRM", "Завод"}});
    StoredObjects profiles("smartcard_profile_dataname", {{5, 0, "OT_SMARTCARD_PROFILE", "Пропуск"}});
    RecordingBuilder builder;

    (DBDirector(builder).*recipe)();
    QTEST(builder.editor()->findChild<QComboBox *>()->minimumWidth(), "width");
    QTEST(offers(builder.editor(), "Завод"), "offersFirm");
    QTEST(offers(builder.editor(), "Пропуск"), "offersProfile");
}

void TestDBDirector::eachRunMakesAnEditorOfItsOwn()
{
    RecordingBuilder builder;
    DBDirector director(builder);

    director.makeSpinBoxSetting();
    const DBParamWidget *first = builder.editor();
    director.makeSpinBoxSetting();
    QCOMPARE(builder.editorCount(), 2);
    QVERIFY(builder.editor() != first);
}

QTEST_MAIN(TestDBDirector)
#include "tst_dbdirector.moc"
