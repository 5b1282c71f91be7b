#pragma once

#include "handwrittenpage.h"
#include "uiloaderpage.h"

#include <vxsettings/dbsettings.h>
#include <vxsettings/dbsettingsgroupfactory.h>

#include <QUiLoader>
#include <QWidget>

/// Three ways to the same pages. All have widget() and parameters(), and go with what make() returns.
namespace pages {

constexpr DBGroups all[] = {DBGroups::Database,
                            DBGroups::Employees,
                            DBGroups::Users,
                            DBGroups::ScanningCommon,
                            DBGroups::FingerprintScanning,
                            DBGroups::PalmScanning,
                            DBGroups::FaceScanning,
                            DBGroups::PassRequests,
                            DBGroups::Connection,
                            DBGroups::StudioMobile,
                            DBGroups::MobileId,
                            DBGroups::Integration};

struct Library
{
    static constexpr const char *name = "library";
    std::unique_ptr<DBSettings> make(DBGroups group, QWidget *parent)
    {
        return DBSettingsGroupFactory::create(group, parent, nullptr);
    }
    static QWidget *frame(const DBSettings &page) { return page.widget().get(); }
};

struct Handwritten
{
    static constexpr const char *name = "handwritten";
    std::unique_ptr<HandwrittenPage> make(DBGroups group, QWidget *parent)
    {
        return std::make_unique<HandwrittenPage>(group, parent);
    }
    static QWidget *frame(const HandwrittenPage &page) { return page.widget(); }
};

struct UiLoader
{
    static constexpr const char *name = "uiloader";
    std::unique_ptr<UiLoaderPage> make(DBGroups group, QWidget *parent)
    {
        return std::make_unique<UiLoaderPage>(m_loader, group, parent);
    }
    static QWidget *frame(const UiLoaderPage &page) { return page.widget(); }

private:
    QUiLoader m_loader;
};
} // namespace pages
