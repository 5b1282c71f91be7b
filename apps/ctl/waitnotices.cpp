#include "waitnotices.h"

#include "console.h"

using Wait = InstallationDatabase::Wait;

namespace {

constexpr qint64 patience = 1000; // milliseconds
} // namespace

WaitNotices::WaitNotices(InstallationDatabase &database)
{
    connect(&database, &InstallationDatabase::waiting, this, &WaitNotices::onWaiting);
}

void WaitNotices::onWaiting(Wait wait)
{
    QElapsedTimer &since = m_since[int(wait)];
    if (!since.isValid())
        since.start();
    if (since.elapsed() < patience || m_told.contains(int(wait)))
        return;
    m_told.insert(int(wait));
    Console::tell(words(wait));
}

QString WaitNotices::words(Wait wait)
{
    switch (wait) {
    case Wait::Busy:
        return tr("База данных занята другой программой, ожидание… Прервать: Ctrl+C.");
    case Wait::Resolving:
        return tr("Связь прервалась во время сохранения. Выясняется, сохранены ли изменения… Прервать: Ctrl+C.");
    case Wait::Connecting:
        return tr("Связи с базой данных нет, подключение… Прервать: Ctrl+C.");
    }
    return {};
}
