#include "doublingtranslator.h"
#include "installation.h"
#include "loggingrules.h"
#include "messages.h"

#include <host/translations.h>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QScrollArea>
#include <QTranslator>

namespace {

constexpr int smallestFont = 8; // points
constexpr int largestFont = 16;

/// The words of @p window that have less room than they need.
QStringList cutOff(const QWidget &window)
{
    QStringList words;
    for (const QLabel *label : window.findChildren<QLabel *>()) {
        if (label->isVisible() && label->height() < label->heightForWidth(label->width()))
            words << label->text();
    }
    for (const QCheckBox *box : window.findChildren<QCheckBox *>()) {
        const QSize needed = box->sizeHint();
        if (box->isVisible() && (box->height() < needed.height() || box->width() < needed.width()))
            words << box->text();
    }
    return words;
}
} // namespace

/// Every caption of every page, in every language and size of letters that is likely to be met.
class TestPageCaptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }
    void cleanup();
    void areWhole_data();
    void areWhole();

private:
    LoggingRules m_quiet{"gui.lib.dbsettings.debug=false"};
    installation::Stored m_installation;
    const QFont m_usualFont = QApplication::font();
};

void TestPageCaptions::cleanup()
{
    QApplication::setFont(m_usualFont);
}

void TestPageCaptions::areWhole_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("fontSize"); // points
    for (const installation::PageName &page : installation::pages) {
        for (const char *language : {"ru", "en", "twice"}) {
            for (int fontSize = smallestFont; fontSize <= largestFont; ++fontSize) {
                QTest::addRow("%s, %s, letters of %d points", page.name, language, fontSize)
                    << int(page.group) << language << fontSize;
            }
        }
    }
}

void TestPageCaptions::areWhole()
{
    QFETCH(int, group);
    QFETCH(QString, language);
    QFETCH(int, fontSize);
    QFont font = m_usualFont;
    font.setPointSize(fontSize);
    QApplication::setFont(font);
    const auto twice = language == "twice" ? std::make_unique<DoublingTranslator>() : nullptr;
    const auto english = language == "en" ? Translations::libraryTexts("en") : nullptr;
    QVERIFY(language != "en" || english);
    if (english)
        QCoreApplication::installTranslator(english.get());

    // The room that a list of pages leaves in a window of 1024 x 700; what does not fit can be scrolled to.
    QScrollArea area;
    area.setWidgetResizable(true);
    area.resize(740, 640);
    const auto tree = DBSettingsGroupFactory::create(DBGroups(group), &area, nullptr);
    area.setWidget(tree->widget().get());
    area.show();
    QVERIFY(QTest::qWaitForWindowExposed(&area));
    QTRY_COMPARE(cutOff(area), QStringList());
}

QTEST_MAIN(TestPageCaptions)
#include "tst_pagecaptions.moc"
