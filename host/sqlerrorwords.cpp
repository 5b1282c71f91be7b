#include "sqlerrorwords.h"

#include "databaselocation.h"

#include <QSqlError>

using Kind = DatabaseError::Kind;

namespace {

struct Words
{
    Kind kind;
    const char *reason;
    const char *advice;
};

/// A primary result code of SQLite and what it means to a user.
struct FileError
{
    int code;
    Words words;
};

/// The beginning of an SQLSTATE and what it means to a user.
struct ServerError
{
    const char *state;
    Words words;
};

constexpr char restore[] = QT_TRANSLATE_NOOP("SqlErrorWords", "Восстановите файл из резервной копии.");
constexpr char tryAgain[] =
    QT_TRANSLATE_NOOP("SqlErrorWords", "Повторите попытку; если ошибка остаётся, сообщите о ней администратору.");
constexpr char waitForThem[] =
    QT_TRANSLATE_NOOP("SqlErrorWords", "Подождите, пока она закончит запись, и повторите попытку.");
constexpr char busy[] = QT_TRANSLATE_NOOP("SqlErrorWords", "База данных занята другой программой.");
constexpr char noAnswer[] = QT_TRANSLATE_NOOP("SqlErrorWords", "Нет связи с сервером базы данных.");
constexpr char checkServer[] = QT_TRANSLATE_NOOP(
    "SqlErrorWords", "Проверьте адрес, сеть и сервер, имя пользователя и его пароль в файле ~/.pgpass.");
constexpr char askAdministrator[] =
    QT_TRANSLATE_NOOP("SqlErrorWords", "Обратитесь к администратору сервера базы данных.");

// clang-format off
constexpr Words otherError = {Kind::Refused, QT_TRANSLATE_NOOP("SqlErrorWords", "Ошибка базы данных."), tryAgain};
constexpr Words lostServer = {Kind::Disconnected, noAnswer, checkServer};

constexpr FileError fileErrors[] = {
    { 5, {Kind::Busy, busy, waitForThem}},
    { 6, {Kind::Busy, busy, waitForThem}},
    { 8, {Kind::Refused, QT_TRANSLATE_NOOP("SqlErrorWords", "База данных доступна только для чтения."),
                         QT_TRANSLATE_NOOP("SqlErrorWords", "Разрешите запись в файл и в его папку.")}},
    {10, {Kind::Refused, QT_TRANSLATE_NOOP("SqlErrorWords", "Ошибка чтения или записи на диск."),
                         QT_TRANSLATE_NOOP("SqlErrorWords", "Проверьте диск и подключение к нему.")}},
    {11, {Kind::Refused, QT_TRANSLATE_NOOP("SqlErrorWords", "Файл базы данных повреждён."), restore}},
    {13, {Kind::Full,    QT_TRANSLATE_NOOP("SqlErrorWords", "На диске нет места."),
                         QT_TRANSLATE_NOOP("SqlErrorWords", "Освободите место и повторите попытку.")}},
    {14, {Kind::Refused, QT_TRANSLATE_NOOP("SqlErrorWords", "Файл базы данных не открывается."),
                         QT_TRANSLATE_NOOP("SqlErrorWords", "Проверьте путь и права доступа к файлу и его папке.")}},
    {26, {Kind::Refused, QT_TRANSLATE_NOOP("SqlErrorWords", "Файл не является базой данных."), restore}},
};

constexpr ServerError serverErrors[] = {
    {"55P03", {Kind::Busy, busy, waitForThem}},
    {"40P01", {Kind::Busy, busy, waitForThem}},
    {"40001", {Kind::Busy, busy, waitForThem}},
    {"57014", {Kind::Disconnected, QT_TRANSLATE_NOOP("SqlErrorWords", "Сервер базы данных не ответил вовремя."), tryAgain}},
    {"57P",   lostServer},
    {"25P03", lostServer},
    {"08",    lostServer},
    {"25006", {Kind::Refused, QT_TRANSLATE_NOOP("SqlErrorWords", "База данных доступна только для чтения."), askAdministrator}},
    {"28",    {Kind::Refused, QT_TRANSLATE_NOOP("SqlErrorWords", "Сервер базы данных не принимает пользователя или пароль."), checkServer}},
    {"3D000", {Kind::Refused, QT_TRANSLATE_NOOP("SqlErrorWords", "На сервере нет такой базы данных."), checkServer}},
    {"42501", {Kind::Refused, QT_TRANSLATE_NOOP("SqlErrorWords", "У пользователя базы данных нет прав на это."), askAdministrator}},
    {"53",    {Kind::Refused, QT_TRANSLATE_NOOP("SqlErrorWords", "У сервера базы данных не хватает места, памяти или соединений."), askAdministrator}},
};
// clang-format on

Words wordsOfCode(int code)
{
    for (const FileError &row : fileErrors) {
        if (row.code == code)
            return row.words;
    }
    return otherError;
}

Words wordsOfState(const QString &state)
{
    for (const ServerError &row : serverErrors) {
        if (state.startsWith(QLatin1String(row.state)))
            return row.words;
    }
    return otherError;
}
} // namespace

DatabaseError SqlErrorWords::error(const DatabaseLocation &location, const QSqlError &error, bool isLost)
{
    return location.engine() == DatabaseLocation::Engine::Sqlite ? fileError(location, error)
                                                                 : serverError(location, error, isLost);
}

DatabaseError SqlErrorWords::fileError(const DatabaseLocation &location, const QSqlError &error)
{
    // The low byte is the primary code, the rest tells it more precisely.
    const Words words = wordsOfCode(error.nativeErrorCode().toInt() & 0xff);
    return {location.name(), QStringLiteral("%1 (SQLite: %2)").arg(tr(words.reason), error.databaseText()),
            tr(words.advice), words.kind};
}

DatabaseError SqlErrorWords::serverError(const DatabaseLocation &location, const QSqlError &error, bool isLost)
{
    // What a server says of a statement may quote a value, what it says of a connection does not.
    const QString state = error.nativeErrorCode();
    const Words words = isLost ? lostServer : wordsOfState(state);
    const QString details = isLost ? error.databaseText().section(QLatin1Char('\n'), 0, 0) : state;
    return {location.name(), QStringLiteral("%1 (PostgreSQL: %2)").arg(tr(words.reason), details), tr(words.advice),
            isLost ? Kind::Disconnected : words.kind};
}
