#pragma once

#include <host/settingaddress.h>

#include <QCoreApplication>
#include <QHash>
#include <QJsonArray>
#include <QString>
#include <QVector>

#include <optional>

/// How two states of the stored settings differ, value by value: of a JSON setting only the members that do.
class StoredDifference
{
    Q_DECLARE_TR_FUNCTIONS(StoredDifference)

public:
    struct Row
    {
        SettingAddress address;
        std::optional<QString> before; ///< nothing where nothing was stored
        std::optional<QString> after;
    };

    /// Of the keys of @p after; what is not among them counts as unchanged.
    StoredDifference(const QHash<QString, QString> &before, const QHash<QString, QString> &after);

    bool isEmpty() const;
    /// In alphabetical order of the keys.
    const QVector<Row> &rows() const;
    /// A line for each, "key (caption): old → new".
    QString text() const;
    /// Objects with "key", "caption", "old" and "new"; see ValueWords::json().
    QJsonArray json() const;

private:
    void addRows(const Row &whole);

    QVector<Row> m_rows;
};
