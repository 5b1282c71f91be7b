#pragma once

#include <host/changestamp.h>

#include <QCoreApplication>
#include <QJsonObject>
#include <QString>

/// Who changed something, where and when, as the program prints it.
class StampWords
{
    Q_DECLARE_TR_FUNCTIONS(StampWords)

public:
    /// In local time; a dash if it is not known.
    static QString time(const ChangeStamp &stamp);
    /// "account@workstation"; a dash for what is not known.
    static QString who(const ChangeStamp &stamp);
    /// Both, to stand in brackets.
    static QString sentence(const ChangeStamp &stamp);

    /// Adds "by", "workstation" and "at", which is ISO 8601 in UTC; null for what is not known.
    static void insertInto(QJsonObject &json, const ChangeStamp &stamp);
};
