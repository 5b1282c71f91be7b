#pragma once

#include <QString>

/// What a row or a box shows of @p text: one line, and no more than a screen takes.
///
/// Names come from a database, and shaping a megabyte of text to elide it would stop the application for seconds.
inline QString singleLine(const QString &text)
{
    constexpr int longest = 500;
    QString line = text.left(longest);
    for (QChar &character : line) {
        const QChar::Category category = character.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph)
            character = QLatin1Char(' ');
    }
    return line;
}
