#include "theme.h"

#include "messages.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPalette>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <initializer_list>

class TestTheme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void fromName();
    void textsAreReadable_data() { kinds(); }
    void textsAreReadable();
    void outlinesStandOut_data() { kinds(); }
    void outlinesStandOut();
    void theFocusStandsOut_data() { kinds(); }
    void theFocusStandsOut();
    void theFocusIsAroundAWholeRow();
    void aDarkDesktopIsFollowed();

private:
    static void kinds();
};

namespace {

/// As the accessibility guidelines measure it: 1 for equal colours, 21 for black on white.
qreal contrast(const QColor &a, const QColor &b)
{
    const auto luminance = [](const QColor &color) {
        const auto part = [](qreal value) {
            return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
    };
    const qreal lighter = std::max(luminance(a), luminance(b));
    const qreal darker = std::min(luminance(a), luminance(b));
    return (lighter + 0.05) / (darker + 0.05);
}

/// How much the most striking pixel of the widget's left edge differs from the window around it.
qreal contrastOfEdge(QWidget *widget)
{
    const QImage image = widget->grab().toImage();
    qreal most = 1;
    for (int x = 0; x < 4; ++x)
        most = std::max(most,
                        contrast(image.pixelColor(x, image.height() / 2), widget->palette().color(QPalette::Window)));
    return most;
}

/// How many pixels of the widget have the colour of what is chosen.
int highlighted(QWidget *widget)
{
    const QImage image = widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == widget->palette().color(QPalette::Highlight);
    }
    return count;
}
} // namespace

void TestTheme::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestTheme::fromName()
{
    QCOMPARE(Theme::fromName("light"), std::make_optional(Theme::Kind::Light));
    QCOMPARE(Theme::fromName("dark"), std::make_optional(Theme::Kind::Dark));
    QVERIFY(!Theme::fromName("Dark"));
    QVERIFY(!Theme::fromName(""));
}

void TestTheme::kinds()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("dark");
    QTest::newRow("light") << int(Theme::Kind::Light) << false;
    QTest::newRow("dark") << int(Theme::Kind::Dark) << true;
}

void TestTheme::textsAreReadable()
{
    QFETCH(int, kind);
    QFETCH(bool, dark);
    Theme::apply(Theme::Kind(kind));
    const QPalette palette = QApplication::palette();
    QCOMPARE(palette.color(QPalette::Window).lightness() < 128, dark);

    const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
        {QPalette::WindowText, QPalette::Window}, {QPalette::Text, QPalette::Base},
        {QPalette::ButtonText, QPalette::Button}, {QPalette::ToolTipText, QPalette::ToolTipBase},
        {QPalette::Link, QPalette::Window},
    };
    for (const auto &[text, background] : pairs) {
        const qreal found = contrast(palette.color(text), palette.color(background));
        QVERIFY2(found >= 4.5, qPrintable(QString("%1 on %2: %3").arg(text).arg(background).arg(found)));
    }
    const qreal faded = contrast(palette.color(QPalette::Disabled, QPalette::Text), palette.color(QPalette::Base));
    QVERIFY(faded > 1.5 && faded < contrast(palette.color(QPalette::Text), palette.color(QPalette::Base)));
}

void TestTheme::outlinesStandOut()
{
    QFETCH(int, kind);
    Theme::apply(Theme::Kind(kind));
    QWidget window;
    QVBoxLayout layout(&window);
    for (QWidget *widget : std::initializer_list<QWidget *>{new QCheckBox, new QLineEdit, new QSpinBox}) {
        layout.addWidget(widget);
        widget->setFocusPolicy(Qt::NoFocus);
    }
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    for (QWidget *widget : window.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        const qreal found = contrastOfEdge(widget);
        // What the accessibility guidelines ask of the outline of a control.
        QVERIFY2(found >= 3, qPrintable(QString("%1: %2").arg(widget->metaObject()->className()).arg(found)));
    }
}

void TestTheme::theFocusStandsOut()
{
    QFETCH(int, kind);
    Theme::apply(Theme::Kind(kind));
    QWidget window;
    QVBoxLayout layout(&window);
    auto *button = new QToolButton;
    button->setFocusPolicy(Qt::StrongFocus);
    for (QWidget *widget : std::initializer_list<QWidget *>{new QCheckBox("text"), new QLineEdit, new QSpinBox, button})
        layout.addWidget(widget);
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    for (QWidget *widget : window.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        window.setFocus();
        const int without = highlighted(widget);
        while (!widget->hasFocus())
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        QVERIFY2(highlighted(widget) > without + widget->height(), widget->metaObject()->className());
    }
}

void TestTheme::theFocusIsAroundAWholeRow()
{
    Theme::apply(Theme::Kind::Light);
    QListWidget list;
    QPixmap picture(20, 20);
    picture.fill(Qt::transparent);
    list.addItem(new QListWidgetItem(picture, "text"));
    list.show();
    QApplication::setActiveWindow(&list);
    QVERIFY(QTest::qWaitForWindowActive(&list));
    list.setCurrentRow(0);
    const auto edge = [&list] {
        const QRect row = list.visualItemRect(list.item(0));
        return list.viewport()->grab().toImage().pixelColor(row.left(), row.center().y());
    };
    list.clearFocus();
    const QColor without = edge();
    list.setFocus(Qt::TabFocusReason);
    QVERIFY(edge() != without);
}

void TestTheme::aDarkDesktopIsFollowed()
{
    const auto isDark = [] { return QApplication::palette().color(QPalette::Window).lightness() < 128; };
    Theme::apply(Theme::Kind::System);
    QVERIFY(!isDark());
    Theme::followDesktop(true);
    QVERIFY(isDark());
    QCOMPARE(Theme::current(), Theme::Kind::System);
    Theme::apply(Theme::Kind::Light);
    QVERIFY(!isDark());
    Theme::apply(Theme::Kind::System);
    QVERIFY(isDark());
    Theme::followDesktop(false);
    QVERIFY(!isDark());
    Theme::apply(Theme::Kind::Dark);
    QVERIFY(isDark());
    Theme::followDesktop(true);
    Theme::followDesktop(false);
    QVERIFY(isDark());
}

QTEST_MAIN(TestTheme)
#include "tst_theme.moc"
