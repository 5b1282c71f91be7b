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
    /// Of the keys of @p after; what is not among them counts as unchanged.
    StoredDifference(const QHash<QString, QString> &before, const QHash<QString, QString> &after);

    bool isEmpty() const;
    /// A line for each, "key (caption): old → new", in alphabetical order of the keys.
    QString text() const;
    /// Objects with "key", "caption", "old" and "new"; see ValueWords::json().
    QJsonArray json() const;

private:
    struct Row
    {
        SettingAddress address;
        std::optional<QString> before;
        std::optional<QString> after;
    };

    void addRows(const Row &whole);

    QVector<Row> m_rows;
};
