#include "loggingrules.h"
#include "messages.h"
#include "ui_settingsform.h"

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbparamwidget.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFormBuilder>
#include <QIcon>
#include <QLocale>
#include <QPluginLoader>
#include <QSet>
#include <QSpinBox>
#include <QTest>
#include <QTranslator>
#include <QUiLoader>
#include <QVBoxLayout>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

using namespace db::database;

/// The plugin as Qt Designer and QUiLoader load it.
class TestSettingsWidgets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isDescribed_data() { widgets(); }
    void isDescribed();
    void speaksTheLanguageOfDesigner_data();
    void speaksTheLanguageOfDesigner();
    void nothingElseIsOffered();
    void isCreatedByItsName_data() { widgets(); }
    void isCreatedByItsName();
    void comesFromTheWidgetBox_data() { widgets(); }
    void comesFromTheWidgetBox();
    void aFormKeepsProperties_data() { widgets(); }
    void aFormKeepsProperties();
    void aFormNamesParameters_data();
    void aFormNamesParameters();
    void aParameterThatIsNoneChangesNothing();

private:
    static void widgets();
    QObject *pluginObject() const { return dynamic_cast<QObject *>(m_plugin); }
    QDesignerCustomWidgetInterface *offered(const QString &className) const;
    std::unique_ptr<QWidget> loaded(const QByteArray &form);

    const LoggingRules m_quiet{QStringLiteral("gui.lib.dbsettings.debug=false")};
    QUiLoader m_loader;
    QDesignerCustomWidgetCollectionInterface *m_plugin = nullptr;
};

namespace {

constexpr const char *classNames[] = {"DBCheckBoxWidget",    "DBComboBoxWidget",   "DBLineEditWidget",
                                      "DBPasswordWidget",    "DBSpinBoxWidget",    "DBButtonWidget",
                                      "DBObjSelectorWidget", "DependentWidgetsBox"};

/// Standard properties of every widget, with values that are none of the usual ones.
const QVector<QPair<const char *, QVariant>> properties = {
    {"objectName", "one"},     {"toolTip", "<b>Подсказка</b> & more"}, {"whatsThis", "Что это"},
    {"accessibleName", "Имя"}, {"minimumSize", QSize(720, 90)},        {"maximumSize", QSize(1200, 400)},
    {"enabled", false},        {"styleSheet", "color: #123456"},
};

/// Writes forms as Qt Designer does: what an offered widget is made of is none of the form's business.
class FormWriter : public QFormBuilder
{
public:
    QByteArray written(QWidget *form)
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        save(&buffer, form);
        return buffer.data();
    }

protected:
    /// Those that the test looks at: it does not know the types of some others, and warns of them.
    bool checkProperty(QObject *, const QString &name) const override
    {
        return std::any_of(properties.begin(), properties.end(),
                           [&name](const auto &property) { return name == QLatin1String(property.first); });
    }

    using QFormBuilder::createDom;
    DomWidget *createDom(QWidget *widget, DomWidget *parent, bool recursive) override
    {
        return QFormBuilder::createDom(widget, parent, recursive && !isOffered(widget));
    }
    DomLayout *createDom(QLayout *layout, DomLayout *parentLayout, DomWidget *parent) override
    {
        return isOffered(layout->parentWidget()) ? nullptr : QFormBuilder::createDom(layout, parentLayout, parent);
    }

private:
    static bool isOffered(const QWidget *widget)
    {
        return std::any_of(std::begin(classNames), std::end(classNames), [widget](const char *className) {
            return qstrcmp(widget->metaObject()->className(), className) == 0;
        });
    }
};
} // namespace

void TestSettingsWidgets::widgets()
{
    QTest::addColumn<QString>("className");
    for (const char *className : classNames)
        QTest::newRow(className) << className;
}

void TestSettingsWidgets::initTestCase()
{
    failOnUnexpectedMessages();
    const QDir folder(PLUGINS);
    QPluginLoader plugin(folder.filePath(folder.entryList(QDir::Files).value(0)));
    m_plugin = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(plugin.instance());
    QVERIFY2(m_plugin, qPrintable(plugin.errorString()));
    m_loader.clearPluginPaths();
    m_loader.addPluginPath(PLUGINS);
}

