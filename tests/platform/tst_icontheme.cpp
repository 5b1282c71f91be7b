#include "iconhostrun.h"
#include "messages.h"

#include <vxstyles/vxiconhelper.h>

#include <QDir>
#include <QIcon>
#include <QTest>
#include <QXmlStreamReader>

namespace {

const QString pictures = ":/icons/vantorix/scalable";

const QStringList iconNames = {
    // settings groups
    "common-db", "object-OT_WORKER", "object-OT_USER", "action-scan", "common-fingerprint", "common-palm",
    "common-face", "object-OT_PASS_REQUEST", "common-sphere", "object-OT_RFID", "common-filter_2",
    // objects that can be selected
    "object-OT_SUBJECTROOT", "object-OT_FIRM", "object-OT_DEPARTMENT", "object-OT_SMARTCARD_PROFILE",
    // a settings manager
    "action-save", "action-undo", "action-redo", "action-search", "action-eye", "action-eye-off", "action-import",
    "action-export", "action-history", "common-warning", "common-info", "common-link", "common-settings",
    "common-lock"};

QImage image(const QPixmap &pixmap)
{
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
}

bool isTransparent(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0)
                return false;
        }
    }
    return true;
}

/// Pixels in which a line is drawn rather than touched.
int inkedPixels(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 127;
    }
    return count;
}

void write(const QString &fileName, const QByteArray &content)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

/// The icon settings of an application; puts back what was there before.
class HostIcons
{
public:
    HostIcons()
        : m_theme(QIcon::themeName())
        , m_fallback(QIcon::fallbackThemeName())
        , m_paths(QIcon::themeSearchPaths())
        , m_fallbackPaths(QIcon::fallbackSearchPaths())
    {}
    ~HostIcons()
    {
        QIcon::setThemeSearchPaths(m_paths);
        QIcon::setFallbackSearchPaths(m_fallbackPaths);
        QIcon::setFallbackThemeName(m_fallback);
        QIcon::setThemeName(m_theme);
    }
    Q_DISABLE_COPY(HostIcons)

    QString folder() const { return m_folder.path(); }

    /// A theme that draws a red square for three names and knows nothing else.
    void addTheme(const QString &name, const QByteArray &inherits) const
    {
        const QString theme = folder() + '/' + name;
        QVERIFY(QDir().mkpath(theme + "/24"));
        write(theme + "/index.theme",
              "[Icon Theme]\nName=Host\nComment=Host\n" + inherits + "Directories=24\n\n[24]\nSize=24\nType=Fixed\n");
        QPixmap square(24, 24);
        square.fill(Qt::red);
        for (const char *icon : {"common-db", "object", "document-save"})
            QVERIFY(square.save(theme + "/24/" + icon + ".png"));
    }

private:
    QTemporaryDir m_folder;
    QString m_theme;
    QString m_fallback;
    QStringList m_paths;
    QStringList m_fallbackPaths;
};
} // namespace

class TestIconTheme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void isInUseWhereThePlatformNamesNoTheme();
    void hasExactlyTheKnownNames();
    void drawsEveryName_data();
    void drawsEveryName();
    void noTwoIconsLookAlike();
    void drawingsShareOneStyle_data();
    void drawingsShareOneStyle();

    void themeOfTheApplicationComesFirst_data();
    void themeOfTheApplicationComesFirst();
    void themeMayBeMadeTheFirst();
    void iconsStayInReach_data();
    void iconsStayInReach();
    void hostStarts_data();
    void hostStarts();
};

void TestIconTheme::isInUseWhereThePlatformNamesNoTheme()
{
    QCOMPARE(QIcon::themeName(), QString("vantorix"));
    QCOMPARE(QIcon::fallbackThemeName(), QString("vantorix"));
}

void TestIconTheme::hasExactlyTheKnownNames()
{
    QStringList files;
    for (const QFileInfo &file : QDir(pictures).entryInfoList())
        files << file.completeBaseName();
    QStringList names = iconNames;
    names.sort();
    files.sort();
    QCOMPARE(files, names);
}

void TestIconTheme::drawsEveryName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size");

    for (const QString &name : iconNames) {
        for (int size : {16, 24, 48})
            QTest::addRow("%s at %d", qPrintable(name), size) << name << size;
    }
}

void TestIconTheme::drawsEveryName()
{
    QFETCH(QString, name);
    QFETCH(int, size);

    const QColor ink("#3070c0");
    const QPixmap pixmap = VXIconHelper::pixmap(QIcon::fromTheme(name), {size, size}, ink);
    QCOMPARE(pixmap.size(), QSize(size, size));

    const QImage drawn = image(pixmap);
    const int share = 100 * inkedPixels(drawn) / (size * size);
    QVERIFY2(share >= 10 && share <= 50, qPrintable(QString("%1 % inked").arg(share)));
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            if (qAlpha(drawn.pixel(x, y)) == 255)
                QCOMPARE(drawn.pixelColor(x, y), ink);
        }
    }
}

void TestIconTheme::noTwoIconsLookAlike()
{
    QList<QImage> seen;
    for (const QString &name : iconNames) {
        const QImage drawn = image(VXIconHelper::pixmap(QIcon::fromTheme(name), {16, 16}, Qt::black));
        QVERIFY2(!seen.contains(drawn), qPrintable(name));
        seen << drawn;
    }
}

void TestIconTheme::drawingsShareOneStyle_data()
{
    QTest::addColumn<QString>("name");

    for (const QString &name : iconNames)
        QTest::newRow(qPrintable(name)) << name;
}

