#include <vxsettings/dbobjselectorwidget.h>

#include "editorprobe.h"
#include "loggingrules.h"
#include "messages.h"
#include "storedsettings.h"

#include <vxsettings/dbkeys.h>

#include <vxwidgets/grantedproxymodel.h>
#include <vxwidgets/vxobjectselector.h>
#include <vxwidgets/vxtreeviewdelegate.h>

#include <QLabel>
#include <QPointer>
#include <QRegularExpression>
#include <QTreeView>

#include <memory>

using vantorix::ObjectRecord;
using Objects = QVector<ObjectRecord>;
Q_DECLARE_METATYPE(Objects)

class TestDBObjSelectorWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void metaObjectAddsOnlyTheName()
    {
        compareMetaObject(DBObjSelectorWidget::staticMetaObject, "DBObjSelectorWidget");
    }
    void freshEditor_data();
    void freshEditor();
    void aFormsSelectorOffersDepartments();
    void captionIsOnTheFrame();
    void ownersOfTheParts();
    void width_data();
    void width();
    void height_data();
    void height();
    void heightStaysWhenObjectsCome();
    void onlyOrganisationalObjectsCanBeChosen();
    void anyProfileCanBeChosen();
    void hiddenObjectsAreNotOffered();
    void treeOpensAtItsFirstTop();

    void setValueChooses_data();
    void setValueChooses();
    void setValueAnnouncesAndCommits();
    void setValueOpensTheBranch();
    void chosenRowIsOpenInThePopup();
    void sameRowOfAnotherBranchIsAChange();
    void unparsableValueIsOnlyStored_data();
    void unparsableValueIsOnlyStored();
    void unknownUidChoosesNothing();
    void valueIsStoredBeforeTheSignals();
    void revertCommits();
    void profilesWorkTheSameWay();

    void choiceWithTheKeyboard();
    void choiceInThePopup();

    void constructionLogsTheView();
    void setValueLogs_data();
    void setValueLogs();
    void changeLogsBeforeTheSignals();
    void nothingIsLoggedWhenDebugIsOff();

    void disabledSelectorCannotBeUsed();
    void readOnlyIsOnlyAFlag();
    void otherOperationsDoNothing();
    void brokenSlotDoesNothing_data() { addBrokenSlotRows(); }
    void brokenSlotDoesNothing();
    void renamedSelectorStillAnnouncesItsChoice();
    void handlerMayDeleteTheEditor();

private:
    const LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
};

namespace {

constexpr char orgstructure[] = "orgstructure";
constexpr char profiles[] = "smartcard_profile_dataname";

const Objects company = {
    {1, 0, "OT_SUBJECTROOT", "Организация"}, {2, 1, "OT_FIRM", "Завод"},
    {21, 2, "OT_DEPARTMENT", "Цех"},         {22, 2, "OT_DEPARTMENT", "Склад"},
    {3, 1, "OT_FIRM", "Институт"},           {31, 3, "OT_DEPARTMENT", "Лаборатория"},
    {42, 31, "OT_DEPARTMENT", "Группа"},     {43, 42, "OT_DEPARTMENT", "Подгруппа"},
    {50, 21, "OT_WORKER", "Работник"},       {60, 1, "OT_FIRM", "Тайная фирма", false},
};
const Objects cards = {{7, 0, "OT_SMARTCARD_PROFILE", "Пропуск"}, {8, 0, "OT_SMARTCARD_PROFILE", "Гость"}};

VXObjectSelector *selector(const DBParamWidget &editor)
{
    return qobject_cast<VXObjectSelector *>(editor.centralWidget());
}

QTreeView *tree(const DBParamWidget &editor)
{
    return qobject_cast<QTreeView *>(selector(editor)->view());
}

/// A top node with @p childCount children of that type.
Objects family(int childCount, const QString &childType = "OT_FIRM", bool granted = true)
{
    Objects objects = {{1, 0, "OT_SUBJECTROOT", "Организация"}};
    for (int child = 0; child < childCount; ++child)
        objects.append({uint(100 + child), 1, childType, QString::number(child), granted});
    return objects;
}

bool show(DBParamWidget &editor)
{
    editor.setKey("PT_ORG");
    editor.show();
    return QTest::qWaitForWindowExposed(&editor);
}

/// Names of the rows below @p parent that can be chosen, and those in them.
QStringList choosable(const QAbstractItemModel &model, const QModelIndex &parent = {})
{
    QStringList names;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        if (index.flags() & Qt::ItemIsSelectable)
            names << index.data().toString();
        names << choosable(model, index);
    }
    return names;
}