QDesignerCustomWidgetInterface *TestSettingsWidgets::offered(const QString &className) const
{
    for (QDesignerCustomWidgetInterface *widget : m_plugin->customWidgets()) {
        if (widget->name() == className)
            return widget;
    }
    throw std::runtime_error("not offered: " + className.toStdString());
}

std::unique_ptr<QWidget> TestSettingsWidgets::loaded(const QByteArray &form)
{
    QBuffer buffer;
    buffer.setData(form);
    buffer.open(QIODevice::ReadOnly);
    std::unique_ptr<QWidget> widget(m_loader.load(&buffer));
    if (!widget)
        throw std::runtime_error(m_loader.errorString().toStdString());
    return widget;
}

void TestSettingsWidgets::isDescribed()
{
    QFETCH(QString, className);
    const QDesignerCustomWidgetInterface *widget = offered(className);
    QVERIFY(!widget->toolTip().isEmpty());
    QVERIFY(widget->whatsThis().startsWith(widget->toolTip()));
    QVERIFY(!widget->group().isEmpty());
    QVERIFY(!widget->isContainer());
    QVERIFY2(QFileInfo::exists(INCLUDE "/" + widget->includeFile()), qPrintable(widget->includeFile()));
    const QImage icon = widget->icon().pixmap(24, 24).toImage();
    QCOMPARE(icon.size(), QSize(24, 24));
    for (const char *other : classNames) {
        if (other != className)
            QVERIFY2(offered(other)->icon().pixmap(24, 24).toImage() != icon, other);
    }
}

void TestSettingsWidgets::speaksTheLanguageOfDesigner_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QString>("caption");
    QTest::newRow("English") << QLocale("en_GB") << "Yes-or-no parameter"
                             << "Forbid identical digits in a row";
    QTest::newRow("Russian") << QLocale("ru_RU") << "Параметр «да или нет»"
                             << "Запрещать одинаковые цифры подряд";
}

void TestSettingsWidgets::speaksTheLanguageOfDesigner()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, toolTip);
    QFETCH(QString, caption);
    const QLocale before;
    QLocale::setDefault(locale);
    for (const char *className : classNames)
        offered(className)->initialize(nullptr);
    QLocale::setDefault(before);
    const QList<QTranslator *> installed = pluginObject()->findChildren<QTranslator *>();
    const QString told = offered("DBCheckBoxWidget")->toolTip();
    const std::unique_ptr<QWidget> widget(m_loader.createWidget("DBCheckBoxWidget"));
    widget->setProperty("parameter", json::DENY_EQUAL);
    const QString shown = qobject_cast<DBParamWidget *>(widget.get())->centralWidget()->property("text").toString();
    qDeleteAll(installed);

    QCOMPARE(installed.count(), 1);
    QCOMPARE(told, toolTip);
    QCOMPARE(shown, caption);
}

void TestSettingsWidgets::nothingElseIsOffered()
{
    QCOMPARE(m_plugin->customWidgets().count(), int(std::size(classNames)));
    const QStringList available = m_loader.availableWidgets();
    for (const char *className : classNames)
        QVERIFY2(available.contains(className), className);
}

void TestSettingsWidgets::isCreatedByItsName()
{
    QFETCH(QString, className);
    QWidget parent;
    const QWidget *widget = m_loader.createWidget(className, &parent, "one");
    QVERIFY(widget);
    QCOMPARE(QString(widget->metaObject()->className()), className);
    QCOMPARE(widget->parentWidget(), &parent);
    QCOMPARE(widget->objectName(), QString("one"));
}

