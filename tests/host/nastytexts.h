#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVector>

class QRandomGenerator;

/// What may stand in a database although no editor would have written it. Bytes, because it need not be valid UTF-8.
namespace nastytexts {

constexpr int count = 200;

// @c count different texts each: those written by hand, then invented ones.

QVector<QByteArray> numbers(QRandomGenerator &random);
QVector<QByteArray> choices(QRandomGenerator &random);
QVector<QByteArray> references(QRandomGenerator &random);
QVector<QByteArray> lines(QRandomGenerator &random);
/// In the place of a JSON setting with the members @p names.
QVector<QByteArray> objects(QRandomGenerator &random, const QStringList &names);

// In the place of one member's value, as it is written in JSON.

QVector<QByteArray> flagMembers(QRandomGenerator &random);
QVector<QByteArray> numberMembers(QRandomGenerator &random);
} // namespace nastytexts
