#pragma once

#include "host/editors.h"
#include "host/sampledatabase.h"
#include "sessionwait.h"

#include <host/installationdatabase.h>
#include <host/settingssession.h>

#include <QVBoxLayout>

#include <stdexcept>

/// A shown window with pages of a session on a database of its own, for what works on open pages.
class OpenPages
{
public:
    /// @p stored are settings of the sample installation that have other texts: key → text.
    explicit OpenPages(const QHash<QString, QString> &stored = {})
        : database(DatabaseLocation::ofFile(created(file, stored)), InstallationDatabase::Missing::Refuse, limits())
        , session(database)
    {
        if (const auto error = SessionWait::load(session))
            throw std::runtime_error(error->text().toStdString());
        new QVBoxLayout(&window);
    }

    /// The page, shown in the active window.
    QWidget *open(DBGroups group)
    {
        QWidget *page = session.openPage(group, &window);
        window.layout()->addWidget(page);
        page->show();
        window.show();
        QApplication::setActiveWindow(&window);
        if (!QTest::qWaitForWindowActive(&window))
            throw std::runtime_error("no window");
        return page;
    }
    DBParamWidget *editor(const SettingAddress &address) const { return session.editor(address); }
    template <typename Input>
    Input *input(const SettingAddress &address) const
    {
        return qobject_cast<Input *>(editor(address)->centralWidget());
    }

    TestDatabase file;
    InstallationDatabase database;
    SettingsSession session;
    QWidget window;

private:
    static InstallationDatabase::Limits limits()
    {
        InstallationDatabase::Limits limits;
        limits.filePulse = std::chrono::milliseconds(10);
        return limits;
    }

    static QString created(const TestDatabase &file, const QHash<QString, QString> &stored)
    {
        makeSample(file, stored);
        return file.path();
    }
};