/// Keeps what is logged during its lifetime, debug messages of the library included.
class CapturedDebugMessages : public CapturedMessages
{
    const LoggingRules m_loud{"gui.lib.dbsettings.debug=true"};
};

using BaredSelector = Bared<DBObjSelectorWidget>;
} // namespace

void TestDBObjSelectorWidget::freshEditor_data()
{
    QTest::addColumn<QString>("dataname");
    QTest::addColumn<Objects>("objects");
    QTest::newRow("organisational structure") << orgstructure << company;
    QTest::newRow("empty organisational structure") << orgstructure << Objects();
    QTest::newRow("profiles") << profiles << cards;
    QTest::newRow("no profiles") << profiles << Objects();
    QTest::newRow("no name") << "" << Objects();
}

void TestDBObjSelectorWidget::freshEditor()
{
    QFETCH(QString, dataname);
    QFETCH(Objects, objects);
    const StoredObjects stored(dataname, objects);
    QWidget page;
    const BaredSelector editor(dataname, &page);
    QCOMPARE(editor.parentWidget(), &page);
    QCOMPARE(editor.centralWidget()->metaObject()->className(), "VXObjectSelector");
    QCOMPARE(selector(editor)->dataname(), dataname);
    QCOMPARE(selector(editor)->currentIndex(), -1);
    QCOMPARE(selector(editor)->currentUid(), 0u);
    QCOMPARE(described(editor.value()), QString("uint 0"));
    QVERIFY(!editor.storedValue().isValid());
}

/// uic and Qt Designer know no other argument than the parent.
void TestDBObjSelectorWidget::aFormsSelectorOffersDepartments()
{
    const StoredObjects stored(orgstructure, company);
    QWidget form;
    const DBObjSelectorWidget editor(&form);
    const DBObjSelectorWidget expected(orgstructure, &form);
    QCOMPARE(editor.parentWidget(), &form);
    QCOMPARE(selector(editor)->dataname(), orgstructure);
    QCOMPARE(choosable(*selector(editor)->model()), choosable(*selector(expected)->model()));
    QVERIFY(!choosable(*selector(editor)->model()).isEmpty());
    QCOMPARE(selector(editor)->size(), selector(expected)->size());
}

void TestDBObjSelectorWidget::captionIsOnTheFrame()
{
    DBObjSelectorWidget editor(orgstructure, nullptr);
    QVERIFY(!editor.parentWidget());
    QVERIFY(editor.canChangeLabelPosition());
    editor.setName("Подразделение");
    QCOMPARE(editor.findChild<QLabel *>("leftLabel")->text(), QString("Подразделение"));
    QVERIFY(!editor.findChild<QLabel *>("leftLabel")->isHidden());
}

void TestDBObjSelectorWidget::ownersOfTheParts()
{
    const StoredObjects stored(orgstructure, company);
    const DBObjSelectorWidget editor(orgstructure, nullptr);
    const ObjectTreeProxy *proxy = selector(editor)->proxyModel();
    QCOMPARE(proxy->metaObject()->className(), "GrantedProxyModel");
    QCOMPARE(proxy->parent(), selector(editor));
    QVERIFY(tree(editor));
    const QAbstractItemDelegate *delegate = tree(editor)->itemDelegate();
    QCOMPARE(delegate->metaObject()->className(), "VXTreeViewDelegate");
    QCOMPARE(delegate->parent(), tree(editor));
}

