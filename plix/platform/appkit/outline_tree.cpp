#include <plix/platform/appkit/outline_tree.h>

#include <plix/platform/base/NSRange.h>

#include <algorithm>
#include <deque>
#include <utility>

namespace plix {

namespace {

constexpr long childrenInPage = 256;
constexpr long mostRows = NSNotFound - 1;
/// Deeper trees are endless ones.
constexpr long mostLevels = 1000;

}

/// An item whose children were counted. The root has none and is always expanded.
struct OutlineTree::Node {
    using Page = std::array<Ref<NSObject>, childrenInPage>;

    Ref<NSObject> item;
    Node* parent { nullptr };
    long index { 0 };
    /// Of the children.
    long level { 0 };
    long count { 0 };
    /// Rows that it has below it while it is expanded.
    long rows { 0 };
    /// All children before this were asked for.
    long reached { 0 };
    bool isExpanded { false };
    std::vector<std::unique_ptr<Page>> pages;
    /// Those children that were expanded some time.
    std::unordered_map<long, std::unique_ptr<Node>> nodes;
    /// A binary indexed tree of the rows below each child; empty while none has any.
    std::vector<long> below;

    NSObject* known(long child) const
    {
        auto const page = static_cast<std::size_t>(child / childrenInPage);
        return page < pages.size() && pages[page] ? (*pages[page])[static_cast<std::size_t>(child % childrenInPage)].get()
                                                  : nullptr;
    }
    void keep(long child, Ref<NSObject> object)
    {
        auto const page = static_cast<std::size_t>(child / childrenInPage);
        if (pages.size() <= page)
            pages.resize(static_cast<std::size_t>((count + childrenInPage - 1) / childrenInPage));
        if (!pages[page])
            pages[page] = std::make_unique<Page>();
        (*pages[page])[static_cast<std::size_t>(child % childrenInPage)] = std::move(object);
    }
    void addBelow(long child, long change)
    {
        if (below.empty())
            below.resize(static_cast<std::size_t>(count) + 1);
        for (long i = child + 1; i <= count; i += i & -i)
            below[static_cast<std::size_t>(i)] += change;
    }
    /// The rows below all children before this one.
    long belowBefore(long child) const
    {
        long sum = 0;
        if (!below.empty()) {
            for (long i = child; i > 0; i -= i & -i)
                sum += below[static_cast<std::size_t>(i)];
        }
        return sum;
    }
    /// The child whose row, or one below it, this is; `row` becomes the distance from the child's own.
    long childAtRow(long& row) const
    {
        if (below.empty())
            return std::exchange(row, 0);
        long child = 0;
        long step = 1;
        while (step * 2 <= count)
            step *= 2;
        for (; step > 0; step /= 2) {
            long const next = child + step;
            // A child stands before the row where its own row and all below it do.
            if (next <= count && below[static_cast<std::size_t>(next)] + step <= row) {
                row -= below[static_cast<std::size_t>(next)] + step;
                child = next;
            }
        }
        return child;
    }
};

/// What of the tree outlives a reload.
struct OutlineTree::Kept {
    Ref<NSObject> item;
    long index { 0 };
    bool isExpanded { false };
    std::vector<Kept> below;
};

OutlineTree::OutlineTree()
    : m_root(std::make_unique<Node>())
{
    m_root->isExpanded = true;
}

OutlineTree::~OutlineTree() = default;

// MARK: rows and places

long OutlineTree::numberOfRows() const
{
    return m_root->rows;
}

OutlineTree::Place OutlineTree::placeOfRow(long row) const
{
    if (row < 0 || row >= numberOfRows())
        return {};
    Node* node = m_root.get();
    for (;;) {
        long const child = node->childAtRow(row);
        if (row == 0)
            return { node, child };
        --row;
        auto const below = node->nodes.find(child);
        if (below == node->nodes.end())
            return {};
        node = below->second.get();
    }
}

long OutlineTree::rowOfPlace(Place place) const
{
    if (!place.node || !place.node->isExpanded)
        return -1;
    long row = place.index + place.node->belowBefore(place.index);
    for (Node const* node = place.node; node->parent; node = node->parent) {
        if (!node->parent->isExpanded)
            return -1;
        row += 1 + node->index + node->parent->belowBefore(node->index);
    }
    return row;
}

long OutlineTree::askCount(NSObject* item)
{
    return m_source.numberOfChildren ? std::clamp(m_source.numberOfChildren(item), 0L, mostRows) : 0;
}

NSObject* OutlineTree::childAt(Node& node, long index)
{
    if (auto* child = node.known(index))
        return child;
    if (!m_source.child)
        return nullptr;
    auto const version = m_version;
    Ref<NSObject> const parent = node.item;
    auto child = m_source.child(parent.get(), index);
    if (!child || version != m_version)
        return nullptr;
    node.keep(index, child);
    m_places.try_emplace(child.get(), Place { &node, index });
    return child.get();
}

NSObject* OutlineTree::itemAtRow(long row)
{
    auto const place = placeOfRow(row);
    return place.node ? childAt(*place.node, place.index) : nullptr;
}

OutlineTree::Place OutlineTree::known(NSObject const* item) const
{
    auto const place = m_places.find(item);
    return place == m_places.end() ? Place {} : place->second;
}

// Those near the top first; what was asked for once is not asked for again.
OutlineTree::Place OutlineTree::find(NSObject* item)
{
    if (auto const place = known(item); place.node || !item)
        return place;
    auto const version = m_version;
    std::deque<Node*> open { m_root.get() };
    while (!open.empty()) {
        Node& node = *open.front();
        open.pop_front();
        while (node.reached < node.count) {
            auto const* child = childAt(node, node.reached);
            if (version != m_version)
                return {};
            ++node.reached;
            if (child == item)
                return known(item);
        }
        for (auto const& [index, below] : node.nodes) {
            if (below->isExpanded)
                open.push_back(below.get());
        }
    }
    return {};
}

long OutlineTree::rowForItem(NSObject* item)
{
    return rowOfPlace(find(item));
}

long OutlineTree::levelForRow(long row) const
{
    auto const place = placeOfRow(row);
    return place.node ? place.node->level : -1;
}

long OutlineTree::levelForItem(NSObject* item)
{
    auto const place = find(item);
    return place.node ? place.node->level : -1;
}

NSObject* OutlineTree::parentOf(NSObject* item)
{
    auto const place = find(item);
    return place.node ? place.node->item.get() : nullptr;
}

long OutlineTree::indexInParent(NSObject* item)
{
    return find(item).index;
}

// MARK: expanding

OutlineTree::Node* OutlineTree::nodeOf(NSObject const* item) const
{
    if (!item)
        return m_root.get();
    auto const place = known(item);
    if (!place.node)
        return nullptr;
    auto const node = place.node->nodes.find(place.index);
    return node == place.node->nodes.end() ? nullptr : node->second.get();
}

bool OutlineTree::isExpanded(NSObject const* item) const
{
    auto const* node = nodeOf(item);
    return node && node->isExpanded;
}

long OutlineTree::numberOfRowsBelow(NSObject const* item) const
{
    auto const* node = nodeOf(item);
    return node && node->isExpanded ? node->rows : 0;
}

void OutlineTree::addRows(Node& node, long rows)
{
    Node* changed = &node;
    changed->rows += rows;
    while (changed->parent && changed->isExpanded) {
        changed->parent->addBelow(changed->index, rows);
        changed = changed->parent;
        changed->rows += rows;
    }
}

void OutlineTree::setExpanded(Node& node, bool isExpanded)
{
    if (node.isExpanded == isExpanded)
        return;
    node.isExpanded = isExpanded;
    node.parent->addBelow(node.index, isExpanded ? node.rows : -node.rows);
    addRows(*node.parent, isExpanded ? node.rows : -node.rows);
}

OutlineTree::Node& OutlineTree::ensureNode(Place place, NSObject& item)
{
    auto& node = place.node->nodes[place.index];
    if (!node) {
        node = std::make_unique<Node>();
        node->item = Ref<NSObject>(item);
        node->parent = place.node;
        node->index = place.index;
        node->level = place.node->level + 1;
    }
    return *node;
}

// More rows than indexes can count are cut off.
void OutlineTree::setCount(Node& node, long count)
{
    count = std::min(count, mostRows - m_root->rows);
    if (node.count == count)
        return;
    long const change = count - node.count;
    node.count = count;
    addRows(node, change);
}

long OutlineTree::expand(NSObject* item)
{
    Ref<NSObject> const kept(item);
    if (!item || isExpanded(item) || !(0 <= levelForItem(item) && levelForItem(item) < mostLevels))
        return 0;
    auto const version = m_version;
    long const count = askCount(item);
    auto const place = known(item);
    if (version != m_version || !place.node || isExpanded(item))
        return 0;
    long const before = numberOfRows();
    Node& node = ensureNode(place, *item);
    if (node.count == 0)
        setCount(node, count);
    else if (node.count != count)
        rebuild(node);
    setExpanded(node, true);
    return numberOfRows() - before;
}

long OutlineTree::collapse(NSObject* item)
{
    auto* node = item ? nodeOf(item) : nullptr;
    if (!node || !node->isExpanded)
        return 0;
    long const before = numberOfRows();
    setExpanded(*node, false);
    return before - numberOfRows();
}

// MARK: reloading

void OutlineTree::keepBelow(Node const& node, std::vector<Kept>& kept)
{
    for (auto const& [index, below] : node.nodes) {
        auto& entry = kept.emplace_back(Kept { below->item, index, below->isExpanded, {} });
        keepBelow(*below, entry.below);
    }
}

void OutlineTree::forgetBelow(Node& node)
{
    ++m_version;
    std::vector<Node*> open { &node };
    while (!open.empty()) {
        Node& cleared = *open.back();
        open.pop_back();
        for (auto const& page : cleared.pages) {
            for (long i = 0; page && i < childrenInPage; ++i) {
                auto const place = m_places.find((*page)[static_cast<std::size_t>(i)].get());
                if (place != m_places.end() && place->second.node == &cleared)
                    m_places.erase(place);
            }
        }
        for (auto const& [index, below] : cleared.nodes)
            open.push_back(below.get());
    }
    addRows(node, -node.rows);
    node.count = 0;
    node.reached = 0;
    node.pages.clear();
    node.nodes.clear();
    node.below.clear();
}

void OutlineTree::rebuild(Node& node)
{
    std::vector<Kept> kept;
    keepBelow(node, kept);
    forgetBelow(node);
    Ref<NSObject> const item = node.item;
    auto const version = m_version;
    long const count = askCount(item.get());
    if (version != m_version)
        return;
    setCount(node, count);
    restore(node, std::move(kept));
}

// Most are where they were; the others are looked for among all children at once.
void OutlineTree::restore(Node& node, std::vector<Kept> kept)
{
    std::vector<Kept> moved;
    std::vector<std::pair<long, Kept>> found;
    for (auto& entry : kept) {
        auto const version = m_version;
        auto const* child = entry.index < node.count ? childAt(node, entry.index) : nullptr;
        if (version != m_version)
            return;
        if (child == entry.item.get())
            found.emplace_back(entry.index, std::move(entry));
        else
            moved.push_back(std::move(entry));
    }
    for (long i = 0; i < node.count && !moved.empty(); ++i) {
        auto const version = m_version;
        auto const* child = childAt(node, i);
        if (version != m_version)
            return;
        auto const match = std::ranges::find_if(moved, [&](Kept const& entry) { return entry.item.get() == child; });
        if (match == moved.end())
            continue;
        found.emplace_back(i, std::move(*match));
        moved.erase(match);
    }
    for (auto& [index, entry] : found) {
        auto const place = known(entry.item.get());
        if (place.node != &node || place.index != index)
            continue;
        auto const version = m_version;
        long const count = askCount(entry.item.get());
        if (version != m_version)
            return;
        Node& below = ensureNode(place, *entry.item);
        setCount(below, count);
        restore(below, std::move(entry.below));
        if (version != m_version)
            return;
        setExpanded(below, entry.isExpanded);
    }
}

void OutlineTree::reload()
{
    reloadChildrenOf(nullptr);
}

// A source that reloads while it is asked by a reload has that one's answer.
void OutlineTree::reloadChildrenOf(NSObject* item)
{
    auto* node = nodeOf(item);
    if (!node || m_isReloading)
        return;
    m_isReloading = true;
    rebuild(*node);
    m_isReloading = false;
}

}
