#pragma once

#include <vxsettings/dbsettingstypes.h>
#include <vxsettings/objectparameters.h>

#include <memory>

class QUiLoader;
class QWidget;

/// A page loaded by QUiLoader from a form text with the same widgets, as a host without this library might do.
class UiLoaderPage
{
public:
    /// Loads the widgets of @p group below @p parent and fills them from vantorix::LocalStorage.
    UiLoaderPage(QUiLoader &loader, DBGroups group, QWidget *parent);
    ~UiLoaderPage();

    QWidget *widget() const;
    vantorix::OBJECT_PARAMETERS parameters() const;

private:
    QWidget *m_widget;
};
