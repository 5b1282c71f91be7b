#include <vxwidgets/passwordedit.h>

#include "brackettranslator.h"
#include "messages.h"

#include <QAction>
#include <QIcon>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

class TestPasswordEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }
    void isMaskedFromTheStart();
    void eyeIsMadeOnFirstShow();
    void eyeRevealsAndMasks();
    void masksAgain_data();
    void masksAgain();
    void eyeIsGoneUnlessEditable_data();
    void eyeIsGoneUnlessEditable();
    void hidingBeforeTheFirstShowIsHarmless();
    void revealingIsNoEdit();
    void undoBringsNothingToLight();
    void revealedTextStaysSecretToInputMethods();
    void eyeFollowsThePalette();
    void eyeOfAnEditDisabledAtFirstIsNotDimmed();
    void textsFollowTheLanguage();
};

namespace {

QToolButton *eye(const PasswordEdit &edit)
{
    return edit.findChild<QToolButton *>();
}

void clickEye(const PasswordEdit &edit)
{
    QTest::mouseClick(eye(edit), Qt::LeftButton);
}

/// An edit on screen.
struct ShownEdit
{
    explicit ShownEdit(const QString &text = QStringLiteral("secret"))
    {
        edit.setText(text);
        edit.show();
        exposed = QTest::qWaitForWindowExposed(&edit);
    }

    PasswordEdit edit;
    bool exposed;
};

/// The colour of the most opaque pixel.
QColor colorOf(const QIcon &icon)
{
    const QImage image = icon.pixmap(16, 16).toImage().convertToFormat(QImage::Format_ARGB32);
    QColor strongest(Qt::transparent);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (color.alpha() > strongest.alpha())
                strongest = color;
        }
    }
    return strongest;
}
} // namespace

void TestPasswordEdit::isMaskedFromTheStart()
{
    PasswordEdit edit;
    edit.setText("secret");
    QCOMPARE(edit.echoMode(), QLineEdit::Password);
    QCOMPARE(edit.text(), QStringLiteral("secret"));
    QVERIFY(!edit.displayText().contains('s'));
    QVERIFY(edit.inputMethodHints() & Qt::ImhHiddenText);
    QVERIFY(edit.inputMethodHints() & Qt::ImhSensitiveData);
}

void TestPasswordEdit::eyeIsMadeOnFirstShow()
{
    PasswordEdit edit;
    QVERIFY(!eye(edit));

    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    QVERIFY(eye(edit)->isVisible());
    edit.hide();
    edit.show();
    QCOMPARE(edit.actions().count(), 1);
}

void TestPasswordEdit::eyeRevealsAndMasks()
{
    ShownEdit shown;
    QVERIFY(shown.exposed);
    const QAction *reveal = shown.edit.actions().constFirst();
    const qint64 openEye = reveal->icon().cacheKey();
    QCOMPARE(reveal->text(), QStringLiteral("Показать пароль"));
    QCOMPARE(eye(shown.edit)->toolTip(), QStringLiteral("Показать пароль"));

    clickEye(shown.edit);
    QCOMPARE(shown.edit.echoMode(), QLineEdit::Normal);
    QCOMPARE(shown.edit.displayText(), QStringLiteral("secret"));
    QCOMPARE(reveal->text(), QStringLiteral("Скрыть пароль"));
    QVERIFY(reveal->icon().cacheKey() != openEye);

    clickEye(shown.edit);
    QCOMPARE(shown.edit.echoMode(), QLineEdit::Password);
    QCOMPARE(reveal->text(), QStringLiteral("Показать пароль"));
}

using Change = void (*)(PasswordEdit &);
Q_DECLARE_METATYPE(Change)

void TestPasswordEdit::masksAgain_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("hidden") << Change([](PasswordEdit &edit) { edit.hide(); });
    QTest::newRow("disabled") << Change([](PasswordEdit &edit) { edit.setEnabled(false); });
    QTest::newRow("made read-only") << Change([](PasswordEdit &edit) { edit.setReadOnly(true); });
}

void TestPasswordEdit::masksAgain()
{
    QFETCH(Change, change);
    ShownEdit shown;
    QVERIFY(shown.exposed);
    clickEye(shown.edit);
    QCOMPARE(shown.edit.echoMode(), QLineEdit::Normal);

    change(shown.edit);
    QCOMPARE(shown.edit.echoMode(), QLineEdit::Password);

    shown.edit.setEnabled(true);
    shown.edit.setReadOnly(false);
    shown.edit.show();
    QCOMPARE(shown.edit.echoMode(), QLineEdit::Password);
    clickEye(shown.edit);
    QCOMPARE(shown.edit.echoMode(), QLineEdit::Normal);
}

void TestPasswordEdit::eyeIsGoneUnlessEditable_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("readOnly");
    QTest::addColumn<bool>("eyeVisible");
    QTest::newRow("editable") << true << false << true;
    QTest::newRow("disabled") << false << false << false;
    QTest::newRow("read-only") << true << true << false;
    QTest::newRow("disabled and read-only") << false << true << false;
}

