#include "disabledhints.h"

#include "messages.h"
#include "openpages.h"
#include "parametermarks.h"
#include "parametermenu.h"

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbsettingshelper.h>

#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>

using namespace db::database;
using Mark = DBParamWidget::Mark;

class TestDisabledHints : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyDependentHasItsSwitch();
    void aMemberOfAnotherObjectHasNone();
    void aDependentTellsItsSwitchWhileItIsOff();
    void theMenuLeadsToTheSwitch();
};

namespace {

const SettingAddress faceSwitch{ENABLE_FACE_SCANNING};
const SettingAddress faceSize{ENROLL_FACE_MIN_SIZE};
} // namespace

void TestDisabledHints::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestDisabledHints::everyDependentHasItsSwitch()
{
    int count = 0;
    for (const SettingAddress &parent : SettingAddress::all()) {
        for (const QString &child : DBSettingsHelper::paramChilds(parent.parameter())) {
            const SettingAddress address =
                parent.member.isEmpty() ? SettingAddress{child} : SettingAddress{parent.key, child};
            QVERIFY2(DisabledHints::switchOf(address) == parent, qPrintable(address.text()));
            ++count;
        }
    }
    QCOMPARE(count, 29);
}

void TestDisabledHints::aMemberOfAnotherObjectHasNone()
{
    QVERIFY(DisabledHints::switchOf({PASSWORD_STRENGTH, json::MIN_LEN}));
    QVERIFY(!DisabledHints::switchOf({PIN_STRENGTH, json::MIN_LEN}));
    QVERIFY(!DisabledHints::switchOf(faceSwitch));
}

void TestDisabledHints::aDependentTellsItsSwitchWhileItIsOff()
{
    OpenPages pages({{ENABLE_FACE_SCANNING, "0"}});
    const ParameterMarks marks(pages.session, &pages.window);
    pages.open(DBGroups::FaceScanning);
    const DBParamWidget *editor = pages.editor(faceSize);
    QCOMPARE(editor->mark(), Mark::Note);
    QVERIFY2(pages.input<QWidget>(faceSize)->accessibleDescription().contains(
                 "Недоступно. Включается параметром «Включить возможность сканирования по лицу», сейчас там: Нет."),
             qPrintable(pages.input<QWidget>(faceSize)->accessibleDescription()));

    editors::chooseNext(pages.input<QComboBox>(faceSwitch));
    QVERIFY(editor->isEnabled());
    QCOMPARE(editor->mark(), Mark::None);
}

void TestDisabledHints::theMenuLeadsToTheSwitch()
{
    OpenPages pages({{ENABLE_FACE_SCANNING, "0"}});
    const ParameterMenu menu(pages.session, pages.database.location());
    QVector<SettingAddress> wanted;
    connect(&menu, &ParameterMenu::parameterWanted, this, [&wanted](const auto &address) { wanted << address; });
    pages.open(DBGroups::FaceScanning);

    QContextMenuEvent event(QContextMenuEvent::Mouse, {1, 1}, pages.editor(faceSize)->mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(pages.input<QWidget>(faceSize), &event);
    auto *shown = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(shown);
    for (QAction *action : shown->actions()) {
        if (action->text() == "Перейти к параметру «Включить возможность сканирования по лицу»")
            QTest::mouseClick(shown, Qt::LeftButton, {}, shown->actionGeometry(action).center());
    }
    QCOMPARE(wanted, QVector<SettingAddress>({faceSwitch}));
}

QTEST_MAIN(TestDisabledHints)
#include "tst_disabledhints.moc"
