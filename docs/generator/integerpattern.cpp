#include "integerpattern.h"

#include <QStringList>

namespace {

/// The numbers from @c first on that differ in one digit, and in any way in those behind it: "4[2-9][0-9]".
struct Block
{
    qint64 first;
    qint64 span = 1; ///< how many numbers one value of that digit stands for

    int digit() const { return int(first / span % 10); }
};

Block largestBlock(qint64 first, qint64 maximum)
{
    Block block{first};
    // A span larger than the number itself would let zeros lead.
    while (first % (block.span * 10) == 0 && block.span * 10 <= first && first + block.span * 10 - 1 <= maximum)
        block.span *= 10;
    return block;
}

int lastDigit(const Block &block, qint64 maximum)
{
    return int(qMin<qint64>(9, block.digit() + (maximum - block.first + 1) / block.span - 1));
}

QString pattern(const Block &block, int last)
{
    const qint64 prefix = block.first / block.span / 10;
    QString text = prefix == 0 ? QString() : QString::number(prefix);
    const QString first = QString::number(block.digit());
    text += block.digit() == last ? first : QStringLiteral("[%1-%2]").arg(first, QString::number(last));
    const int anyDigits = QString::number(block.span).size() - 1;
    return anyDigits == 0 ? text : text + QStringLiteral("[0-9]{%1}").arg(anyDigits);
}
} // namespace

QString IntegerPattern::between(int minimum, int maximum)
{
    Q_ASSERT(minimum >= 0);
    QStringList alternatives;
    for (qint64 first = minimum; first <= maximum;) {
        const Block block = largestBlock(first, maximum);
        const int last = lastDigit(block, maximum);
        alternatives.append(pattern(block, last));
        first += (last - block.digit() + 1) * block.span;
    }
    return QStringLiteral("^0*(%1)$").arg(alternatives.join(QLatin1Char('|')));
}
