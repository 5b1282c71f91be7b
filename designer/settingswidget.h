#pragma once

#include <QCoreApplication>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

/// One class of widgets, as Qt Designer offers it. Created by the row that describes the class.
class SettingsWidget : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    struct Description
    {
        const char *className;
        const char *icon;    ///< name of a file in icons/
        const char *toolTip; ///< Russian source text
        QWidget *(*create)(QWidget *parent);
        bool isEditor; ///< edits a parameter of the catalogue
    };

    /// @p description must live longer.
    SettingsWidget(const Description &description, QObject *parent);

    void initialize(QDesignerFormEditorInterface *designer) override;
    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QWidget *createWidget(QWidget *parent) override;
    QString domXml() const override;

private:
    const Description &m_description;
};
