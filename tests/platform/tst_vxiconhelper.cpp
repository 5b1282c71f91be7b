#include "iconhostrun.h"
#include "messages.h"

#include <vxstyles/vxiconhelper.h>

#include <QIcon>
#include <QIconEngine>
#include <QPainter>
#include <QTest>

namespace {

QImage image(const QPixmap &pixmap)
{
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// The smallest rectangle that holds every visible pixel.
QRect visibleRect(const QImage &image)
{
    QRect rect;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0)
                rect |= QRect(x, y, 1, 1);
        }
    }
    return rect;
}

QIcon filledIcon(const QSize &size, const QColor &color)
{
    QPixmap pixmap(size);
    pixmap.fill(color);
    return QIcon(pixmap);
}

/// Counts how often it is asked for a picture.
class CountingEngine : public QIconEngine
{
public:
    explicit CountingEngine(int *count)
        : m_count(count)
    {}
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode, QIcon::State) override
    {
        painter->fillRect(rect, Qt::red);
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode, QIcon::State) override
    {
        ++*m_count;
        QPixmap pixmap(size);
        pixmap.fill(Qt::red);
        return pixmap;
    }
    QIconEngine *clone() const override { return new CountingEngine(m_count); }

private:
    int *m_count;
};
} // namespace

class TestVXIconHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void everyVisiblePixelTakesTheColor_data();
    void everyVisiblePixelTakesTheColor();
    void alphaOfIconAndColorMultiply_data();
    void alphaOfIconAndColorMultiply();
    void edgesOfAThemeIconStaySmooth();

    void iconWithoutPictureIsTransparent_data();
    void iconWithoutPictureIsTransparent();
    void emptySizeIsNull_data();
    void emptySizeIsNull();

    void iconIsCentered_data();
    void iconIsCentered();

    void iconIsRenderedOnce();
    void themeIconIsKept();
    void paintingOnAResultLeavesTheKeptOneAlone();
    void newThemeGivesNewPixmaps();

    void highResolutionScreen_data();
    void highResolutionScreen();
};

void TestVXIconHelper::everyVisiblePixelTakesTheColor_data()
{
    QTest::addColumn<QColor>("color");

    QTest::newRow("black") << QColor(Qt::black);
    QTest::newRow("white") << QColor(Qt::white);
    QTest::newRow("blue") << QColor("#3070c0");
}

void TestVXIconHelper::everyVisiblePixelTakesTheColor()
{
    QFETCH(QColor, color);
    QPixmap colorful(2, 2);
    colorful.fill(Qt::red);
    QPainter(&colorful).fillRect(0, 0, 1, 1, Qt::green);

    const QPixmap pixmap = VXIconHelper::pixmap(QIcon(colorful), {2, 2}, color);
    QImage expected(2, 2, QImage::Format_ARGB32_Premultiplied);
    expected.fill(color);
    QCOMPARE(image(pixmap), expected);
}

void TestVXIconHelper::alphaOfIconAndColorMultiply_data()
{
    QTest::addColumn<int>("iconAlpha");
    QTest::addColumn<int>("colorAlpha");
    QTest::addColumn<int>("alpha");

    QTest::newRow("both opaque") << 255 << 255 << 255;
    QTest::newRow("thin icon") << 102 << 255 << 102;
    QTest::newRow("thin color") << 255 << 51 << 51;
    QTest::newRow("both thin") << 102 << 51 << 20;
    QTest::newRow("invisible icon") << 0 << 255 << 0;
    QTest::newRow("invisible color") << 255 << 0 << 0;
}

void TestVXIconHelper::alphaOfIconAndColorMultiply()
{
    QFETCH(int, iconAlpha);
    QFETCH(int, colorAlpha);
    QFETCH(int, alpha);

    const QIcon icon = filledIcon({4, 4}, QColor(255, 0, 0, iconAlpha));
    const QPixmap pixmap = VXIconHelper::pixmap(icon, {4, 4}, QColor(0, 0, 255, colorAlpha));
    QCOMPARE(image(pixmap).pixel(2, 2), qRgba(0, 0, alpha, alpha)); // premultiplied
}

