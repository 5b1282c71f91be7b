#include "texttable.h"

#include <algorithm>

namespace {

const QString gap = QStringLiteral("  ");

bool isUnprintable(QChar c)
{
    // Format characters can turn the direction of what follows them.
    return c.category() == QChar::Other_Control || c.category() == QChar::Other_Format ||
           c.category() == QChar::Separator_Line || c.category() == QChar::Separator_Paragraph;
}

QVector<int> columnWidths(const QVector<QStringList> &rows)
{
    QVector<int> widths;
    for (const QStringList &row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (int column = 0; column < row.size(); ++column)
            widths[column] = std::max(widths[column], int(row[column].size()));
    }
    return widths;
}

QString line(const QStringList &row, const QVector<int> &widths)
{
    QString line;
    for (int column = 0; column < row.size(); ++column)
        line += row[column].leftJustified(widths[column]) + gap;
    while (line.endsWith(QLatin1Char(' ')))
        line.chop(1);
    return line;
}
} // namespace

TextTable::TextTable(const QStringList &titles)
{
    if (!titles.isEmpty())
        m_rows.append(titles);
}

void TextTable::addRow(const QStringList &cells)
{
    QStringList row;
    for (const QString &cell : cells)
        row.append(visible(cell));
    m_rows.append(row);
}

QString TextTable::text(const QString &indent) const
{
    const QVector<int> widths = columnWidths(m_rows);
    QString text;
    for (const QStringList &row : m_rows)
        text += indent + line(row, widths) + QLatin1Char('\n');
    return text;
}

QString TextTable::visible(const QString &text)
{
    QString visible;
    for (const QChar c : text) {
        if (c == QLatin1Char('\n'))
            visible += QStringLiteral("\\n");
        else if (isUnprintable(c))
            visible += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        else
            visible += c;
    }
    return visible;
}
