#pragma once

#include "autotestexport.h"

#include <localstorage/localstorage.h>

#include <QVector>

#include <memory>
#include <vector>

/// The objects of one data name as a tree. Never changes once built, so everybody who shows the same list shares it.
///
/// An object is known by its number, its place in the list. Whatever the list says, each record has its place in the
/// tree:
/// - siblings keep the order of the list, a child may come before its parent;
/// - a record whose parent is missing stands at the top;
/// - parents that lead round in a circle are cut at one of them, which then stands at the top; so is a branch at every
///   maximumDepth levels, because views walk a tree recursively;
/// - of several records with one uid the first one is the parent of the children and the one that is found.
class VXWIDGETS_AUTOTEST_EXPORT ObjectTree
{
public:
    static constexpr int none = -1; ///< the number of no object; as a parent, the top
    static constexpr int maximumDepth = 1000;

    explicit ObjectTree(const QVector<vantorix::ObjectRecord> &records);

    /// What LocalStorage holds under @p dataName now; the same tree for all who ask while the list stays as it is.
    static std::shared_ptr<const ObjectTree> of(const QString &dataName);

    int count() const { return m_records.count(); }
    const vantorix::ObjectRecord &record(int number) const { return m_records.at(number); }

    /// none if no object has this uid; uid 0 names no object.
    int find(unsigned int uid) const;

    int parent(int number) const { return m_parents[size_t(number)]; }
    int childCount(int parent) const { return *(childrenOf(parent) + 1) - *childrenOf(parent); }
    /// @p row counts from 0 and must be below childCount().
    int child(int parent, int row) const { return m_children[size_t(*childrenOf(parent) + row)]; }
    /// The place of @p number among its siblings.
    int row(int number) const;

private:
    bool linkConsecutive();
    void tabulateUids();
    void linkParents();
    void cutEndlessBranches();
    void groupChildren();

    /// Where the number of the object @p uid is in m_numbers, or would be.
    size_t slotOf(unsigned int uid) const;
    /// Where m_firstChild tells the first child of @p parent; what follows tells the end.
    const int *childrenOf(int parent) const { return m_firstChild.data() + parent + 1; }

    QVector<vantorix::ObjectRecord> m_records;
    std::vector<int> m_numbers;    // open addressing: at the slot of its uid, the number of the object
    unsigned int m_firstUid = 1;   // stands in for an empty table: the uids count up from here
    std::vector<int> m_parents;    // by number
    std::vector<int> m_children;   // numbers, siblings side by side and ascending
    std::vector<int> m_firstChild; // by number of the parent + 1: where its children begin in m_children
};
