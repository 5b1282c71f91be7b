#include "databaseerror.h"

QString DatabaseError::text() const
{
    return tr("Не удаётся использовать базу данных «%1».\n%2\n%3").arg(path, reason, advice);
}
