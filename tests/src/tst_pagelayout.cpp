#include "installation.h"
#include "loggingrules.h"
#include "messages.h"
#include "pageinspection.h"

#include <vxsettings/dbcheckboxwidget.h>
#include <vxsettings/dblineeditwidget.h>
#include <vxsettings/dbspinboxwidget.h>

#include <QCheckBox>
#include <QLineEdit>

#include <initializer_list>

using namespace db::database;
using installation::Page;

namespace {

const QString longText = QStringLiteral("Требование количества ладоней для бесконтактных вен и ещё нескольких слов");

int textLines(const QWidget *widget)
{
    return widget->height() / widget->fontMetrics().lineSpacing();
}

/// The colour of the middle of an empty text field, where it shows no text.
QRgb ground(QWidget *input)
{
    return input->grab().toImage().pixel(input->width() / 2, input->height() / 2);
}
} // namespace

class TestPageLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void hostNameFitsItsField();
    void fieldsOfARowStandInLine();
    void captionBelowIsNarrow();
    void captionIsAsWideAsTheFieldAboveIt();
    void checkBoxWrapsALongText();
    void wrappedCheckBoxIsClickedAnywhereOnItsText();
    void shortCheckBoxLooksAsEver();
    void readOnlyTextLooksReadOnly();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
    installation::Stored m_installation;
};

void TestPageLayout::hostNameFitsItsField()
{
    Page page(8);
    page.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page.window));
    const auto *host = inspect::input<QLineEdit>(&page.window, MOBILE_HOST);
    QVERIFY(host->width() >= 300);
    QCOMPARE(host->width(), inspect::input<QLineEdit>(&page.window, LOCKER_ACCESS_TOKEN)->width());
}

void TestPageLayout::fieldsOfARowStandInLine()
{
    Page page(3);
    inspect::editor(&page.window, ENROLL_USE_DB_SETTINGS)->setName(longText);
    page.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page.window));
    const auto top = [&](const QString &key) {
        return inspect::editor(&page.window, key)->centralWidget()->mapTo(&page.window, QPoint()).y();
    };
    QTRY_COMPARE(top(ENROLL_USE_DB_SETTINGS), top(ENROLL_AUTO_CHECK_TEMPLATES_TYPE));
    QTRY_COMPARE(top(ENROLL_USE_DB_SETTINGS), top(ENROLL_MANUAL_CHECK_TEMPLATES_TYPE));
}

void TestPageLayout::captionBelowIsNarrow()
{
    DBSpinBoxWidget editor(nullptr);
    editor.setName(longText);
    editor.setLabelPosition(LabelPosition::Bottom);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    const auto *label = editor.findChild<QLabel *>("bottomLabel");
    QVERIFY(label->width() <= 26 * label->fontMetrics().averageCharWidth());
    QVERIFY(label->height() >= label->heightForWidth(label->width()));

    const QString oneWord = QString(60, QChar(u'щ'));
    editor.setName(oneWord);
    QTRY_VERIFY(label->width() >= label->fontMetrics().horizontalAdvance(oneWord));
}

void TestPageLayout::captionIsAsWideAsTheFieldAboveIt()
{
    DBLineEditWidget editor(nullptr);
    editor.setName(longText);
    editor.setLabelPosition(LabelPosition::Bottom);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    const auto *label = editor.findChild<QLabel *>("bottomLabel");
    QCOMPARE(label->width(), editor.centralWidget()->width());
    QVERIFY(label->height() >= label->heightForWidth(label->width()));

    editor.setName("Пароль по умолчанию");
    QTRY_COMPARE(textLines(label), 1);
    QVERIFY(label->width() < editor.centralWidget()->width());
}

void TestPageLayout::checkBoxWrapsALongText()
{
    DBCheckBoxWidget editor(nullptr);
    editor.setName(longText);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    auto *box = qobject_cast<QCheckBox *>(editor.centralWidget());
    QCOMPARE(box->text(), longText);
    QCOMPARE(textLines(box), 2);
    QVERIFY(box->width() < box->fontMetrics().horizontalAdvance(longText) * 3 / 4);

    editor.setName("short");
    QTRY_COMPARE(textLines(box), 1);
}

void TestPageLayout::wrappedCheckBoxIsClickedAnywhereOnItsText()
{
    DBCheckBoxWidget editor(nullptr);
    editor.setName(longText);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    auto *box = qobject_cast<QCheckBox *>(editor.centralWidget());
    const int line = box->fontMetrics().lineSpacing();
    QTest::mouseClick(box, Qt::LeftButton, {}, {60, box->height() / 2 - line / 2});
    QVERIFY(box->isChecked());
    QTest::mouseClick(box, Qt::LeftButton, {}, {60, box->height() / 2 + line / 2});
    QVERIFY(!box->isChecked());
}

void TestPageLayout::shortCheckBoxLooksAsEver()
{
    DBCheckBoxWidget editor(nullptr);
    editor.setName("Запрещать одинаковые");
    QCheckBox plain("Запрещать одинаковые", &editor);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    auto *box = qobject_cast<QCheckBox *>(editor.centralWidget());
    QCOMPARE(box->sizeHint(), plain.sizeHint());
    plain.resize(box->size());
    QCOMPARE(box->grab().toImage(), plain.grab().toImage());
}

void TestPageLayout::readOnlyTextLooksReadOnly()
{
    QWidget page;
    DBLineEditWidget line(&page);
    DBSpinBoxWidget number(&page);
    page.setAutoFillBackground(true);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    for (DBParamWidget *editor : std::initializer_list<DBParamWidget *>{&line, &number}) {
        QWidget *input = editor->centralWidget();
        const QPalette before = input->palette();
        editor->setReadOnly(true);
        QCOMPARE(input->palette().color(QPalette::Base).alpha(), 0);
        QCOMPARE(input->palette().color(QPalette::Text), before.color(QPalette::Text));
        editor->setReadOnly(false);
        QCOMPARE(input->palette(), before);
    }
    const QRgb editable = ground(line.centralWidget());
    line.setReadOnly(true);
    QVERIFY(page.palette().color(QPalette::Base) != page.palette().color(QPalette::Window));
    QVERIFY(ground(line.centralWidget()) != editable);
}

QTEST_MAIN(TestPageLayout)
#include "tst_pagelayout.moc"
