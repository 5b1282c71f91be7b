#include "searchfield.h"

#include "messages.h"
#include "searchresults.h"
#include "translation.h"

#include <vxsettings/dbkeys.h>

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

using namespace db::database;

class TestSearchField : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void resultsAppearWhileOneTypes();
    void pagesAreTold();
    void theKeyboardChoosesAResult();
    void theMouseChoosesAResult();
    void escapeEmptiesTheLine();
    void controlFLeadsToTheLine();
    void resultsGoWithTheFocusAndComeBack();
    void enterWithoutResultsChoosesNothing();
    void aFilterShowsAllThatItLetsThrough();
    void aFilterNarrowsASearch();
    void aFilterFollowsWhatIsChanged();
    void resultsAreAsWideAsTheirTexts();
    void resultsStayInsideTheWindow();
    void aScreenReaderIsTold();
    void anotherLanguage();
};

Q_DECLARE_METATYPE(SettingAddress)

namespace {

QStringList rows(const QListWidget &list)
{
    QStringList rows;
    for (int row = 0; row < list.count(); ++row)
        rows << list.item(row)->text();
    return rows;
}

/// A window with a search field and an editor.
class Window : public QWidget
{
public:
    Window()
        : field(search, this)
        , editor(new QLineEdit(this))
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(&field);
        layout->addWidget(editor);
        layout->addStretch(1);
        resize(600, 400);
        show();
        activateWindow();
        editor->setFocus();
    }

    bool isReady() { return QTest::qWaitForWindowActive(this) && editor->hasFocus(); }
    QLineEdit *line() const { return field.findChild<QLineEdit *>("searchLine"); }
    SearchResults *results() const { return findChild<SearchResults *>(); }
    QToolButton *filter(const QString &name) const { return field.findChild<QToolButton *>(name); }

    void type(const QString &text)
    {
        field.activate();
        for (const QChar c : text) // keyClicks() knows ASCII only
            QTest::sendKeyEvent(QTest::Click, line(), Qt::Key_unknown, c, Qt::NoModifier);
    }

    SettingsSearch search;
    SearchField field;
    QLineEdit *editor;
};

QString chosen(const QSignalSpy &spy)
{
    return spy.count() == 1 ? spy.first().first().value<SettingAddress>().text() : QString();
}
} // namespace

void TestSearchField::initTestCase()
{
    failOnUnexpectedMessages();
    qRegisterMetaType<SettingAddress>("SettingAddress");
}

void TestSearchField::resultsAppearWhileOneTypes()
{
    Window window;
    QVERIFY(window.isReady());
    QVERIFY(window.results()->isHidden());
    window.type("хос");
    QVERIFY(window.results()->isVisible());
    QCOMPARE(rows(*window.results()), QStringList{"Хост"});
    QTest::keyClicks(window.line(), "q");
    QVERIFY(window.results()->isVisible());
    QCOMPARE(rows(*window.results()), QStringList{"Ничего не найдено"});
    QTest::keyClick(window.line(), Qt::Key_Backspace);
    QCOMPARE(rows(*window.results()), QStringList{"Хост"});
    QVERIFY(window.line()->hasFocus());
}

void TestSearchField::pagesAreTold()
{
    Window window;
    QVERIFY(window.isReady());
    QMap<DBGroups, int> pages;
    connect(&window.field, &SearchField::resultsChanged, [&](const QMap<DBGroups, int> &hits) { pages = hits; });
    window.type("палец");
    QCOMPARE(pages, (QMap<DBGroups, int>{{DBGroups::FingerprintScanning, 5}}));
    QTest::keyClick(window.line(), Qt::Key_Escape);
    QCOMPARE(pages, (QMap<DBGroups, int>{}));
}

void TestSearchField::theKeyboardChoosesAResult()
{
    Window window;
    QVERIFY(window.isReady());
    QSignalSpy spy(&window.field, &SearchField::resultChosen);
    window.type("палец");
    QTest::keyClick(window.line(), Qt::Key_Down);
    QTest::keyClick(window.line(), Qt::Key_Down);
    QTest::keyClick(window.line(), Qt::Key_Up);
    const QString second = window.search.find("палец").at(1).address.text();
    QTest::keyClick(window.line(), Qt::Key_Return);
    QCOMPARE(chosen(spy), second);
    QVERIFY(window.results()->isHidden());
    QCOMPARE(window.line()->text(), QString("палец"));

    // The list comes back where it was left.
    QTest::keyClick(window.line(), Qt::Key_Down);
    QVERIFY(window.results()->isVisible());
    QCOMPARE(window.results()->currentRow(), 1);
}

void TestSearchField::theMouseChoosesAResult()
{
    Window window;
    QVERIFY(window.isReady());
    QSignalSpy spy(&window.field, &SearchField::resultChosen);
    window.type("порт");
    SearchResults *results = window.results();
    QTest::mouseClick(results->viewport(), Qt::LeftButton, {}, results->visualItemRect(results->item(0)).center());
    QCOMPARE(chosen(spy), MOBILE_PORT);
    QVERIFY(results->isHidden());
    QVERIFY(window.line()->hasFocus());
}

void TestSearchField::escapeEmptiesTheLine()
{
    Window window;
    QVERIFY(window.isReady());
    window.type("порт");
    QTest::keyClick(window.line(), Qt::Key_Escape);
    QCOMPARE(window.line()->text(), QString());
    QVERIFY(window.results()->isHidden());
}

