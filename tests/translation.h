#pragma once

#include <QCoreApplication>
#include <QHash>
#include <QPair>
#include <QTranslator>
#include <QVector>

/// A language with a few texts, installed for its lifetime; all other texts stay as they are in the source.
///
///     InstalledTranslation english({{"QObject", "Нет", "No"}, {"QObject", "Да", "Yes"}});
class InstalledTranslation : public QTranslator
{
public:
    struct Text
    {
        QString context;
        QString source;
        QString translation;
    };

    explicit InstalledTranslation(const QVector<Text> &texts)
    {
        for (const Text &text : texts)
            m_texts.insert({text.context, text.source}, text.translation);
        QCoreApplication::installTranslator(this);
    }
    ~InstalledTranslation() override { QCoreApplication::removeTranslator(this); }
    Q_DISABLE_COPY(InstalledTranslation)

    /// Null for any other text, which makes Qt ask the next translator.
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        return m_texts.value({QString::fromUtf8(context), QString::fromUtf8(source)});
    }
    /// An empty translator would be installed without telling the widgets.
    bool isEmpty() const override { return false; }

private:
    QHash<QPair<QString, QString>, QString> m_texts;
};
