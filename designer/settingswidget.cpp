#include "settingswidget.h"

#include <QIcon>
#include <QLocale>
#include <QTranslator>
#include <QWidget>

SettingsWidget::SettingsWidget(const Description &description, QObject *parent)
    : QObject(parent)
    , m_description(description)
{}

/// Called by Designer alone. A program that loads forms has its own language, in which its editors speak.
void SettingsWidget::initialize(QDesignerFormEditorInterface *)
{
    if (parent()->findChild<QTranslator *>())
        return;
    auto *translator = new QTranslator(parent());
    if (translator->load(QLocale(), QStringLiteral("vxsettings"), QStringLiteral("_"),
                         QStringLiteral(":/vxsettings/designer/translations")))
        QCoreApplication::installTranslator(translator);
}

QString SettingsWidget::name() const
{
    return QString::fromLatin1(m_description.className);
}

QString SettingsWidget::group() const
{
    return QStringLiteral("VxSettings");
}

QString SettingsWidget::toolTip() const
{
    return tr(m_description.toolTip);
}

QString SettingsWidget::whatsThis() const
{
    if (!m_description.isEditor)
        return toolTip();
    return tr("%1. Ключ параметра каталога в свойстве «parameter» задаёт название, варианты, границы и подсказку.")
        .arg(toolTip());
}

QString SettingsWidget::includeFile() const
{
    return QStringLiteral("vxsettings/%1.h").arg(name().toLower());
}

QIcon SettingsWidget::icon() const
{
    return QIcon(QStringLiteral(":/vxsettings/designer/icons/%1.svg").arg(QLatin1String(m_description.icon)));
}

bool SettingsWidget::isContainer() const
{
    return false;
}

QWidget *SettingsWidget::createWidget(QWidget *parent)
{
    return m_description.create(parent);
}

QString SettingsWidget::domXml() const
{
    const QString objectName = name().at(0).toLower() + name().mid(1);
    const QString parameter =
        QStringLiteral("<property name=\"parameter\" stdset=\"0\"><string notr=\"true\"></string></property>");
    return QStringLiteral("<ui language=\"c++\"><widget class=\"%1\" name=\"%2\">%3</widget></ui>")
        .arg(name(), objectName, m_description.isEditor ? parameter : QString());
}