void TestDBObjSelectorWidget::width_data()
{
    QTest::addColumn<QString>("dataname");
    QTest::addColumn<int>("width");
    QTest::newRow("organisational structure") << "orgstructure" << 400;
    QTest::newRow("profiles") << "smartcard_profile_dataname" << 256;
    QTest::newRow("any other name") << "doors" << 256;
    QTest::newRow("other case") << "Orgstructure" << 256;
    QTest::newRow("no name") << "" << 256;
}

void TestDBObjSelectorWidget::width()
{
    QFETCH(QString, dataname);
    QFETCH(int, width);
    const DBObjSelectorWidget editor(dataname, nullptr);
    QCOMPARE(selector(editor)->minimumWidth(), width);
    QCOMPARE(selector(editor)->maximumWidth(), width);
    const DBObjSelectorWidget other(profiles, nullptr);
    QCOMPARE(other.selectorWidth(dataname), width);
}

void TestDBObjSelectorWidget::height_data()
{
    QTest::addColumn<QString>("dataname");
    QTest::addColumn<Objects>("objects");
    QTest::addColumn<int>("height");
    QTest::newRow("nothing") << orgstructure << Objects() << 100;
    QTest::newRow("no children") << orgstructure << family(0) << 100;
    QTest::newRow("three children") << orgstructure << family(3) << 100;
    QTest::newRow("five children") << orgstructure << family(5) << 100;
    QTest::newRow("six children") << orgstructure << family(6) << 120;
    QTest::newRow("seven children") << orgstructure << family(7) << 140;
    QTest::newRow("ten children") << orgstructure << family(10) << 200;
    QTest::newRow("twelve children") << orgstructure << family(12) << 200;
    QTest::newRow("children that are not offered") << orgstructure << family(7, "OT_WORKER") << 140;
    QTest::newRow("children that must not be seen") << orgstructure << family(7, "OT_FIRM", false) << 140;
    QTest::newRow("second top does not count")
        << orgstructure << Objects{{2, 0, "OT_SUBJECTROOT", ""}} + family(7) << 100;
    QTest::newRow("grandchildren do not count")
        << orgstructure << Objects{{3, 0, "OT_SUBJECTROOT", ""}, {1, 3, "OT_FIRM", ""}} + family(7).mid(1) << 100;
    QTest::newRow("profiles") << profiles << family(7, "OT_SMARTCARD_PROFILE") << 140;
    QTest::newRow("profiles side by side") << profiles << cards << 100;
}

void TestDBObjSelectorWidget::height()
{
    QFETCH(QString, dataname);
    QFETCH(Objects, objects);
    const StoredObjects stored(dataname, objects);
    const DBObjSelectorWidget editor(dataname, nullptr);
    QTEST(selector(editor)->minimumHeight(), "height");
    QTEST(selector(editor)->maximumHeight(), "height");
}

void TestDBObjSelectorWidget::heightStaysWhenObjectsCome()
{
    const StoredObjects none(orgstructure, {});
    const DBObjSelectorWidget editor(orgstructure, nullptr);
    const StoredObjects stored(orgstructure, family(7));
    QCOMPARE(selector(editor)->minimumHeight(), 100);
    QCOMPARE(selector(editor)->maximumHeight(), 100);
}

void TestDBObjSelectorWidget::onlyOrganisationalObjectsCanBeChosen()
{
    const StoredObjects stored(orgstructure, company + Objects{{70, 0, "OT_WORKER", "Начальник"},
                                                               {71, 70, "OT_FIRM", "Его фирма"},
                                                               {72, 0, "OT_WORKER", "Одиночка"}});
    const DBObjSelectorWidget editor(orgstructure, nullptr);
    const ObjectTreeProxy *proxy = selector(editor)->proxyModel();
    QCOMPARE(proxy->objectTypeFilter(), QStringList({"OT_SUBJECTROOT", "OT_FIRM", "OT_DEPARTMENT"}));
    QVERIFY(proxy->filterAcceptsParents());
    QCOMPARE(choosable(*proxy), QStringList({"Организация", "Завод", "Цех", "Склад", "Институт", "Лаборатория",
                                             "Группа", "Подгруппа", "Его фирма"}));
    QCOMPARE(proxy->rowCount(), 2);
    QCOMPARE(proxy->index(1, 0).data().toString(), QString("Начальник"));
}

