#include "console.h"

#include "texttable.h"

#include <cstdio>

namespace {

bool write(const QString &text, FILE *file)
{
    const QByteArray bytes = text.toUtf8();
    const auto size = size_t(bytes.size());
    return std::fwrite(bytes.constData(), 1, size, file) == size && std::fflush(file) == 0;
}
} // namespace

bool Console::print(const QString &text)
{
    return write(text, stdout);
}

void Console::tell(const QString &message)
{
    QString lines;
    for (const QString &line : message.split(QLatin1Char('\n')))
        lines += TextTable::visible(line) + QLatin1Char('\n');
    write(lines, stderr);
}
