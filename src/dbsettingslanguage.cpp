#include <vxsettings/dbsettingslanguage.h>

#include <QCoreApplication>
#include <QTranslator>

namespace {

constexpr char context[] = "QObject";
const DBSettingsLanguage *innermost = nullptr;
} // namespace

DBSettingsLanguage::DBSettingsLanguage(const QTranslator *translator)
    : m_translator(translator)
    , m_previous(innermost)
{
    innermost = this;
}

DBSettingsLanguage::~DBSettingsLanguage()
{
    innermost = m_previous;
}

QString DBSettingsLanguage::translated(const char *source)
{
    if (!innermost)
        return QCoreApplication::translate(context, source);
    const QTranslator *translator = innermost->m_translator;
    const QString translation = translator ? translator->translate(context, source) : QString();
    return translation.isNull() ? QString::fromUtf8(source) : translation;
}
