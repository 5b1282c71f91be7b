#pragma once

#include <host/databaseerror.h>

#include <QCoreApplication>
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
    /// What to do with @p count unsaved edits when the window closes.
    static Leaving leave(QWidget *parent, int count);
    static void showError(QWidget *parent, const DatabaseError &error);
    /// The same for a save of which nobody knows whether it was stored.
    static void showUnknown(QWidget *parent, const DatabaseError &error);
};
