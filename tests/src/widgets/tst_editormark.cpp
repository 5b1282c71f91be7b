#include "messages.h"

#include <vxsettings/dbcheckboxwidget.h>
#include <vxsettings/dblineeditwidget.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

using Mark = DBParamWidget::Mark;

Q_DECLARE_METATYPE(DBParamWidget::Mark)
Q_DECLARE_METATYPE(LabelPosition)

namespace {

const QString longProblem =
    QStringLiteral("The shortest password must not be longer than the longest one. ").repeated(4);

QLabel *markOf(const DBParamWidget &editor)
{
    return editor.findChild<QLabel *>("mark");
}

QLabel *problemOf(const DBParamWidget &editor)
{
    return editor.findChild<QLabel *>("problemLabel");
}

/// Where everything is that was there before there was a mark.
QVector<QRect> places(const DBParamWidget &editor)
{
    QVector<QRect> places{editor.geometry()};
    for (const QWidget *part : editor.findChildren<QWidget *>()) {
        if (part->isVisible() && part->objectName() != "mark")
            places << QRect(part->mapTo(&editor, QPoint()), part->size());
    }
    return places;
}

/// How far the strongest pixel of the mark stands out from the page, 0 to 255.
int contrast(DBParamWidget &editor)
{
    const QImage image = editor.grab(markOf(editor)->geometry()).toImage();
    const QColor ground = editor.palette().color(QPalette::Window);
    int strongest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            strongest = qMax(strongest, qAbs(qGray(image.pixel(x, y)) - qGray(ground.rgb())));
    }
    return strongest;
}

/// An application palette for its lifetime.
class AppliedPalette
{
public:
    explicit AppliedPalette(const QPalette &palette)
        : m_previous(QApplication::palette())
    {
        QApplication::setPalette(palette);
    }
    ~AppliedPalette() { QApplication::setPalette(m_previous); }
    Q_DISABLE_COPY(AppliedPalette)

private:
    QPalette m_previous;
};

QPalette darkPalette()
{
    return QPalette(Qt::white, QColor("#3c3f41"), QColor("#55585c"), QColor("#141517"), QColor("#2f3134"), Qt::white,
                    Qt::white, QColor("#1e1f22"), QColor("#2b2d30"));
}
} // namespace

class TestEditorMark : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void nothingIsThereBeforeItIsNeeded();
    void markMovesNothing_data();
    void markMovesNothing();
    void markOfACheckBox();
    void markComesAndGoes();
    void wordsAreThePlainToolTip();
    void everyMarkStandsOut_data();
    void everyMarkStandsOut();
    void marksDifferInShape();
    void markSetBeforeTheEditorIsShown();
    void markStaysBesideAnInputThatMoves();
    void markDoesNotTakeClicksOrTheFocus();

    void problemTakesTheLinesItNeeds_data() { markMovesNothing_data(); }
    void problemTakesTheLinesItNeeds();
    void problemAsksForNoWidth_data() { markMovesNothing_data(); }
    void problemAsksForNoWidth();
    void problemIsPlainText();
    void problemCanBeReadInEveryPalette();
    void shorterProblemGivesItsSpaceBack();
};

void TestEditorMark::nothingIsThereBeforeItIsNeeded()
{
    DBLineEditWidget editor(nullptr);
    const int before = editor.children().count();
    editor.setMark(Mark::None);
    editor.setProblem({});
    QCOMPARE(editor.children().count(), before);
    QCOMPARE(editor.mark(), Mark::None);
    QCOMPARE(editor.problem(), QString());
}

void TestEditorMark::markMovesNothing_data()
{
    QTest::addColumn<LabelPosition>("position");
    QTest::newRow("no caption") << LabelPosition::None;
    QTest::newRow("left") << LabelPosition::Left;
    QTest::newRow("top") << LabelPosition::Top;
    QTest::newRow("right") << LabelPosition::Right;
    QTest::newRow("bottom") << LabelPosition::Bottom;
}

void TestEditorMark::markMovesNothing()
{
    QFETCH(LabelPosition, position);
    DBLineEditWidget editor(nullptr);
    editor.setName("A caption that is long enough to need a second line");
    editor.setLabelPosition(position);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    QCoreApplication::processEvents();
    const QVector<QRect> before = places(editor);
    const QSize hint = editor.sizeHint();

    editor.setMark(Mark::Changed, "words");
    QCoreApplication::processEvents();
    QCOMPARE(places(editor), before);
    QCOMPARE(editor.sizeHint(), hint);
    QVERIFY(markOf(editor)->isVisible());
    const QRect mark = markOf(editor)->geometry();
    QVERIFY(editor.rect().contains(mark));
    QVERIFY(mark.right() < editor.layout()->contentsMargins().left());
    const QWidget *input = editor.centralWidget();
    QVERIFY(qAbs(mark.center().y() - input->mapTo(&editor, input->rect().center()).y()) <= 1);
}