void TestSettingsWidgets::comesFromTheWidgetBox()
{
    QFETCH(QString, className);
    const auto widget = loaded(offered(className)->domXml().toUtf8());
    QCOMPARE(QString(widget->metaObject()->className()), className);
    QVERIFY(widget->objectName().at(0).isLower());
    QCOMPARE(widget->objectName(), className.at(0).toLower() + className.mid(1));
    QCOMPARE(widget->property("parameter").isValid(), className.startsWith("DB"));
}

void TestSettingsWidgets::aFormKeepsProperties()
{
    QFETCH(QString, className);
    QWidget form;
    form.setObjectName("form");
    auto *layout = new QVBoxLayout(&form);
    QWidget *widget = m_loader.createWidget(className, &form);
    layout->addWidget(widget);
    for (const auto &[name, value] : properties)
        QVERIFY2(widget->setProperty(name, value), name);

    const QByteArray written = FormWriter().written(&form);
    QCOMPARE(written.count("<widget "), 2); // the form and this one
    const auto again = loaded(written);
    QCOMPARE(FormWriter().written(again.get()), written);
    const auto *found = again->findChild<QWidget *>("one");
    QVERIFY(found);
    QCOMPARE(QString(found->metaObject()->className()), className);
    QCOMPARE(again->layout()->count(), 1);
    for (const auto &[name, value] : properties)
        QVERIFY2(found->property(name) == widget->property(name) && found->property(name) == value, name);
}

void TestSettingsWidgets::aFormNamesParameters_data()
{
    QTest::addColumn<bool>("isCompiled");
    QTest::newRow("loaded when it is shown") << false;
    QTest::newRow("compiled by uic") << true;
}

/// settingsform.ui is as Qt Designer has saved it.
void TestSettingsWidgets::aFormNamesParameters()
{
    QFETCH(bool, isCompiled);
    QFile file(FORM);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const auto form = isCompiled ? std::make_unique<QWidget>() : loaded(file.readAll());
    if (isCompiled)
        Ui::SettingsForm().setupUi(form.get());

    QHash<QString, QWidget *> inputs;
    for (const DBParamWidget *editor : form->findChildren<DBParamWidget *>())
        inputs.insert(editor->key(), editor->centralWidget());
    QCOMPARE(QSet<QString>(inputs.keyBegin(), inputs.keyEnd()),
             QSet<QString>({"", json::DENY_EQUAL, CARD_VIEW_FORMAT, PASS_REQUEST_SEQUENCE, LOCKER_ACCESS_TOKEN,
                            USER_SESSION_TIMEOUT, DEFAULT_DEPARTMENT}));
    QCOMPARE(inputs[json::DENY_EQUAL]->property("text").toString(), QString("Запрещать одинаковые цифры подряд"));
    QCOMPARE(inputs[CARD_VIEW_FORMAT]->property("count").toInt(), 3);
    QCOMPARE(inputs[CARD_VIEW_FORMAT]->property("currentText").toString(), QString("Десятичный"));
    QCOMPARE(inputs[USER_SESSION_TIMEOUT]->property("maximum").toInt(), 1440);
    QCOMPARE(inputs[USER_SESSION_TIMEOUT]->property("specialValueText").toString(), QString("Без ограничений"));
    QVERIFY(form->findChild<QWidget *>("requestNumber")->toolTip().contains("${year}"));
    QVERIFY(form->findChild<DependentWidgetsBox *>("flags"));
}

/// While it is typed, for instance.
void TestSettingsWidgets::aParameterThatIsNoneChangesNothing()
{
    const std::unique_ptr<QWidget> widget(m_loader.createWidget("DBSpinBoxWidget"));
    auto *editor = qobject_cast<DBParamWidget *>(widget.get());
    QVERIFY(editor);
    for (const char *text : {"", "PT_MOBILE", "PT_MOBILE_PORT", "PT_MOBILE_PORTS", "pt_mobile_port"})
        editor->setProperty("parameter", text);
    QCOMPARE(editor->key(), MOBILE_PORT);
    QCOMPARE(qobject_cast<QSpinBox *>(editor->centralWidget())->maximum(), 65535);
}

QTEST_MAIN(TestSettingsWidgets)
#include "tst_settingswidgets.moc"