void TestDBObjSelectorWidget::anyProfileCanBeChosen()
{
    const StoredObjects stored(profiles, cards);
    const DBObjSelectorWidget editor(profiles, nullptr);
    const ObjectTreeProxy *proxy = selector(editor)->proxyModel();
    QCOMPARE(proxy->objectTypeFilter(), QStringList());
    QVERIFY(proxy->filterAcceptsParents());
    QCOMPARE(choosable(*proxy), QStringList({"Пропуск", "Гость"}));
}

void TestDBObjSelectorWidget::hiddenObjectsAreNotOffered()
{
    const StoredObjects stored(profiles, cards + Objects{{9, 0, "OT_SMARTCARD_PROFILE", "Тайный", false}});
    DBObjSelectorWidget editor(profiles, nullptr);
    QCOMPARE(choosable(*selector(editor)->proxyModel()), QStringList({"Пропуск", "Гость"}));
    editor.setValue(9u);
    QCOMPARE(described(editor.value()), QString("uint 0"));
}

void TestDBObjSelectorWidget::treeOpensAtItsFirstTop()
{
    const StoredObjects organisation(orgstructure, company);
    const StoredObjects profile(profiles, family(3));
    const DBObjSelectorWidget structure(orgstructure, nullptr);
    const DBObjSelectorWidget profileChoice(profiles, nullptr);
    QVERIFY(selector(structure)->defaultRootIndex().isValid());
    QCOMPARE(selector(structure)->defaultRootIndex(), selector(structure)->proxyModel()->index(0, 0));
    QVERIFY(!selector(profileChoice)->defaultRootIndex().isValid());
}

void TestDBObjSelectorWidget::setValueChooses_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("name");
    QTest::newRow("unsigned number") << QVariant(42u) << "uint 42"
                                     << "Группа";
    QTest::newRow("signed number") << QVariant(42) << "uint 42"
                                   << "Группа";
    QTest::newRow("text") << QVariant("42") << "uint 42"
                          << "Группа";
    QTest::newRow("text with blanks") << QVariant(" 42 ") << "uint 42"
                                      << "Группа";
    QTest::newRow("long number") << QVariant(Q_UINT64_C(42)) << "uint 42"
                                 << "Группа";
    QTest::newRow("fraction rounds") << QVariant(41.6) << "uint 42"
                                     << "Группа";
    QTest::newRow("top") << QVariant(1u) << "uint 1"
                         << "Организация";
    QTest::newRow("truth is 1") << QVariant(true) << "uint 1"
                                << "Организация";
    QTest::newRow("zero") << QVariant(0u) << "uint 0"
                          << "";
    QTest::newRow("text of zero") << QVariant("0") << "uint 0"
                                  << "";
    QTest::newRow("unknown") << QVariant(999u) << "uint 0"
                             << "";
    QTest::newRow("not to be chosen") << QVariant(50u) << "uint 0"
                                      << "";
    QTest::newRow("not to be seen") << QVariant(60u) << "uint 0"
                                    << "";
    QTest::newRow("highest number") << QVariant(4294967295u) << "uint 0"
                                    << "";
    QTest::newRow("negative number") << QVariant(-1) << "uint 0"
                                     << "";
    QTest::newRow("text beyond an unsigned int") << QVariant("4294967338") << "uint 42"
                                                 << "Группа";
}

void TestDBObjSelectorWidget::setValueChooses()
{
    QFETCH(QVariant, value);
    const StoredObjects stored(orgstructure, company);
    BaredSelector editor(orgstructure, nullptr);
    editor.setValue(21u);
    editor.setValue(value);
    QTEST(described(editor.value()), "chosen");
    QTEST(selector(editor)->currentText(), "name");
    QCOMPARE(described(editor.storedValue()), described(value));
}