void TestEditorMark::markOfACheckBox()
{
    DBCheckBoxWidget editor(nullptr);
    editor.setName("Yes or no");
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    editor.setMark(Mark::Conflict, "words");
    QVERIFY(!markOf(editor)->geometry().intersects(editor.centralWidget()->parentWidget()->geometry()));
    QVERIFY(contrast(editor) > 60);
}

void TestEditorMark::markComesAndGoes()
{
    DBLineEditWidget editor(nullptr);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    editor.setMark(Mark::Problem, "words");
    QCOMPARE(editor.mark(), Mark::Problem);
    editor.setMark(Mark::None, "left over");
    QCOMPARE(editor.mark(), Mark::None);
    QVERIFY(!markOf(editor)->isVisible());
    QCOMPARE(markOf(editor)->toolTip(), QString());
    editor.setMark(Mark::Note);
    QVERIFY(markOf(editor)->isVisible());
    QCOMPARE(editor.findChildren<QLabel *>("mark").count(), 1);
}

void TestEditorMark::wordsAreThePlainToolTip()
{
    DBLineEditWidget editor(nullptr);
    editor.setMark(Mark::Changed, "Stored: <b>1</b> & 2");
    QCOMPARE(markOf(editor)->toolTip(), QString("<span>Stored: &lt;b&gt;1&lt;/b&gt; &amp; 2</span>"));
    QCOMPARE(markOf(editor)->accessibleName(), QString("Stored: <b>1</b> & 2"));
}

void TestEditorMark::everyMarkStandsOut_data()
{
    QTest::addColumn<Mark>("mark");
    QTest::newRow("changed") << Mark::Changed;
    QTest::newRow("problem") << Mark::Problem;
    QTest::newRow("conflict") << Mark::Conflict;
    QTest::newRow("note") << Mark::Note;
}

void TestEditorMark::everyMarkStandsOut()
{
    QFETCH(Mark, mark);
    DBLineEditWidget editor(nullptr);
    editor.setMark(mark, "words");
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    const QImage light = editor.grab(markOf(editor)->geometry()).toImage();
    QVERIFY2(contrast(editor) > 60, qPrintable(QString::number(contrast(editor))));
    {
        const AppliedPalette dark(darkPalette());
        QCoreApplication::processEvents();
        QVERIFY2(contrast(editor) > 60, qPrintable(QString::number(contrast(editor))));
    }
    QCoreApplication::processEvents();
    QCOMPARE(editor.grab(markOf(editor)->geometry()).toImage(), light);
}

void TestEditorMark::marksDifferInShape()
{
    DBLineEditWidget editor(nullptr);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    QVector<QImage> shapes;
    for (const Mark mark : {Mark::Changed, Mark::Problem, Mark::Conflict, Mark::Note}) {
        editor.setMark(mark);
        const QImage shape = editor.grab(markOf(editor)->geometry()).toImage().convertToFormat(QImage::Format_Mono);
        QVERIFY(!shapes.contains(shape));
        shapes << shape;
    }
}

void TestEditorMark::markSetBeforeTheEditorIsShown()
{
    QWidget page;
    auto *editor = new DBLineEditWidget(&page);
    (new QVBoxLayout(&page))->addWidget(editor);
    editor->setMark(Mark::Changed, "words");
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    const QWidget *input = editor->centralWidget();
    QVERIFY(markOf(*editor)->isVisible());
    QVERIFY(qAbs(markOf(*editor)->geometry().center().y() - input->mapTo(editor, input->rect().center()).y()) <= 1);
}

void TestEditorMark::markStaysBesideAnInputThatMoves()
{
    DBLineEditWidget editor(nullptr);
    editor.setName("caption");
    editor.setMark(Mark::Changed, "words");
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    const auto distance = [&] {
        const QWidget *input = editor.centralWidget();
        return qAbs(markOf(editor)->geometry().center().y() - input->mapTo(&editor, input->rect().center()).y());
    };
    for (const LabelPosition position : {LabelPosition::Top, LabelPosition::Bottom, LabelPosition::Left}) {
        editor.setLabelPosition(position);
        QTRY_VERIFY(distance() <= 1);
    }
    editor.resize(500, 300);
    QTRY_VERIFY(distance() <= 1);
    editor.setProblem(longProblem);
    QTRY_VERIFY(distance() <= 1);
}

