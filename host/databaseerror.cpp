#include "databaseerror.h"

#include <QSqlError>

namespace {

/// A primary result code of SQLite and what it means to a user.
struct Explanation
{
    int code;
    const char *reason;
    const char *advice;
};

constexpr char restore[] = QT_TRANSLATE_NOOP("DatabaseError", "Восстановите файл из резервной копии.");
constexpr char reportIt[] =
    QT_TRANSLATE_NOOP("DatabaseError", "Повторите попытку; если ошибка остаётся, сообщите о ней администратору.");

// clang-format off
constexpr Explanation explanations[] = {
    { 5, QT_TRANSLATE_NOOP("DatabaseError", "База данных занята другой программой."),
         QT_TRANSLATE_NOOP("DatabaseError", "Подождите, пока она закончит запись, и повторите попытку.")},
    { 8, QT_TRANSLATE_NOOP("DatabaseError", "База данных доступна только для чтения."),
         QT_TRANSLATE_NOOP("DatabaseError", "Разрешите запись в файл и в его папку.")},
    {10, QT_TRANSLATE_NOOP("DatabaseError", "Ошибка чтения или записи на диск."),
         QT_TRANSLATE_NOOP("DatabaseError", "Проверьте диск и подключение к нему.")},
    {11, QT_TRANSLATE_NOOP("DatabaseError", "Файл базы данных повреждён."), restore},
    {13, QT_TRANSLATE_NOOP("DatabaseError", "На диске нет места."),
         QT_TRANSLATE_NOOP("DatabaseError", "Освободите место и повторите попытку.")},
    {14, QT_TRANSLATE_NOOP("DatabaseError", "Файл базы данных не открывается."),
         QT_TRANSLATE_NOOP("DatabaseError", "Проверьте путь и права доступа к файлу и его папке.")},
    {26, QT_TRANSLATE_NOOP("DatabaseError", "Файл не является базой данных."), restore},
};
// clang-format on

const Explanation *explanationOf(const QSqlError &error)
{
    // The low byte is the primary code, the rest tells it more precisely.
    const int code = error.nativeErrorCode().toInt() & 0xff;
    for (const Explanation &explanation : explanations) {
        if (explanation.code == code)
            return &explanation;
    }
    return nullptr;
}
} // namespace

DatabaseError DatabaseError::fromDriver(const QString &path, const QSqlError &error)
{
    const Explanation *explanation = explanationOf(error);
    const QString reason = explanation ? tr(explanation->reason) : tr("Ошибка базы данных.");
    return {path, QStringLiteral("%1 (SQLite: %2)").arg(reason, error.databaseText()),
            tr(explanation ? explanation->advice : reportIt)};
}

QString DatabaseError::text() const
{
    return tr("Не удаётся использовать базу данных «%1».\n%2\n%3").arg(path, reason, advice);
}