void TestDBObjSelectorWidget::setValueAnnouncesAndCommits()
{
    const StoredObjects stored(orgstructure, company);
    DBObjSelectorWidget editor(orgstructure, nullptr);
    editor.setKey("PT_ORG");
    HeardSignals heard(editor);
    editor.setValue(0u);
    QCOMPARE(heard.take(), QStringList());
    editor.setValue(42u);
    QCOMPARE(heard.take(), QStringList({"PT_ORG: uint 42", "commit"}));
    editor.setValue("42");
    QCOMPARE(heard.take(), QStringList());
    editor.setValue(0);
    QCOMPARE(heard.take(), QStringList({"PT_ORG: uint 0", "commit"}));
}

void TestDBObjSelectorWidget::setValueOpensTheBranch()
{
    const StoredObjects stored(orgstructure, company);
    DBObjSelectorWidget editor(orgstructure, nullptr);
    const ObjectTreeProxy *proxy = selector(editor)->proxyModel();
    QVERIFY(!tree(editor)->isExpanded(proxy->indexOf(42)));
    editor.setValue(42u);
    QCOMPARE(selector(editor)->currentModelIndex(), proxy->indexOf(42));
    QVERIFY(tree(editor)->isExpanded(proxy->indexOf(42)));
    QVERIFY(!tree(editor)->isExpanded(proxy->indexOf(2)));

    editor.setValue(2u);
    QVERIFY(tree(editor)->isExpanded(proxy->indexOf(2)));
}

void TestDBObjSelectorWidget::chosenRowIsOpenInThePopup()
{
    const StoredObjects stored(orgstructure, company);
    DBObjSelectorWidget editor(orgstructure, nullptr);
    editor.setValue(42u);
    QVERIFY(show(editor));
    QTest::keyClick(selector(editor), Qt::Key_F4);
    QTRY_VERIFY(tree(editor)->isVisible());

    const ObjectTreeProxy *proxy = selector(editor)->proxyModel();
    for (const uint shown : {1u, 3u, 31u, 42u, 43u})
        QVERIFY(!tree(editor)->visualRect(proxy->indexOf(shown)).isEmpty());
    QVERIFY(tree(editor)->visualRect(proxy->indexOf(21)).isEmpty());
    selector(editor)->hidePopup();
}

void TestDBObjSelectorWidget::sameRowOfAnotherBranchIsAChange()
{
    const StoredObjects stored(orgstructure, company);
    DBObjSelectorWidget editor(orgstructure, nullptr);
    editor.setKey("PT_ORG");
    editor.setValue(21u);
    HeardSignals heard(editor);
    editor.setValue(31u);
    QCOMPARE(selector(editor)->currentIndex(), 0);
    QCOMPARE(heard.take(), QStringList({"PT_ORG: uint 31", "commit"}));
}

void TestDBObjSelectorWidget::unparsableValueIsOnlyStored_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("any text") << QVariant("abc");
    QTest::newRow("empty text") << QVariant("");
    QTest::newRow("null text") << QVariant(QString());
    QTest::newRow("number and more") << QVariant("31x");
    QTest::newRow("negative text") << QVariant("-1");
    QTest::newRow("text of a fraction") << QVariant("31.0");
    QTest::newRow("text of a hexadecimal number") << QVariant("0x1F");
    QTest::newRow("text beyond any number") << QVariant("99999999999999999999");
    QTest::newRow("invalid") << QVariant();
    QTest::newRow("list") << QVariant(QStringList("31"));
}

void TestDBObjSelectorWidget::unparsableValueIsOnlyStored()
{
    QFETCH(QVariant, value);
    const StoredObjects stored(orgstructure, company);
    BaredSelector editor(orgstructure, nullptr);
    editor.setValue(42u);
    HeardSignals heard(editor);

    editor.setValue(value);
    QCOMPARE(described(editor.storedValue()), described(value));
    QCOMPARE(described(editor.value()), QString("uint 42"));
    editor.setDefaultValue();
    QCOMPARE(described(editor.value()), QString("uint 42"));
    QCOMPARE(heard.take(), QStringList());
}

