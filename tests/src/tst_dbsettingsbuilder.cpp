#include "dbdirector.h"
#include "dbsettingsbuilder.h"
#include "loggingrules.h"
#include "messages.h"

#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettingsvalue.h>

#include <QApplication>

#include <memory>
#include <vector>

using Step = DBSettingsBuilder &(DBSettingsBuilder::*)();
using Recipe = void (DBDirector::*)();
Q_DECLARE_METATYPE(Step)
Q_DECLARE_METATYPE(Recipe)

namespace {

/// Overrides what it has to and nothing else.
class BareBuilder : public DBSettingsBuilder
{
public:
    explicit BareBuilder(bool *destroyed = nullptr)
        : m_destroyed(destroyed)
    {
        m_node->setType(DBSettingsType::LineEdit);
    }
    ~BareBuilder() override
    {
        if (m_destroyed)
            *m_destroyed = true;
    }

    std::unique_ptr<DBSettings> getSettings() override { return std::move(m_node); }
    DBSettingsType type() const override { return m_node->type(); }
    DBSettingsBuilder &createWidget() override { return *this; }

    const DBSettings *node() const { return m_node.get(); }

private:
    std::unique_ptr<DBSettingsValue> m_node = std::make_unique<DBSettingsValue>();
    bool *m_destroyed;
};

/// Deletes the editors that have no parent; answers how many there were.
int deleteLooseEditors()
{
    // Popups are top-level widgets as well, and go with their editors: collect first.
    std::vector<std::unique_ptr<DBParamWidget>> editors;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *editor = qobject_cast<DBParamWidget *>(widget))
            editors.emplace_back(editor);
    }
    return int(editors.size());
}
} // namespace

class TestDBSettingsBuilder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void optionalStepDoesNothing_data();
    void optionalStepDoesNothing();
    void setParamWidgetDoesNothing();
    void recipeYieldsTheNodeUnchanged_data();
    void recipeYieldsTheNodeUnchanged();
    void isDestroyedThroughTheBase();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
};

void TestDBSettingsBuilder::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestDBSettingsBuilder::optionalStepDoesNothing_data()
{
    QTest::addColumn<Step>("step");

    QTest::newRow("icon") << &DBSettingsBuilder::createIcon;
    QTest::newRow("title") << &DBSettingsBuilder::createTitle;
    QTest::newRow("key") << &DBSettingsBuilder::createKey;
    QTest::newRow("value") << &DBSettingsBuilder::createValue;
    QTest::newRow("choices") << &DBSettingsBuilder::createParamValues;
    QTest::newRow("range") << &DBSettingsBuilder::createParamRange;
    QTest::newRow("read-only") << &DBSettingsBuilder::setReadonly;
    QTest::newRow("special value") << &DBSettingsBuilder::createSpecialValue;
    QTest::newRow("inversion") << &DBSettingsBuilder::createInvertedValue;
    QTest::newRow("tool tip") << &DBSettingsBuilder::createToolTip;
}

void TestDBSettingsBuilder::optionalStepDoesNothing()
{
    QFETCH(Step, step);
    BareBuilder builder;
    const DBSettings *node = builder.node();

    QCOMPARE(&(builder.*step)(), &builder);
    QCOMPARE(builder.node(), node);
    QCOMPARE(builder.type(), DBSettingsType::LineEdit);
    QVERIFY(!node->widget());
}

void TestDBSettingsBuilder::setParamWidgetDoesNothing()
{
    BareBuilder builder;
    QWidget parent;
    DBParamWidget editor(&parent);
    editor.setLabelPosition(LabelPosition::Top);

    QCOMPARE(&builder.setParamWidget(&editor), &builder);
    QCOMPARE(&builder.setParamWidget(nullptr), &builder);
    QCOMPARE(editor.parent(), &parent);
    QVERIFY(editor.findChild<QWidget *>("leftLabel")->isHidden());
    QVERIFY(!builder.node()->widget());
}

void TestDBSettingsBuilder::recipeYieldsTheNodeUnchanged_data()
{
    QTest::addColumn<Recipe>("recipe");
    QTest::addColumn<int>("editorCount");

    QTest::newRow("group") << &DBDirector::makeGroup << 0;
    QTest::newRow("read-only") << &DBDirector::makeReadonlySetting << 1;
    QTest::newRow("line edit") << &DBDirector::makeLineEditSetting << 1;
    QTest::newRow("password") << &DBDirector::makePasswordSetting << 1;
    QTest::newRow("combo box") << &DBDirector::makeComboBoxSetting << 1;
    QTest::newRow("organisational structure") << &DBDirector::makeOrgstructureSelectorSetting << 1;
    QTest::newRow("smart-card profile") << &DBDirector::makeSmartCardProfileSelectorSetting << 1;
    QTest::newRow("check box") << &DBDirector::makeCheckBoxSetting << 1;
    QTest::newRow("spin box") << &DBDirector::makeSpinBoxSetting << 1;
    QTest::newRow("JSON group") << &DBDirector::makeJsonGroup << 0;
}

void TestDBSettingsBuilder::recipeYieldsTheNodeUnchanged()
{
    QFETCH(Recipe, recipe);
    QFETCH(int, editorCount);
    BareBuilder builder;
    const DBSettings *node = builder.node();

    (DBDirector(builder).*recipe)();
    // A builder that ignores the editor leaves it to nobody.
    QCOMPARE(deleteLooseEditors(), editorCount);

    const std::unique_ptr<DBSettings> result = builder.getSettings();
    QCOMPARE(result.get(), node);
    QCOMPARE(result->type(), DBSettingsType::LineEdit);
    QVERIFY(!result->widget());
    QVERIFY(result->parameters().isEmpty());
    QVERIFY(!builder.getSettings());
}

void TestDBSettingsBuilder::isDestroyedThroughTheBase()
{
    bool destroyed = false;
    std::unique_ptr<DBSettingsBuilder> builder = std::make_unique<BareBuilder>(&destroyed);
    builder.reset();
    QVERIFY(destroyed);
}

QTEST_MAIN(TestDBSettingsBuilder)
#include "tst_dbsettingsbuilder.moc"
