#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// Aligned columns for a terminal.
class TextTable
{
public:
    explicit TextTable(const QStringList &titles = {});

    /// @p cells: as many as there are columns.
    void addRow(const QStringList &cells);
    /// Each row a line, @p indent before it. Control characters in cells are made visible, none reaches the terminal.
    QString text(const QString &indent = {}) const;

    /// @p text in one line: a line break as "\n", any other control character as its number.
    static QString visible(const QString &text);

private:
    QVector<QStringList> m_rows; // the titles are the first if there are any
};
