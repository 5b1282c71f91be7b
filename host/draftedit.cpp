#include "draftedit.h"

#include <host/installation.h>

#include <QCoreApplication>

namespace {

struct Description
{
    DraftEdit::Standing standing;
    const char *words;
};

// clang-format off
constexpr Description descriptions[] = {
    {DraftEdit::Standing::Current, QT_TRANSLATE_NOOP("DraftEdit", "С тех пор настройку никто не менял.")},
    {DraftEdit::Standing::Done,    QT_TRANSLATE_NOOP("DraftEdit", "Это значение уже сохранено.")},
    {DraftEdit::Standing::Changed, QT_TRANSLATE_NOOP("DraftEdit", "С тех пор настройку изменил кто-то другой.")},
    {DraftEdit::Standing::Unknown, QT_TRANSLATE_NOOP("DraftEdit", "Такой настройки больше нет.")},
    {DraftEdit::Standing::Foreign, QT_TRANSLATE_NOOP("DraftEdit", "Черновик сделан не в этой базе данных или база восстановлена из старой копии.")},
};
// clang-format on

QString valueIn(const Installation &stored, const SettingAddress &address)
{
    return address.valueIn(stored.settings).value_or(QString());
}

bool areSame(const QString &left, const QString &right)
{
    return left == right && left.isNull() == right.isNull();
}
} // namespace

DraftEdit DraftEdit::of(const SettingAddress &address, const QString &text, const Installation &stored)
{
    return {address, text, valueIn(stored, address), stored.revisions.value(address.key), false};
}

DraftEdit::Standing DraftEdit::standing(const Installation &stored) const
{
    if (!address.isKnown())
        return Standing::Unknown;
    const QString now = valueIn(stored, address);
    const bool isBase = areSame(now, base);
    const qint64 revisionNow = stored.revisions.value(address.key);
    // A revision is never given twice, and stands for one text.
    if (revisionNow < revision || (revisionNow == revision && !isBase))
        return Standing::Foreign;
    if (areSame(now, text))
        return Standing::Done;
    return isBase ? Standing::Current : Standing::Changed;
}

bool DraftEdit::isRepairOf(const Installation &stored) const
{
    return isRepair && stored.revisions.value(address.key) == revision;
}

QString DraftEdit::words(Standing standing)
{
    return QCoreApplication::translate("DraftEdit", descriptions[int(standing)].words);
}

bool operator==(const DraftEdit &left, const DraftEdit &right)
{
    return left.address == right.address && areSame(left.text, right.text) && areSame(left.base, right.base) &&
           left.revision == right.revision && left.isRepair == right.isRepair;
}
