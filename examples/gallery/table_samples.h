#pragma once

#include <plix/platform/base/NSObject.h>
#include <plix/platform/base/ObjectValue.h>

#include <functional>
#include <string>
#include <vector>

namespace plix {

class NSIndexSet;
struct NSNotification;
class NSOutlineView;
class NSTableColumn;
class NSTableView;

}

namespace gallery {

/// Pieces of music as a table's rows, in the columns "heard", "title", "composer" and "year". Editable; clicks in headers sort.
class Catalogue : public plix::NSObject {
public:
    struct Piece {
        bool isHeard;
        std::string title;
        std::string composer;
        int year;
        bool operator==(Piece const&) const = default;
    };
    std::vector<Piece> pieces { { true, "Brandenburg Concerto 4", "Bach", 1721 }, { false, "Water Music", "Handel", 1717 },
        { true, "Jupiter Symphony", "Mozart", 1788 }, { false, "Octet", "Mendelssohn", 1825 },
        { false, "Spring Sonata", "Beethoven", 1801 }, { true, "Trout Quintet", "Schubert", 1819 },
        { false, "Carnival", "Schumann", 1835 }, { false, "Peer Gynt", "Grieg", 1875 }, { true, "Requiem", "Fauré", 1890 },
        { false, "The Planets", "Holst", 1916 }, { false, "Boléro", "Ravel", 1928 },
        { true, "Appalachian Spring", "Copland", 1944 } };
    /// Told what a person did, for a status line.
    std::function<void(std::string const&)> tells;

    // Data source and delegate:
    long numberOfRowsInTableView(plix::NSTableView&) { return std::ssize(pieces); }
    plix::ObjectValue objectValueForTableColumn(plix::NSTableView&, plix::NSTableColumn&, long row);
    void setObjectValue(plix::NSTableView&, plix::ObjectValue, plix::NSTableColumn&, long row);
    void didClickTableColumn(plix::NSTableView&, plix::NSTableColumn&);
    void tableViewSelectionDidChange(plix::NSNotification const&);

    void tell(std::string const& text) const
    {
        if (tells)
            tells(text);
    }

private:
    void sort();

    std::string m_sortedBy;
    bool m_isAscending { true };
};

/// A part of a tree: a text, a number, and what is in it.
class Node : public plix::NSObject {
public:
    std::string text;
    int count { 0 };
    std::vector<plix::Ref<Node>> children;
    static plix::Ref<Node> with(std::string text, int count, std::vector<plix::Ref<Node>> children = {});
};

/// An orchestra as an outline's items, in the columns "name" and "count". Names are editable.
class Orchestra : public plix::NSObject {
public:
    plix::Ref<Node> root;
    /// Told what a person did, for a status line.
    std::function<void(std::string const&)> tells;

    bool init();

    // Data source and delegate:
    long numberOfChildrenOfItem(plix::NSOutlineView&, plix::NSObject* item) { return std::ssize(nodeOf(item).children); }
    plix::Ref<plix::NSObject> child(plix::NSOutlineView&, long index, plix::NSObject* item);
    bool isItemExpandable(plix::NSOutlineView&, plix::NSObject* item) { return !nodeOf(item).children.empty(); }
    plix::ObjectValue objectValueForTableColumn(plix::NSOutlineView&, plix::NSTableColumn&, plix::NSObject* item);
    void setObjectValue(plix::NSOutlineView&, plix::ObjectValue, plix::NSTableColumn&, plix::NSObject* item);
    void outlineViewSelectionDidChange(plix::NSNotification const&);

    Node& nodeOf(plix::NSObject* item) { return item ? *static_cast<Node*>(item) : *root; }
    void tell(std::string const& text) const
    {
        if (tells)
            tells(text);
    }
};

}