void TestVXIconHelper::edgesOfAThemeIconStaySmooth()
{
    const QIcon icon = QIcon::fromTheme("common-fingerprint");
    const QImage shape = image(icon.pixmap(24, 24));
    const QImage drawn = image(VXIconHelper::pixmap(icon, {24, 24}, "#3070c0"));

    QCOMPARE(drawn.convertToFormat(QImage::Format_Alpha8), shape.convertToFormat(QImage::Format_Alpha8));
    QVERIFY(drawn != shape);
}

void TestVXIconHelper::iconWithoutPictureIsTransparent_data()
{
    QTest::addColumn<QIcon>("icon");
    QTest::addColumn<QSize>("size");

    QTest::newRow("null icon") << QIcon() << QSize(24, 24);
    QTest::newRow("unknown theme name") << QIcon::fromTheme("nobody-drew-this") << QSize(24, 24);
    QTest::newRow("empty theme name") << QIcon::fromTheme("") << QSize(24, 24);
    QTest::newRow("missing file") << QIcon("/nowhere/icon.png") << QSize(16, 16);
    QTest::newRow("wide") << QIcon() << QSize(48, 7);
    QTest::newRow("one pixel") << QIcon() << QSize(1, 1);
}

void TestVXIconHelper::iconWithoutPictureIsTransparent()
{
    QFETCH(QIcon, icon);
    QFETCH(QSize, size);

    const QPixmap pixmap = VXIconHelper::pixmap(icon, size, Qt::black);
    QCOMPARE(pixmap.size(), size);
    QCOMPARE(visibleRect(image(pixmap)), QRect());
}

void TestVXIconHelper::emptySizeIsNull_data()
{
    QTest::addColumn<QSize>("size");

    QTest::newRow("default") << QSize();
    QTest::newRow("nothing") << QSize(0, 0);
    QTest::newRow("no height") << QSize(24, 0);
    QTest::newRow("negative width") << QSize(-24, 24);
}

void TestVXIconHelper::emptySizeIsNull()
{
    QFETCH(QSize, size);
    QVERIFY(VXIconHelper::pixmap(QIcon::fromTheme("common-db"), size, Qt::black).isNull());
}

void TestVXIconHelper::iconIsCentered_data()
{
    QTest::addColumn<QSize>("iconSize");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("drawn");

    QTest::newRow("same size") << QSize(24, 24) << QSize(24, 24) << QRect(0, 0, 24, 24);
    QTest::newRow("smaller icon is not enlarged") << QSize(16, 16) << QSize(24, 24) << QRect(4, 4, 16, 16);
    QTest::newRow("larger icon is reduced") << QSize(48, 48) << QSize(24, 24) << QRect(0, 0, 24, 24);
    QTest::newRow("wide icon keeps its shape") << QSize(40, 20) << QSize(24, 24) << QRect(0, 6, 24, 12);
    QTest::newRow("high icon keeps its shape") << QSize(20, 40) << QSize(24, 24) << QRect(6, 0, 12, 24);
    QTest::newRow("wide pixmap") << QSize(24, 24) << QSize(48, 24) << QRect(12, 0, 24, 24);
    QTest::newRow("high pixmap") << QSize(64, 64) << QSize(20, 30) << QRect(0, 5, 20, 20);
}

void TestVXIconHelper::iconIsCentered()
{
    QFETCH(QSize, iconSize);
    QFETCH(QSize, size);
    QFETCH(QRect, drawn);

    const QPixmap pixmap = VXIconHelper::pixmap(filledIcon(iconSize, Qt::red), size, Qt::black);
    QCOMPARE(pixmap.size(), size);
    QCOMPARE(visibleRect(image(pixmap)), drawn);
}

