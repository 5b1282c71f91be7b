#pragma once

#include <QCoreApplication>
#include <QTranslator>

/// A language in which every text is twice as long, installed for its lifetime.
class DoublingTranslator : public QTranslator
{
public:
    DoublingTranslator() { QCoreApplication::installTranslator(this); }
    ~DoublingTranslator() override { QCoreApplication::removeTranslator(this); }
    Q_DISABLE_COPY(DoublingTranslator)

    QString translate(const char *, const char *source, const char *, int) const override
    {
        const QString text = QString::fromUtf8(source);
        return text + QLatin1Char(' ') + text;
    }
    bool isEmpty() const override { return false; }
};
