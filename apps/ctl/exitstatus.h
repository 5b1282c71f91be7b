#pragma once

#include <QtGlobal>

/// What the program tells the shell; other programs of this project use the same numbers.
enum ExitStatus : int {
    ExitDone = 0,
    ExitDiffers = 1, ///< or nothing was found
    ExitUsage = 2,
    ExitInvalid = 3,
    ExitConflict = 4,
    ExitDatabase = 5, ///< or a file
};

/// A status in words, for --help.
struct ExitStatusText
{
    ExitStatus status;
    const char *text;
};

// clang-format off
constexpr ExitStatusText exitStatusTexts[] = {
    {ExitDone,     QT_TRANSLATE_NOOP("ExitStatus", "выполнено")},
    {ExitDiffers,  QT_TRANSLATE_NOOP("ExitStatus", "есть отличия или ошибки в сохранённых значениях; ничего не найдено")},
    {ExitUsage,    QT_TRANSLATE_NOOP("ExitStatus", "ошибка в командной строке")},
    {ExitInvalid,  QT_TRANSLATE_NOOP("ExitStatus", "недопустимое имя, значение или сочетание значений, закрытая страница; ничего не сохранено")},
    {ExitConflict, QT_TRANSLATE_NOOP("ExitStatus", "настройку одновременно изменил кто-то другой; ничего не сохранено")},
    {ExitDatabase, QT_TRANSLATE_NOOP("ExitStatus", "ошибка базы данных или файла; ожидание прервано; неизвестно, сохранены ли изменения")},
};
// clang-format on
