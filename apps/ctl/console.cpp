#include "console.h"

#include "texttable.h"

#include <qtcompat.h>

#include <QTextStream>

#include <cstdio>

bool Console::print(const QString &text)
{
    QTextStream out(stdout);
    qtcompat::setUtf8(out);
    out << text;
    out.flush();
    return out.status() == QTextStream::Ok && fflush(stdout) == 0;
}

void Console::tell(const QString &message)
{
    QTextStream err(stderr);
    qtcompat::setUtf8(err);
    for (const QString &line : message.split(QLatin1Char('\n')))
        err << TextTable::visible(line) << '\n';
}
