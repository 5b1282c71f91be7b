#pragma once

#include <host/databaseerror.h>
#include <host/settingchange.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QStringList>

class QWidget;

/// The questions and messages that a save may need, each a modal box over @c parent.
class SaveQuestions
{
    Q_DECLARE_TR_FUNCTIONS(SaveQuestions)

public:
    enum class Leaving { Save, Discard, Stay };

    /// Whether to replace the stored texts of these JSON settings, into which an edit cannot be merged.
    static bool replaceUnreadable(QWidget *parent, const QStringList &keys);
    /// What to do with the unsaved edits, which are named, when the window closes.
    static Leaving leave(QWidget *parent, const QVector<SettingChange> &changes);
    /// Whether to make the edits again that @p edits tells in words, from a draft of that time.
    static bool restoreDraft(QWidget *parent, const QStringList &edits, const QDateTime &at);
    /// A change as one line: caption, old and new in words.
    static QString words(const SettingChange &change);
    /// Something that happened to the draft, a sentence.
    static void showDraftProblem(QWidget *parent, const QString &problem);
    /// An earlier value cannot be taken: @p problem tells why.
    static void refuseRestored(QWidget *parent, const QString &problem);
    /// Whether to undo the edits that operators may not save, for which @p refusal gives the words.
    static bool revertForbidden(QWidget *parent, const QString &refusal);
    static void showError(QWidget *parent, const DatabaseError &error);
    /// The same for a save of which nobody knows whether it was stored.
    static void showUnknown(QWidget *parent, const DatabaseError &error);
};
