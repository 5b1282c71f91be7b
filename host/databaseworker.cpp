#include "databaseworker.h"

#include "settingsstore.h"

#include <QSocketNotifier>

DatabaseWorker::DatabaseWorker(const Options &options)
    : m_options(options)
    , m_context(std::make_unique<QObject>())
{
    m_context->moveToThread(this);
    connect(this, &DatabaseWorker::called, m_context.get(), [this] { doCall(); });
    start();
}

DatabaseWorker::~DatabaseWorker() = default;

void DatabaseWorker::call(const Work &work)
{
    m_control.start();
    m_calls.put(work);
    Q_EMIT called();
}

std::optional<std::any> DatabaseWorker::takeAnswer()
{
    return m_answers.take();
}

std::optional<DatabaseError> DatabaseWorker::takeLoss()
{
    return m_losses.take();
}

void DatabaseWorker::cancel()
{
    m_control.cancel();
}

void DatabaseWorker::abandon()
{
    disconnect();
    connect(this, &QThread::finished, this, &QObject::deleteLater);
    m_control.abandon();
    quit();
}

bool DatabaseWorker::mayCommit() const
{
    return !m_control.isCancelled();
}

DatabaseResult<bool> DatabaseWorker::watch()
{
    m_options.isWatching = true;
    return access<DatabaseResult<bool>>([this](SettingsStore &) {
        if (auto error = listen())
            return DatabaseResult<bool>(*error);
        // Somebody may have written between the last reading and this.
        Q_EMIT hinted();
        return DatabaseResult<bool>(true);
    });
}

void DatabaseWorker::run()
{
    exec();
    close();
    m_context.reset();
}

void DatabaseWorker::doCall()
{
    if (const auto work = m_calls.take()) {
        m_answers.put((*work)(*this));
        Q_EMIT answered();
    }
}

DatabaseError DatabaseWorker::cancelled() const
{
    return {m_options.location.name(), tr("Ожидание прервано."), tr("Ничего не записано."),
            DatabaseError::Kind::Cancelled};
}

std::optional<DatabaseError> DatabaseWorker::open()
{
    if (m_store)
        return {};
    auto store = std::make_unique<SettingsStore>();
    if (auto error = store->open(m_options.location, m_options.missing))
        return error;
    m_store = std::move(store);
    // A database that was there and is gone comes back, or somebody has to know.
    m_options.missing = SettingsStore::Missing::Refuse;
    m_control.setSocket(m_store->socket());
    auto error = m_options.isWatching ? listen() : std::nullopt;
    // What was told while there was no connection is gone.
    if (!error && m_wasOpen)
        Q_EMIT hinted();
    m_wasOpen = true;
    return error;
}

void DatabaseWorker::close()
{
    // It may be in the middle of telling.
    if (m_notifier) {
        m_notifier->setEnabled(false);
        m_notifier.release()->deleteLater();
    }
    m_control.setSocket(-1);
    m_store.reset();
}

std::optional<DatabaseError> DatabaseWorker::listen()
{
    if (m_notifier || m_store->socket() < 0)
        return {};
    if (auto error = m_store->listen())
        return error;
    m_notifier = std::make_unique<QSocketNotifier>(m_store->socket(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, m_context.get(), [this] { takeNews(); });
    return {};
}

void DatabaseWorker::takeNews()
{
    if (!m_notifier)
        return;
    switch (m_store->takeNews()) {
    case ServerLink::News::Nothing:
        break;
    case ServerLink::News::SomethingChanged:
        Q_EMIT hinted();
        break;
    case ServerLink::News::ConnectionLost:
        close();
        m_losses.put({m_options.location.name(), tr("Связь с сервером базы данных потеряна."),
                      tr("Проверьте сеть и сервер."), DatabaseError::Kind::Disconnected});
        Q_EMIT disconnected();
    }
}
