#include <plix/platform/graphics/NSTextStorage.h>

#include <plix/platform/graphics/NSLayoutManager.h>

#include <algorithm>

namespace plix {

PLIX_DESCRIBE(NSTextStorage)
{
}

NSTextStorage::~NSTextStorage()
{
    for (auto const& manager : m_layoutManagers)
        manager->setTextStorage(nullptr);
}

void NSTextStorage::addLayoutManager(Ref<NSLayoutManager> const& manager)
{
    if (!manager || manager->textStorage() == this)
        return;
    if (auto* other = manager->textStorage())
        other->removeLayoutManager(*manager);
    m_layoutManagers.push_back(manager);
    manager->setTextStorage(this);
}

void NSTextStorage::removeLayoutManager(NSLayoutManager& manager)
{
    Ref<NSLayoutManager> const protector(manager);
    if (std::erase(m_layoutManagers, protector) > 0)
        manager.setTextStorage(nullptr);
}

void NSTextStorage::beginEditing()
{
    ++m_editingDepth;
}

void NSTextStorage::endEditing()
{
    if (m_editingDepth > 0 && --m_editingDepth == 0)
        tellLayoutManagers();
}

void NSTextStorage::didEdit(unsigned /*mask*/, NSRange range, long changeInLength)
{
    if (!m_hasEdits) {
        m_editedRange = range;
    } else {
        // The range so far, counted as it is after this edit.
        long const replacedEnd = range.end() - changeInLength;
        NSRange moved = m_editedRange;
        if (moved.location >= replacedEnd)
            moved.location += changeInLength;
        else if (moved.end() > range.location)
            moved.length = std::max(moved.end() + changeInLength, range.end()) - moved.location;
        m_editedRange = NSUnionRange(moved, range);
    }
    m_hasEdits = true;
    m_changeInLength += changeInLength;
    if (m_editingDepth == 0)
        tellLayoutManagers();
}

void NSTextStorage::tellLayoutManagers()
{
    if (!m_hasEdits)
        return;
    auto const range = m_editedRange;
    long const change = m_changeInLength;
    m_hasEdits = false;
    m_changeInLength = 0;
    for (auto const& manager : m_layoutManagers)
        manager->textStorageEdited(range, change);
}

}