void TestPasswordEdit::eyeIsGoneUnlessEditable()
{
    QFETCH(bool, enabled);
    QFETCH(bool, readOnly);
    PasswordEdit before;
    before.setEnabled(enabled);
    before.setReadOnly(readOnly);
    before.show();
    QVERIFY(QTest::qWaitForWindowExposed(&before));
    QTEST(eye(before)->isVisible(), "eyeVisible");
    QCOMPARE(before.echoMode(), QLineEdit::Password);

    ShownEdit after;
    QVERIFY(after.exposed);
    after.edit.setEnabled(enabled);
    after.edit.setReadOnly(readOnly);
    QTEST(eye(after.edit)->isVisible(), "eyeVisible");
}

void TestPasswordEdit::hidingBeforeTheFirstShowIsHarmless()
{
    PasswordEdit edit;
    edit.hide();
    edit.setEnabled(false);
    edit.setEnabled(true);
    QCOMPARE(edit.echoMode(), QLineEdit::Password);
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    QVERIFY(eye(edit)->isVisible());
}

void TestPasswordEdit::revealingIsNoEdit()
{
    ShownEdit shown;
    QVERIFY(shown.exposed);
    shown.edit.setCursorPosition(2);
    QSignalSpy changed(&shown.edit, &QLineEdit::textChanged);
    QSignalSpy edited(&shown.edit, &QLineEdit::textEdited);

    clickEye(shown.edit);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(edited.count(), 0);
    QVERIFY(!shown.edit.isModified());
    QCOMPARE(shown.edit.cursorPosition(), 2);

    QTest::keyClicks(&shown.edit, "X");
    QCOMPARE(edited.count(), 1);
    clickEye(shown.edit);
    QCOMPARE(changed.count(), 1);
    QVERIFY(shown.edit.isModified());
    QCOMPARE(shown.edit.text(), QStringLiteral("seXcret"));
}

void TestPasswordEdit::undoBringsNothingToLight()
{
    ShownEdit shown(QString{});
    QVERIFY(shown.exposed);
    QTest::keyClicks(&shown.edit, "old");
    shown.edit.selectAll();
    QTest::keyClicks(&shown.edit, "new");

    clickEye(shown.edit);
    QVERIFY(!shown.edit.isUndoAvailable());
    QTest::keySequence(&shown.edit, QKeySequence::Undo);
    QCOMPARE(shown.edit.text(), QStringLiteral("new"));

    QTest::keyClicks(&shown.edit, "er");
    QTest::keySequence(&shown.edit, QKeySequence::Undo);
    QCOMPARE(shown.edit.text(), QStringLiteral("new"));
}

void TestPasswordEdit::revealedTextStaysSecretToInputMethods()
{
    ShownEdit shown;
    QVERIFY(shown.exposed);
    clickEye(shown.edit);
    QVERIFY(shown.edit.inputMethodHints() & Qt::ImhSensitiveData);
    QVERIFY(shown.edit.inputMethodHints() & Qt::ImhNoPredictiveText);
    QVERIFY(!(shown.edit.inputMethodHints() & Qt::ImhHiddenText));
}

void TestPasswordEdit::eyeFollowsThePalette()
{
    ShownEdit shown;
    QVERIFY(shown.exposed);
    for (const QColor &color : {QColor(Qt::red), QColor(Qt::white)}) {
        QPalette palette = shown.edit.palette();
        palette.setColor(QPalette::Text, color);
        shown.edit.setPalette(palette);
        const QColor drawn = colorOf(shown.edit.actions().constFirst()->icon());
        QVERIFY(drawn.alpha() > 200);
        QCOMPARE(drawn.rgb(), color.rgb());
    }
}

void TestPasswordEdit::eyeOfAnEditDisabledAtFirstIsNotDimmed()
{
    PasswordEdit edit;
    QPalette palette;
    palette.setColor(QPalette::Text, Qt::blue);
    palette.setColor(QPalette::Disabled, QPalette::Text, Qt::red);
    edit.setPalette(palette);
    edit.setEnabled(false);
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));

    edit.setEnabled(true);
    QVERIFY(eye(edit)->isVisible());
    QCOMPARE(colorOf(edit.actions().constFirst()->icon()).rgb(), QColor(Qt::blue).rgb());
}

void TestPasswordEdit::textsFollowTheLanguage()
{
    ShownEdit shown;
    QVERIFY(shown.exposed);
    BracketTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QTRY_COMPARE(shown.edit.actions().constFirst()->text(), QStringLiteral("[Показать пароль]"));
    QVERIFY(QCoreApplication::removeTranslator(&translator));
    QTRY_COMPARE(shown.edit.actions().constFirst()->text(), QStringLiteral("Показать пароль"));
}

QTEST_MAIN(TestPasswordEdit)
#include "tst_passwordedit.moc"