void TestVXIconHelper::iconIsRenderedOnce()
{
    int count = 0;
    const QIcon icon(new CountingEngine(&count));
    const QIcon sameIcon = icon;

    VXIconHelper::pixmap(icon, {24, 24}, Qt::black);
    VXIconHelper::pixmap(icon, {24, 24}, Qt::black);
    VXIconHelper::pixmap(sameIcon, {24, 24}, Qt::black);
    QCOMPARE(count, 1);

    VXIconHelper::pixmap(icon, {24, 24}, QColor(0, 0, 0, 128));
    QCOMPARE(count, 2);
    VXIconHelper::pixmap(icon, {24, 16}, Qt::black);
    QCOMPARE(count, 3);
    VXIconHelper::pixmap(QIcon(new CountingEngine(&count)), {24, 24}, Qt::black);
    QCOMPARE(count, 4);
}

void TestVXIconHelper::themeIconIsKept()
{
    const QPixmap first = VXIconHelper::pixmap(QIcon::fromTheme("common-palm"), {24, 24}, Qt::black);
    const QPixmap second = VXIconHelper::pixmap(QIcon::fromTheme("common-palm"), {24, 24}, Qt::black);
    QCOMPARE(second.cacheKey(), first.cacheKey());
}

void TestVXIconHelper::paintingOnAResultLeavesTheKeptOneAlone()
{
    const QIcon icon = QIcon::fromTheme("common-face");
    QPixmap mine = VXIconHelper::pixmap(icon, {24, 24}, Qt::black);
    const QImage before = image(mine);
    mine.fill(Qt::red);
    QCOMPARE(image(VXIconHelper::pixmap(icon, {24, 24}, Qt::black)), before);
}

void TestVXIconHelper::newThemeGivesNewPixmaps()
{
    const QIcon icon = QIcon::fromTheme("common-sphere");
    const QImage drawn = image(VXIconHelper::pixmap(icon, {24, 24}, Qt::black));
    QVERIFY(!visibleRect(drawn).isEmpty());
    const QString theme = QIcon::themeName();
    const QStringList lastResort = QIcon::fallbackSearchPaths();

    QIcon::setFallbackSearchPaths({});
    QIcon::setFallbackThemeName("none");
    QIcon::setThemeName("none");
    const QImage drawnWithoutTheme = image(VXIconHelper::pixmap(icon, {24, 24}, Qt::black));
    QIcon::setThemeName(theme);
    QIcon::setFallbackThemeName(theme);
    QIcon::setFallbackSearchPaths(lastResort);

    QCOMPARE(visibleRect(drawnWithoutTheme), QRect());
    QCOMPARE(image(VXIconHelper::pixmap(icon, {24, 24}, Qt::black)), drawn);
}

void TestVXIconHelper::highResolutionScreen_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<double>("factor");
    QTest::addColumn<QString>("pixmap");
    QTest::addColumn<QSize>("pixels");

    QTest::newRow("ordinary") << "gui" << 1.0 << "pixmap 24x24 at 1" << QSize(24, 24);
    QTest::newRow("twice") << "gui" << 2.0 << "pixmap 48x48 at 2" << QSize(48, 48);
    QTest::newRow("one and a half") << "gui" << 1.5 << "pixmap 36x36 at 1.5" << QSize(36, 36);
    QTest::newRow("icons scale themselves") << "high-dpi-pixmaps" << 2.0 << "pixmap 48x48 at 2" << QSize(48, 48);
}

void TestVXIconHelper::highResolutionScreen()
{
    QFETCH(QString, start);
    QFETCH(double, factor);
    QFETCH(QString, pixmap);
    QFETCH(QSize, pixels);

    const IconHostRun host(start, {"QT_SCALE_FACTOR=" + QString::number(factor)});
    QVERIFY2(host.succeeded, qPrintable(host.errors));
    QVERIFY2(host.lines.contains(pixmap), qPrintable(host.lines.join('\n')));
    // Drawn anew for the screen, not enlarged.
    const QPixmap drawn = VXIconHelper::pixmap(QIcon::fromTheme("common-db"), pixels, Qt::black);
    QCOMPARE(host.icon.convertToFormat(QImage::Format_Alpha8), drawn.toImage().convertToFormat(QImage::Format_Alpha8));
}

QTEST_MAIN(TestVXIconHelper)
#include "tst_vxiconhelper.moc"
