#include <vxsettings/dbkeys.h>
#include <vxsettings/dbparamwidget.h>

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

// Preloaded into a host that shows the page of face scanning and a button to save it. Uses both as a person would, and
// ends the host: well if all went well.

namespace {

DBParamWidget *editorOf(const QString &key)
{
    for (QWidget *widget : QApplication::allWidgets()) {
        auto *editor = qobject_cast<DBParamWidget *>(widget);
        if (editor && editor->key() == key)
            return editor;
    }
    qFatal("The host shows no editor of %s", qPrintable(key));
}

void expect(bool condition, const char *what)
{
    if (!condition)
        qFatal("Not so: %s", what);
}

void switchFaceScanningOffAndSave()
{
    const DBParamWidget *dependent = editorOf(db::database::ENROLL_FACE_BLUR_QUALITY);
    QWidget *window = dependent->window();
    expect(QTest::qWaitForWindowActive(window), "the host shows its window");
    auto *choices = editorOf(db::database::ENABLE_FACE_SCANNING)->findChild<QComboBox *>();
    auto *saveButton = window->findChild<QPushButton *>(QString(), Qt::FindDirectChildrenOnly);

    expect(choices->currentData().toUInt() == 1, "the stored text is shown");
    expect(dependent->isEnabled(), "a dependent is enabled from the beginning");
    QTest::keyClick(choices, Qt::Key_Up);
    expect(choices->currentData().toUInt() == 0, "the arrow key chooses the other answer");
    expect(!dependent->isEnabled(), "a dependent follows");
    QTest::mouseClick(saveButton, Qt::LeftButton);
    window->close();
}

void driveWhenShown()
{
    QTimer::singleShot(0, qApp, switchFaceScanningOffAndSave);
}
} // namespace

Q_COREAPP_STARTUP_FUNCTION(driveWhenShown)