void TestDBObjSelectorWidget::unknownUidChoosesNothing()
{
    const StoredObjects stored(orgstructure, company);
    BaredSelector editor(orgstructure, nullptr);
    editor.setKey("PT_ORG");
    HeardSignals heard(editor);
    editor.setValue(999u);
    QCOMPARE(heard.take(), QStringList());
    QCOMPARE(described(editor.storedValue()), QString("uint 999"));

    editor.setValue(42u);
    heard.take();
    editor.setValue(999u);
    QCOMPARE(heard.take(), QStringList({"PT_ORG: uint 0", "commit"}));
    QCOMPARE(selector(editor)->currentIndex(), -1);
}

void TestDBObjSelectorWidget::valueIsStoredBeforeTheSignals()
{
    const StoredObjects stored(orgstructure, company);
    BaredSelector editor(orgstructure, nullptr);
    QStringList meanwhile;
    connect(&editor, &DBParamWidget::paramChanged, this,
            [&] { meanwhile << described(editor.storedValue()) << described(editor.value()); });
    editor.setValue("42");
    QCOMPARE(meanwhile, QStringList({"QString 42", "uint 42"}));
}

void TestDBObjSelectorWidget::revertCommits()
{
    const StoredObjects stored(orgstructure, company);
    DBObjSelectorWidget editor(orgstructure, nullptr);
    QVERIFY(show(editor));
    editor.setValue("31");
    QTest::keyClick(selector(editor), Qt::Key_Up);
    HeardSignals heard(editor);
    QVERIFY(QMetaObject::invokeMethod(&editor, "setDefaultValue"));
    QCOMPARE(heard.take(), QStringList({"PT_ORG: uint 31", "commit"}));
    editor.setDefaultValue();
    QCOMPARE(heard.take(), QStringList());
}

void TestDBObjSelectorWidget::profilesWorkTheSameWay()
{
    const StoredObjects stored(profiles, cards);
    DBObjSelectorWidget editor(profiles, nullptr);
    editor.setKey("PT_PROFILE");
    HeardSignals heard(editor);
    editor.setValue("8");
    QCOMPARE(described(editor.value()), QString("uint 8"));
    QCOMPARE(heard.take(), QStringList({"PT_PROFILE: uint 8", "commit"}));
}

void TestDBObjSelectorWidget::choiceWithTheKeyboard()
{
    const StoredObjects stored(profiles, cards);
    BaredSelector editor(profiles, nullptr);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    QTest::keyClick(selector(editor), Qt::Key_Down);
    QCOMPARE(heard.take(), QStringList({"PT_ORG: uint 7", "commit"}));
    QTest::keyClick(selector(editor), Qt::Key_Down);
    QCOMPARE(heard.take(), QStringList({"PT_ORG: uint 8", "commit"}));
    QTest::keyClick(selector(editor), Qt::Key_Down);
    QCOMPARE(heard.take(), QStringList());
    QCOMPARE(described(editor.value()), QString("uint 8"));
    QVERIFY(!editor.storedValue().isValid());
}