void TestSearchField::controlFLeadsToTheLine()
{
    Window window;
    QVERIFY(window.isReady());
    window.line()->setText("порт");
    QVERIFY(window.results()->isHidden());
    QTest::keyClick(window.editor, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(window.line()->hasFocus());
    QCOMPARE(window.line()->selectedText(), QString("порт"));
    QTRY_VERIFY(window.results()->isVisible());
}

void TestSearchField::resultsGoWithTheFocusAndComeBack()
{
    Window window;
    QVERIFY(window.isReady());
    window.type("порт");
    window.editor->setFocus();
    QVERIFY(window.results()->isHidden());
    window.line()->setFocus();
    QTRY_VERIFY(window.results()->isVisible());
}

void TestSearchField::enterWithoutResultsChoosesNothing()
{
    Window window;
    QVERIFY(window.isReady());
    QSignalSpy spy(&window.field, &SearchField::resultChosen);
    QTest::keyClick(window.line(), Qt::Key_Return);
    window.type("крокодил");
    QTest::keyClick(window.line(), Qt::Key_Return);
    QTest::keyClick(window.line(), Qt::Key_Down);
    QCOMPARE(spy.count(), 0);
}

void TestSearchField::aFilterShowsAllThatItLetsThrough()
{
    Window window;
    QVERIFY(window.isReady());
    QVERIFY(!window.filter("problemFilter")->isEnabled());
    window.field.setProblematic({{MOBILE_PORT}, {"PT_PIN_STRENGTH", "min_len"}});
    QCOMPARE(window.filter("problemFilter")->text(), QString("С ошибками (2)"));
    QTest::mouseClick(window.filter("problemFilter"), Qt::LeftButton);
    QVERIFY(window.results()->isVisible());
    QCOMPARE(rows(*window.results()), (QStringList{"Сложность пин-кода: Минимальная длина", "Порт"}));
    QVERIFY(window.line()->hasFocus());

    QTest::mouseClick(window.filter("problemFilter"), Qt::LeftButton);
    QVERIFY(window.results()->isHidden());
}

void TestSearchField::aFilterNarrowsASearch()
{
    Window window;
    QVERIFY(window.isReady());
    window.field.setChanged({{ENROLL_FINGERPRINT_QUALITY}, {MOBILE_PORT}});
    window.type("палец");
    QCOMPARE(window.results()->count(), 5);
    QTest::mouseClick(window.filter("changedFilter"), Qt::LeftButton);
    QCOMPARE(rows(*window.results()), QStringList{"Требуемое качество шаблона отпечатка пальца"});
}

void TestSearchField::aFilterFollowsWhatIsChanged()
{
    Window window;
    QVERIFY(window.isReady());
    window.field.setChanged({{MOBILE_PORT}});
    QTest::mouseClick(window.filter("changedFilter"), Qt::LeftButton);
    window.field.setChanged({{MOBILE_HOST}, {MOBILE_PORT}});
    QCOMPARE(rows(*window.results()), (QStringList{"Хост", "Порт"}));
    window.field.setChanged({});
    QCOMPARE(window.results()->hitCount(), 0);
    QVERIFY(window.filter("changedFilter")->isEnabled()); // or it could not be released
    QTest::mouseClick(window.filter("changedFilter"), Qt::LeftButton);
    QVERIFY(!window.filter("changedFilter")->isEnabled());
}

void TestSearchField::resultsAreAsWideAsTheirTexts()
{
    Window window;
    QVERIFY(window.isReady());
    window.resize(1024, 700);
    window.type("палец");
    QVERIFY(rows(*window.results()).contains("Включить возможность сканирования по отпечатку пальца"));
    for (const QString &caption : rows(*window.results()))
        QVERIFY(window.results()->fontMetrics().horizontalAdvance(caption) < window.results()->viewport()->width());
}

void TestSearchField::resultsStayInsideTheWindow()
{
    Window window;
    QVERIFY(window.isReady());
    window.type("п");
    QVERIFY(window.results()->count() > 20);
    QVERIFY(window.rect().contains(window.results()->geometry()));
    QCOMPARE(window.results()->x(), window.field.x());
    window.resize(360, 240);
    QTRY_VERIFY(window.rect().contains(window.results()->geometry()));
}

void TestSearchField::aScreenReaderIsTold()
{
    Window window;
    QVERIFY(window.isReady());
    QCOMPARE(window.line()->accessibleName(), QString("Поиск настроек"));
    window.type("хост");
    QCOMPARE(window.line()->accessibleDescription(), QString("Найдено: 1. Хост, Настройки подключения"));
    QCOMPARE(window.results()->accessibleName(), QString("Результаты поиска"));
    window.type("таймаут");
    QCOMPARE(window.line()->accessibleDescription(),
             QString("Найдено: 1. Время бездействия пользователя (минут), Пользователи · таймаут"));
    window.type("крокодил");
    QCOMPARE(window.line()->accessibleDescription(), QString("Найдено: 0. Ничего не найдено"));
    QTest::keyClick(window.line(), Qt::Key_Escape);
    QCOMPARE(window.line()->accessibleDescription(), QString());
}

void TestSearchField::anotherLanguage()
{
    Window window;
    QVERIFY(window.isReady());
    window.type("порт");
    const InstalledTranslation english({{"SearchField", "Поиск настроек", "Search settings"},
                                        {"SearchResults", "Результаты поиска", "Search results"},
                                        {"QObject", "Порт", "Port"}});
    QTRY_COMPARE(rows(*window.results()), QStringList{"Port"});
    QCOMPARE(window.line()->text(), QString("порт"));
    QCOMPARE(window.line()->accessibleName(), QString("Search settings"));
    QCOMPARE(window.results()->accessibleName(), QString("Search results"));
}

QTEST_MAIN(TestSearchField)
#include "tst_searchfield.moc"
