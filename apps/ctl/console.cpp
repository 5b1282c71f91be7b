#include "console.h"

#include "texttable.h"

#include <QTextStream>

#include <cstdio>

bool Console::print(const QString &text)
{
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    out << text;
    out.flush();
    return out.status() == QTextStream::Ok && fflush(stdout) == 0;
}

void Console::tell(const QString &message)
{
    QTextStream err(stderr);
    err.setCodec("UTF-8");
    for (const QString &line : message.split(QLatin1Char('\n')))
        err << TextTable::visible(line) << '\n';
}
