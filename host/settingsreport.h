#pragma once

#include <host/installation.h>
#include <host/settingfinding.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QString>
#include <QVector>

#include <optional>

/// All settings of an installation on paper, in the words of the pages and in the current language, with what the
/// health check has to say. Of passwords and tokens only whether there is one.
class SettingsReport
{
    Q_DECLARE_TR_FUNCTIONS(SettingsReport)

public:
    /// @p stored is what vantorix::LocalStorage holds, which knows the names of objects; @p database is printed as it
    /// is.
    SettingsReport(const Installation &stored, const QString &database, const QDateTime &at);

    /// A page after another, as HTML of the kind that QTextDocument understands.
    QString toHtml() const;
    /// On A4 sheets, numbered. Needs a QGuiApplication.
    QByteArray toPdf() const;
    /// Replaces the file in one step. If it fails, what is wrong, a sentence.
    [[nodiscard]] std::optional<QString> writePdf(const QString &path) const;

private:
    QString pageHtml(DBGroups page) const;
    QString rowHtml(const SettingAddress &address) const;
    QString problemsHtml(const SettingAddress &address) const;
    QString accessHtml() const;
    QString unknownKeysHtml() const;
    QString footer(int sheet, int sheetCount) const;

    Installation m_stored;
    QString m_database;
    QDateTime m_at;
    QVector<SettingFinding> m_findings;
};
