#include "theme.h"

#include "messages.h"

#include <QApplication>
#include <QPalette>
#include <QTest>

#include <algorithm>
#include <cmath>

class TestTheme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void fromName();
    void textsAreReadable_data();
    void textsAreReadable();
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

void TestTheme::textsAreReadable_data()
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

QTEST_MAIN(TestTheme)
#include "tst_theme.moc"
