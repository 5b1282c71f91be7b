#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettingsgroup.h>
#include <vxsettings/dbsettingsgroupfactory.h>
#include <vxsettings/dbsettingshelper.h>

#include <localstorage/localstorage.h>

#include <QApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPushButton>
#include <QSaveFile>
#include <QVBoxLayout>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QFile stored(app.arguments().value(1, "settings.json")); // one JSON object: key → text
    QJsonObject texts =
        stored.open(QFile::ReadOnly) ? QJsonDocument::fromJson(stored.readAll()).object() : QJsonObject();

    vantorix::OBJECT_PARAMETERS settings;
    for (auto text = texts.constBegin(); text != texts.constEnd(); ++text)
        settings[text.key()] = text.value().toString();
    vantorix::LocalStorage::instance()->setDbSettings(settings);

    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    const auto page = DBSettingsGroupFactory::create(DBGroups::FaceScanning, &window, nullptr);
    layout->addWidget(page->widget().get());
    vantorix::OBJECT_PARAMETERS baseline = page->parameters();

    const auto switchDependents = [&](const QString &key, const QVariant &value) {
        for (const QString &child : DBSettingsHelper::paramChilds(key))
            page->toGroup()->setParamEnabled(child, DBSettingsHelper::paramChildIsEnabled(key, value, child));
    };
    for (DBParamWidget *editor : window.findChildren<DBParamWidget *>()) {
        QObject::connect(editor, &DBParamWidget::paramChanged, &window, switchDependents);
        switchDependents(editor->key(), editor->value());
    }

    auto *saveButton = new QPushButton("Save", &window);
    layout->addWidget(saveButton);
    QObject::connect(saveButton, &QPushButton::clicked, &window, [&] {
        const vantorix::OBJECT_PARAMETERS shown = page->parameters();
        for (auto text = shown.begin(); text != shown.end(); ++text) {
            if (text.value() != baseline[text.key()])
                texts[text.key()] = text.value();
        }
        QSaveFile file(stored.fileName());
        if (!file.open(QFile::WriteOnly) || file.write(QJsonDocument(texts).toJson()) < 0 || !file.commit())
            return; // nothing was written: the edits stay edits
        page->updateDefaultValue();
        baseline = shown;
    });
    window.show();
    return app.exec();
}
