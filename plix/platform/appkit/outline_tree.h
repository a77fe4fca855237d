#pragma once

#include <plix/platform/base/NSObject.h>
#include <plix/platform/base/Ref.h>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace plix {

/// Where an outline's items come from. Null stands for the top.
struct OutlineSource {
    std::function<long(NSObject* item)> numberOfChildren;
    std::function<Ref<NSObject>(NSObject* item, long index)> child;
};

/// The rows of an outline: which item each is, at which level, and the other way round, in logarithmic time. Children are asked for
/// when their row is reached, not before; their number when their parent is expanded. An item that the source gives more than once
/// counts where it was met first. The source may change the tree, or reload it, in whatever it is asked: what was under way then
/// finds nothing.
class PLIX_EXPORT OutlineTree {
public:
    OutlineTree();
    ~OutlineTree();
    OutlineTree(OutlineTree const&) = delete;
    OutlineTree& operator=(OutlineTree const&) = delete;

    void setSource(OutlineSource source) { m_source = std::move(source); }
    /// Asks anew for everything; items that are there still stay expanded.
    void reload();
    /// The same below an item; nothing for one that was never met.
    void reloadChildrenOf(NSObject*);

    long numberOfRows() const;
    /// Null outside.
    NSObject* itemAtRow(long row);
    /// -1 for an item that is not there, or below a collapsed one. Looks among children that were not asked for yet too.
    long rowForItem(NSObject*);
    /// -1 outside.
    long levelForRow(long row) const;
    long levelForItem(NSObject*);
    /// Null at the top, or for an item that was never met.
    NSObject* parentOf(NSObject*);
    /// Among its parent's children; -1 for an item that was never met.
    long indexInParent(NSObject*);

    bool isExpanded(NSObject const*) const;
    /// Answers how many rows came into being; 0 also where nothing was expanded.
    long expand(NSObject*);
    /// Answers how many rows went. What was expanded below comes back as it was.
    long collapse(NSObject*);
    /// The rows below an item that is seen and expanded.
    long numberOfRowsBelow(NSObject const*) const;

private:
    struct Node;
    struct Place {
        Node* node { nullptr };
        long index { -1 };
    };
    struct Kept;

    long askCount(NSObject*);
    Place placeOfRow(long row) const;
    long rowOfPlace(Place) const;
    NSObject* childAt(Node&, long index);
    Place find(NSObject*);
    Place known(NSObject const*) const;
    Node* nodeOf(NSObject const*) const;
    void addRows(Node&, long rows);
    void setExpanded(Node&, bool);
    Node& ensureNode(Place, NSObject& item);
    void setCount(Node&, long count);
    void forgetBelow(Node&);
    static void keepBelow(Node const&, std::vector<Kept>&);
    void rebuild(Node&);
    void restore(Node&, std::vector<Kept>);

    OutlineSource m_source;
    std::unique_ptr<Node> m_root;
    std::unordered_map<NSObject const*, Place> m_places;
    /// Grows with every change that makes places of before invalid.
    std::uint64_t m_version { 0 };
    bool m_isReloading { false };
};

}
