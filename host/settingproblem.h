#pragma once

#include <QCoreApplication>
#include <QString>

/// What can be wrong with a stored text.
struct SettingProblem
{
    Q_DECLARE_TR_FUNCTIONS(SettingProblem)

public:
    enum class Kind {
        None,
        NotANumber,        ///< where a whole number belongs
        OutOfRange,        ///< a number that the editor would clamp
        UnknownChoice,     ///< none of the choices
        NotAFlag,          ///< neither true nor false
        NotALine,          ///< a text with control characters, or not valid Unicode
        TooLong,           ///< a text that the editor would cut off
        ObjectGone,        ///< a reference to an object that does not exist
        ObjectOfOtherType, ///< a reference to an object that the selector does not offer
        ObjectNotGranted,  ///< a reference to an object that the operator may not see
        NotAJsonObject,    ///< a text that is not one JSON object
        DuplicateMember,   ///< a name that occurs more than once in a JSON object
        NotAScalar,        ///< null, an array or an object as the value of a member
        UnknownMember,     ///< a member that no editor shows
        UnknownKey,        ///< a key that no editor shows
        BrokenRule,        ///< values that contradict each other, see SettingRules
    };

    /// A sentence in the current language; null for None and for BrokenRule, which has words of its own.
    static QString words(Kind kind);
    /// A stable name for programs, such as "out-of-range"; null for None.
    static QString name(Kind kind);
    /// Whether a person should know of it but nothing has to be done: the value is another program's or operator's.
    static bool isNotice(Kind kind);
};
