#include "sessionwait.h"

#include <QEventLoop>

std::optional<DatabaseError> SessionWait::load(SettingsSession &session)
{
    std::optional<DatabaseError> error;
    QEventLoop loop;
    QObject::connect(&session, &SettingsSession::loaded, &loop, &QEventLoop::quit);
    QObject::connect(&session, &SettingsSession::failed, &loop, [&](const DatabaseError &failure) {
        error = failure;
        loop.quit();
    });
    session.load();
    loop.exec();
    return error;
}

SaveResult SessionWait::save(SettingsSession &session, SettingsSession::Unreadable unreadable)
{
    SaveResult result;
    QEventLoop loop;
    QObject::connect(&session, &SettingsSession::saveFinished, &loop, [&](const SaveResult &finished) {
        result = finished;
        loop.quit();
    });
    session.save({}, unreadable);
    loop.exec();
    return result;
}
