#pragma once

#include <QTranslator>

/// Puts brackets around every source text: what is not bracketed was not translated.
class BracketTranslator : public QTranslator
{
public:
    QString translate(const char *, const char *sourceText, const char *, int) const override
    {
        return QLatin1Char('[') + QString::fromUtf8(sourceText) + QLatin1Char(']');
    }
    bool isEmpty() const override { return false; }
};
