#pragma once

#include <host/draftedit.h>

#include <QByteArray>
#include <QDateTime>
#include <QObject>
#include <QThreadPool>
#include <QTimer>
#include <QVector>

#include <memory>
#include <optional>

class DatabaseLocation;
class QLockFile;

/// A private copy of the edits that are not saved yet, for the next start, should this process end without warning: a
/// file in the user's data folder that only its owner can read. Passwords and tokens are left out.
///
/// The file is written durably, in a thread of its own, less than a second after an edit; it is removed when nothing is
/// unsaved. Several processes on the same database have a file each, and a new one finds what a dead one has left.
class SettingsDraft : public QObject
{
    Q_OBJECT

public:
    /// What an earlier process has left behind.
    struct Found
    {
        QVector<DraftEdit> edits; ///< empty if nothing was left
        QDateTime at;             ///< UTC, when they were written
        QString problem;          ///< why a file that is there cannot be used, a sentence; null if there is none
    };

    explicit SettingsDraft(const DatabaseLocation &location, QObject *parent = nullptr);
    /// Writes what is still to be written.
    ~SettingsDraft() override;

    /// Stays the same until forgetFound().
    const Found &found() const;
    /// Once these edits have been made again, or are not wanted: they stay in the file until then.
    void forgetFound();

    /// From now on @p edits are all that is not saved.
    void keep(const QVector<DraftEdit> &edits);

Q_SIGNALS:
    /// The file says what was kept last, or is gone because that is nothing.
    void written();
    /// The file could not be written: @p problem, a sentence. Told once until it works again.
    void failed(const QString &problem);

private:
    enum class Content { Left, None };

    /// Finds a file that no other process has, one with something in it or one that is not there yet.
    bool takePath(Content content);
    void read();
    QByteArray content() const;
    void write();
    void finishWriting(const std::optional<QString> &problem);
    static std::optional<QString> store(const QString &path, const QByteArray &content);

    QString m_database;
    QString m_path;
    std::unique_ptr<QLockFile> m_lock; ///< null if no file could be locked
    Found m_found;
    QVector<DraftEdit> m_edits;
    QTimer m_timer;
    QThreadPool m_writer; ///< one thread
    bool m_isWriting = false;
    bool m_hasFailed = false;
};