void TestEditorMark::markDoesNotTakeClicksOrTheFocus()
{
    QWidget page;
    auto *editor = new DBLineEditWidget(&page);
    (new QVBoxLayout(&page))->addWidget(editor);
    page.show();
    QApplication::setActiveWindow(&page);
    QVERIFY(QTest::qWaitForWindowActive(&page));
    editor->setMark(Mark::Problem, "words");
    editor->setProblem("problem");
    editor->setFocus();
    QTest::mouseClick(markOf(*editor), Qt::LeftButton);
    QTest::mouseClick(problemOf(*editor), Qt::LeftButton);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(editor->centralWidget()->hasFocus());
}

void TestEditorMark::problemTakesTheLinesItNeeds()
{
    QFETCH(LabelPosition, position);
    QWidget page;
    auto *editor = new DBLineEditWidget(&page);
    editor->setName("caption");
    editor->setLabelPosition(position);
    auto *layout = new QVBoxLayout(&page);
    layout->addWidget(editor);
    layout->addStretch(1);
    page.resize(500, 600);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    const QVector<QRect> before = places(*editor);

    editor->setProblem(longProblem);
    const QLabel *problem = problemOf(*editor);
    QTRY_VERIFY(problem->isVisible() && problem->height() >= problem->heightForWidth(problem->width()));
    QVERIFY(problem->height() > 2 * problem->fontMetrics().lineSpacing());
    QTRY_VERIFY(editor->rect().contains(problem->geometry()));
    const QWidget *input = editor->centralWidget();
    QVERIFY(problem->y() > input->mapTo(editor, input->rect().bottomLeft()).y());
    QCOMPARE(page.width(), 500);

    editor->setProblem({});
    QVERIFY(!problem->isVisible());
    QTRY_COMPARE(places(*editor), before);
}

void TestEditorMark::problemAsksForNoWidth()
{
    QFETCH(LabelPosition, position);
    DBLineEditWidget editor(nullptr);
    editor.setName("caption");
    editor.setLabelPosition(position);
    editor.resize(600, 100);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    const int before = editor.minimumSizeHint().width();
    const QPoint input = editor.centralWidget()->mapTo(&editor, QPoint());
    editor.setProblem(QString(200, 'x'));
    QCoreApplication::processEvents();
    QCOMPARE(editor.minimumSizeHint().width(), before);
    QCOMPARE(editor.centralWidget()->mapTo(&editor, QPoint()).x(), input.x());
}

void TestEditorMark::problemIsPlainText()
{
    DBLineEditWidget editor(nullptr);
    editor.setProblem("<b>1</b> & 2");
    QCOMPARE(editor.problem(), QString("<b>1</b> & 2"));
    QCOMPARE(problemOf(editor)->textFormat(), Qt::PlainText);
}

void TestEditorMark::problemCanBeReadInEveryPalette()
{
    DBLineEditWidget editor(nullptr);
    editor.setProblem("problem");
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    const auto difference = [&] {
        const QPalette palette = problemOf(editor)->palette();
        return qGray(palette.color(QPalette::WindowText).rgb()) - qGray(palette.color(QPalette::Window).rgb());
    };
    QVERIFY(difference() < -100);
    {
        const AppliedPalette dark(darkPalette());
        QTRY_VERIFY(difference() > 100);
    }
    QTRY_VERIFY(difference() < -100);
}

void TestEditorMark::shorterProblemGivesItsSpaceBack()
{
    QWidget page;
    auto *editor = new DBLineEditWidget(&page);
    auto *layout = new QVBoxLayout(&page);
    layout->addWidget(editor);
    layout->addStretch(1);
    page.resize(500, 600);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    editor->setProblem("short");
    QTRY_VERIFY(problemOf(*editor)->isVisible());
    QCoreApplication::processEvents();
    const int height = editor->height();
    editor->setProblem(longProblem);
    QTRY_VERIFY(editor->height() > height);
    editor->setProblem("short");
    QTRY_COMPARE(editor->height(), height);
}

QTEST_MAIN(TestEditorMark)
#include "tst_editormark.moc"