void TestDBObjSelectorWidget::choiceInThePopup()
{
    const StoredObjects stored(orgstructure, company);
    DBObjSelectorWidget editor(orgstructure, nullptr);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    QTest::keyClick(selector(editor), Qt::Key_F4);
    QTRY_VERIFY(tree(editor)->isVisible());
    QCOMPARE(heard.take(), QStringList());

    const QRect row = tree(editor)->visualRect(selector(editor)->proxyModel()->indexOf(3));
    QVERIFY(!row.isEmpty());
    QTest::mouseMove(tree(editor)->viewport(), row.center());
    QTest::mouseClick(tree(editor)->viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
    QCOMPARE(heard.take(), QStringList({"PT_ORG: uint 3", "commit"}));
    QCOMPARE(selector(editor)->currentText(), QString("Институт"));
    QTRY_VERIFY(!tree(editor)->isVisible());
}

void TestDBObjSelectorWidget::constructionLogsTheView()
{
    const StoredObjects stored(orgstructure, company);
    const CapturedDebugMessages messages;
    const DBObjSelectorWidget editor(orgstructure, nullptr);

    QCOMPARE(messages.count(), 1);
    const CapturedMessage &message = messages.all().first();
    QCOMPARE(message.type, QtDebugMsg);
    QCOMPARE(message.category, QString("gui.lib.dbsettings"));
    QCOMPARE(message.file, QString("src/widgets/dbobjselectorwidget"));
    QCOMPARE(message.function, QString("DBObjSelectorWidget::DBObjSelectorWidget(const QString&, QWidget*)"));
    const auto address = [](const void *object) { return "0x" + QString::number(quintptr(object), 16); };
    const QRegularExpression text("^\\w+\\(" + address(tree(editor)) + "[^)]*\\) -> VXTreeViewDelegate\\(" +
                                  address(tree(editor)->itemDelegate()) + "\\)$");
    QVERIFY2(text.match(message.text).hasMatch(), qPrintable(message.text));
}

void TestDBObjSelectorWidget::setValueLogs_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("same object") << QVariant(42u) << QStringList("Setting value for selector QVariant(uint, 42)");
    QTest::newRow("other object") << QVariant("22")
                                  << QStringList(
                                         {"Setting value for selector QVariant(QString, \"22\")", "Changing data 1"});
    QTest::newRow("no object") << QVariant(0)
                               << QStringList({"Setting value for selector QVariant(int, 0)", "Changing data -1"});
    QTest::newRow("any text") << QVariant("abc")
                              << QStringList({"Setting value for selector QVariant(QString, \"abc\")",
                                              "Unable to parse value. Returning"});
    QTest::newRow("invalid") << QVariant()
                             << QStringList({"Setting value for selector QVariant(Invalid)",
                                             "Unable to parse value. Returning"});
}

void TestDBObjSelectorWidget::setValueLogs()
{
    QFETCH(QVariant, value);
    const StoredObjects stored(orgstructure, company);
    DBObjSelectorWidget editor(orgstructure, nullptr);
    editor.setValue(42u);

    const CapturedDebugMessages messages;
    editor.setValue(value);
    QTEST(messages.texts(), "texts");
    for (const CapturedMessage &message : messages.all()) {
        QCOMPARE(message.type, QtDebugMsg);
        QCOMPARE(message.category, QString("gui.lib.dbsettings"));
        QCOMPARE(message.file, QString("src/widgets/dbobjselectorwidget"));
        if (message.text.startsWith("Changing data"))
            QCOMPARE(message.function,
                     QString("DBObjSelectorWidget::DBObjSelectorWidget(const QString&, QWidget*)::<lambda(int)>"));
        else
            QCOMPARE(message.function, QString("virtual void DBObjSelectorWidget::setValue(const QVariant&)"));
    }
}

void TestDBObjSelectorWidget::changeLogsBeforeTheSignals()
{
    const StoredObjects stored(orgstructure, company);
    DBObjSelectorWidget editor(orgstructure, nullptr);
    const CapturedDebugMessages messages;
    QStringList loggedMeanwhile;
    connect(&editor, &DBParamWidget::paramChanged, this, [&] { loggedMeanwhile = messages.texts(); });
    editor.setValue(1u);
    QCOMPARE(loggedMeanwhile, QStringList({"Setting value for selector QVariant(uint, 1)", "Changing data 0"}));
}

void TestDBObjSelectorWidget::nothingIsLoggedWhenDebugIsOff()
{
    const StoredObjects stored(orgstructure, company);
    const CapturedMessages messages;
    DBObjSelectorWidget editor(orgstructure, nullptr);
    editor.setValue("abc");
    editor.setValue(42u);
    QCOMPARE(messages.texts(), QStringList());
    QCOMPARE(described(editor.value()), QString("uint 42"));
}

void TestDBObjSelectorWidget::disabledSelectorCannotBeUsed()
{
    const StoredObjects stored(profiles, cards);
    DBObjSelectorWidget editor(profiles, nullptr);
    QVERIFY(show(editor));
    HeardSignals heard(editor);
    static_cast<DBParamWidget &>(editor).setEnabled(false);
    QVERIFY(!editor.isEnabled());
    QVERIFY(!selector(editor)->isEnabled());
    QVERIFY(editor.QWidget::isEnabled());
    QTest::keyClick(selector(editor), Qt::Key_Down);
    QCOMPARE(heard.take(), QStringList());

    editor.setEnabled(true);
    QVERIFY(editor.isEnabled());
    QVERIFY(selector(editor)->isEnabled());
}