void TestIconTheme::drawingsShareOneStyle()
{
    QFETCH(QString, name);

    QFile file(pictures + '/' + name + ".svg");
    QVERIFY(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    QVERIFY(xml.readNextStartElement());
    const QXmlStreamAttributes svg = xml.attributes();
    QCOMPARE(svg.value("viewBox").toString(), QString("0 0 24 24"));
    QCOMPARE(svg.value("fill").toString(), QString("none"));
    QCOMPARE(svg.value("stroke").toString(), QString("#000"));
    QCOMPARE(svg.value("stroke-width").toString(), QString("2"));
    while (xml.readNextStartElement()) {
        QCOMPARE(xml.name().toString(), QString("path"));
        QCOMPARE(xml.attributes().count(), 1);
        xml.skipCurrentElement();
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));

    // Nothing is cut off: the outermost row and column of each side stay free.
    const QImage drawn = image(VXIconHelper::pixmap(QIcon::fromTheme(name), {96, 96}, Qt::black));
    for (int i = 0; i < 96; ++i) {
        for (const QPoint &edge : {QPoint(i, 0), QPoint(i, 95), QPoint(0, i), QPoint(95, i)})
            QCOMPARE(qAlpha(drawn.pixel(edge)), 0);
    }
}

void TestIconTheme::themeOfTheApplicationComesFirst_data()
{
    QTest::addColumn<QByteArray>("inherits");

    QTest::newRow("theme of its own") << QByteArray();
    QTest::newRow("theme with the usual parent") << QByteArray("Inherits=hicolor\n");
}

void TestIconTheme::themeOfTheApplicationComesFirst()
{
    QFETCH(QByteArray, inherits);

    HostIcons host;
    host.addTheme("hosttheme", inherits);
    QIcon::setThemeSearchPaths(QIcon::themeSearchPaths() << host.folder());
    QIcon::setThemeName("hosttheme");

    const QImage own = image(QIcon::fromTheme("common-db").pixmap(24, 24));
    QCOMPARE(own.pixelColor(0, 0), QColor(Qt::red));
    QVERIFY(!isTransparent(image(QIcon::fromTheme("common-face").pixmap(24, 24))));
}

void TestIconTheme::themeMayBeMadeTheFirst()
{
    HostIcons desktop;
    desktop.addTheme("desktop", "Inherits=hicolor\n");
    QIcon::setThemeSearchPaths(QIcon::themeSearchPaths() << desktop.folder());
    QIcon::setThemeName("desktop");
    QCOMPARE(QIcon::fromTheme("object-OT_USER").name(), QString("object"));

    QIcon::setFallbackThemeName(QIcon::themeName());
    QIcon::setThemeName("vantorix");
    QIcon::setThemeSearchPaths(QIcon::themeSearchPaths()); // forgets what other tests loaded
    QCOMPARE(QIcon::fromTheme("object-OT_USER").name(), QString("object-OT_USER"));
    QCOMPARE(QIcon::fromTheme("document-save").name(), QString("document-save"));
}

void TestIconTheme::iconsStayInReach_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<bool>("ownPathsOnly");
    QTest::addColumn<QString>("fallback");

    QTest::newRow("theme of the application") << "hosttheme" << false << "vantorix";
    QTest::newRow("theme that does not exist") << "nobody" << false << "vantorix";
    QTest::newRow("fallback theme of the application") << "hosttheme" << false << "hostfallback";
    QTest::newRow("fallback theme that does not exist") << "hosttheme" << false << "nobody";
    QTest::newRow("search paths of the application") << "hosttheme" << true << "vantorix";
    QTest::newRow("everything of the application") << "hosttheme" << true << "hostfallback";
}

void TestIconTheme::iconsStayInReach()
{
    QFETCH(QString, theme);
    QFETCH(bool, ownPathsOnly);
    QFETCH(QString, fallback);

    HostIcons host;
    host.addTheme("hosttheme", {});
    host.addTheme("hostfallback", {});
    QIcon::setThemeSearchPaths(ownPathsOnly ? QStringList(host.folder()) : QIcon::themeSearchPaths() << host.folder());
    QIcon::setFallbackThemeName(fallback);
    QIcon::setThemeName(theme);

    QVERIFY(!isTransparent(image(QIcon::fromTheme("common-face").pixmap(24, 24))));
}

void TestIconTheme::hostStarts_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<QStringList>("lines");

    const QString drawn = "pixmap 24x24 at 1";
    const QStringList ours{"theme vantorix", "fallback vantorix", "search paths 1", "fallback paths 1", drawn};
    const QStringList hosts{"theme hosttheme", "fallback hostfallback", "search paths 1", "fallback paths 2", drawn};
    QTest::newRow("nothing chosen") << "gui" << ours;
    QTest::newRow("fallback that says nothing") << "hicolor-fallback" << ours;
    QTest::newRow("everything chosen before the start") << "own-icons" << hosts;
    QTest::newRow("second application object") << "second-application" << ours;
    QTest::newRow("no user interface") << "without-gui" << QStringList{"theme ", "fallback "};
}

void TestIconTheme::hostStarts()
{
    QFETCH(QString, start);
    QFETCH(QStringList, lines);

    const IconHostRun host(start);
    QVERIFY2(host.succeeded, qPrintable(host.errors));
    QCOMPARE(host.lines, lines);
    if (start != "without-gui")
        QVERIFY(inkedPixels(host.icon) > 0);
}

QTEST_MAIN(TestIconTheme)
#include "tst_icontheme.moc"
