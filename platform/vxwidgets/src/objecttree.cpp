#include "objecttree.h"

#include <QHash>

#include <algorithm>
#include <numeric>

using vantorix::LocalStorage;
using vantorix::ObjectRecord;

ObjectTree::ObjectTree(const QVector<ObjectRecord> &records)
    : m_records(records)
{
    if (!linkConsecutive()) {
        tabulateUids();
        linkParents();
    }
    cutEndlessBranches();
    groupChildren();
}

std::shared_ptr<const ObjectTree> ObjectTree::of(const QString &dataName)
{
    static QHash<QString, std::weak_ptr<const ObjectTree>> living;

    const QVector<ObjectRecord> records = LocalStorage::instance()->objects(dataName);
    std::weak_ptr<const ObjectTree> &known = living[dataName];
    std::shared_ptr<const ObjectTree> tree = known.lock();
    if (!tree || !tree->m_records.isSharedWith(records)) {
        tree = std::make_shared<const ObjectTree>(records);
        known = tree;
    }
    return tree;
}

int ObjectTree::find(unsigned int uid) const
{
    if (uid == 0)
        return none;
    if (!m_numbers.empty())
        return m_numbers[slotOf(uid)];
    const unsigned int number = uid - m_firstUid;
    return number < unsigned(count()) ? int(number) : none;
}

int ObjectTree::row(int number) const
{
    const int *siblings = childrenOf(parent(number));
    const auto begin = m_children.cbegin() + siblings[0];
    const auto end = m_children.cbegin() + siblings[1];
    return int(std::lower_bound(begin, end, number) - begin);
}

/// Uids without a gap are their own table. False if there is one; then nothing is linked.
bool ObjectTree::linkConsecutive()
{
    const unsigned int first = m_records.isEmpty() ? 1 : m_records.constFirst().uid;
    if (first == 0)
        return false;

    m_parents.reserve(size_t(count()));
    for (const ObjectRecord &record : qAsConst(m_records)) {
        if (record.uid != first + unsigned(m_parents.size())) {
            m_parents.clear();
            return false;
        }
        const unsigned int parent = record.parentUid - first; // huge for a uid below
        m_parents.push_back(record.parentUid && parent < unsigned(count()) ? int(parent) : none);
    }
    m_firstUid = first;
    return true;
}

void ObjectTree::tabulateUids()
{
    size_t size = 8;
    while (size < 2 * size_t(count()))
        size *= 2;
    m_numbers.assign(size, none);

    for (int number = 0; number < count(); ++number) {
        const unsigned int uid = record(number).uid;
        int &known = m_numbers[slotOf(uid)];
        if (uid && known == none)
            known = number;
    }
}

void ObjectTree::linkParents()
{
    m_parents.reserve(size_t(count()));
    unsigned int lastUid = 0; // siblings mostly follow each other
    int lastParent = none;
    for (const ObjectRecord &record : qAsConst(m_records)) {
        if (record.parentUid != lastUid) {
            lastUid = record.parentUid;
            lastParent = find(lastUid);
        }
        m_parents.push_back(lastParent);
    }
}

void ObjectTree::cutEndlessBranches()
{
    constexpr short pending = -1; // what the top counts up from, so a circle ends like at the top
    constexpr short unknown = -2;
    std::vector<short> depths(size_t(count()), unknown);
    for (int number = 0; number < count(); ++number) {
        int length = 0; // of the way up to an ancestor that has its depth
        int ancestor = number;
        for (; ancestor != none && depths[size_t(ancestor)] == unknown; ancestor = parent(ancestor), ++length)
            depths[size_t(ancestor)] = pending;

        int depth = length + (ancestor == none ? pending : depths[size_t(ancestor)]);
        for (int node = number; length > 0; --length, --depth) {
            const int above = parent(node);
            depths[size_t(node)] = short(depth % maximumDepth);
            if (depth % maximumDepth == 0)
                m_parents[size_t(node)] = none;
            node = above;
        }
    }
}

void ObjectTree::groupChildren()
{
    m_firstChild.assign(size_t(count()) + 2, 0);
    for (const int parent : m_parents)
        ++m_firstChild[size_t(parent + 1)];
    std::partial_sum(m_firstChild.begin(), m_firstChild.end(), m_firstChild.begin());

    // From the end of each group down to its beginning.
    m_children.resize(size_t(count()));
    for (int number = count() - 1; number >= 0; --number)
        m_children[size_t(--m_firstChild[size_t(parent(number) + 1)])] = number;
}

size_t ObjectTree::slotOf(unsigned int uid) const
{
    // Uids mostly come in runs, which lie side by side in the table; the other bits of a uid part those that clash.
    const size_t mask = m_numbers.size() - 1;
    size_t slot = uid & mask;
    for (size_t rest = uid; m_numbers[slot] != none && record(m_numbers[slot]).uid != uid;) {
        rest >>= 5;
        slot = (5 * slot + rest + 1) & mask;
    }
    return slot;
}