void TestDBObjSelectorWidget::readOnlyIsOnlyAFlag()
{
    const StoredObjects stored(profiles, cards);
    DBObjSelectorWidget editor(profiles, nullptr);
    QVERIFY(show(editor));
    editor.setReadOnly(true);
    QVERIFY(editor.isReadOnly());
    QTest::keyClick(selector(editor), Qt::Key_Down);
    QCOMPARE(described(editor.value()), QString("uint 7"));
}

void TestDBObjSelectorWidget::otherOperationsDoNothing()
{
    const StoredObjects stored(profiles, cards);
    DBObjSelectorWidget editor(profiles, nullptr);
    editor.setValue(7u);
    HeardSignals heard(editor);
    editor.inverted = true;
    editor.setParamValues({{1, "one"}});
    editor.setParamRange({0, 1});
    editor.setSpecialValue("special");
    QCOMPARE(described(editor.value()), QString("uint 7"));
    QCOMPARE(heard.take(), QStringList());
}

void TestDBObjSelectorWidget::brokenSlotDoesNothing()
{
    QFETCH(BrokenSlot, brokenSlot);
    const StoredObjects stored(profiles, cards);
    BaredSelector editor(profiles, nullptr);
    editor.setValue(7u);
    QWidget *input = breakSlot<VXTreeBox>(editor, brokenSlot);
    HeardSignals heard(editor);

    const CapturedDebugMessages messages;
    editor.setValue("8");
    QCOMPARE(messages.texts(), QStringList("Setting value for selector QVariant(QString, \"8\")"));
    QCOMPARE(described(editor.storedValue()), QString("uint 7"));
    QVERIFY(!editor.value().isValid());
    editor.setValue("abc");
    QCOMPARE(messages.texts().last(), QString("Setting value for selector QVariant(QString, \"abc\")"));
    editor.setDefaultValue();
    editor.setReadOnly(true);
    QVERIFY(editor.isReadOnly());
    editor.setEnabled(false);
    QVERIFY(!editor.isEnabled());

    QCOMPARE(heard.take(), QStringList());
    if (input)
        QVERIFY(input->isEnabled());
    if (const auto *renamed = qobject_cast<VXObjectSelector *>(input))
        QCOMPARE(renamed->currentUid(), 7u);
}

/// A choice knows its selector without looking for it.
void TestDBObjSelectorWidget::renamedSelectorStillAnnouncesItsChoice()
{
    const StoredObjects stored(profiles, cards);
    DBObjSelectorWidget editor(profiles, nullptr);
    QVERIFY(show(editor));
    VXObjectSelector *renamed = selector(editor);
    renamed->setObjectName("renamed");
    HeardSignals heard(editor);
    QTest::keyClick(renamed, Qt::Key_Down);
    QCOMPARE(heard.take(), QStringList({"PT_ORG: uint 7", "commit"}));
}

/// A host may take the selector out first: a combo box does not outlive a handler that deletes it.
void TestDBObjSelectorWidget::handlerMayDeleteTheEditor()
{
    const StoredObjects stored(profiles, cards);
    const QPointer<DBObjSelectorWidget> editor = new DBObjSelectorWidget(profiles, nullptr);
    const std::unique_ptr<VXObjectSelector> kept(selector(*editor));
    HeardSignals heard(*editor);
    connect(editor, &DBParamWidget::paramChanged, this, [&] {
        kept->setParent(nullptr);
        delete editor;
    });
    kept->setCurrentUid(8);
    QVERIFY(!editor);
    QVERIFY(!heard.take().contains("commit"));
    QCOMPARE(kept->currentUid(), 8u);
}

QTEST_MAIN(TestDBObjSelectorWidget)
#include "tst_dbobjselectorwidget.moc"
