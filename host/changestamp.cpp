#include "changestamp.h"

#include <QCoreApplication>
#include <QFile>
#include <QSysInfo>

#include <pwd.h>
#include <unistd.h>

namespace {

/// Of the account that the process runs under, which the environment may not tell truly. Its number if it has no name.
QString accountName()
{
    const passwd *account = ::getpwuid(::geteuid());
    return account ? QFile::decodeName(account->pw_name) : QString::number(::geteuid());
}
} // namespace

ChangeStamp ChangeStamp::now()
{
    return {QDateTime::currentDateTimeUtc(), accountName(), QSysInfo::machineHostName(),
            QCoreApplication::applicationName()};
}

QVariantList ChangeStamp::toColumns() const
{
    return {at.toString(Qt::ISODateWithMs), by, workstation, program};
}

ChangeStamp ChangeStamp::fromColumns(const QVariantList &columns)
{
    return {QDateTime::fromString(columns[0].toString(), Qt::ISODateWithMs), columns[1].toString(),
            columns[2].toString(), columns[3].toString()};
}
