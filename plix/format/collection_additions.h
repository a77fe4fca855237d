#pragma once

#include <plix/platform/base/NSIndexSet.h>
#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/exceptions.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <type_traits>
#include <vector>

namespace plix {

/// Arrays are vectors of object references, or of object values. Nil arguments are empty optionals or null pointers.

namespace detail {

template <typename T> bool isEqualElement(Ref<T> const& a, Ref<T> const& b)
{
    return isEqual(a.get(), b.get());
}
inline bool isEqualElement(ObjectValue const& a, ObjectValue const& b)
{
    return a == b;
}
template <typename T> bool isIdenticalElement(Ref<T> const& a, Ref<T> const& b)
{
    return a == b;
}
inline bool isIdenticalElement(ObjectValue const& a, ObjectValue const& b)
{
    return a.isIdentical(b);
}

template <typename Element> long indexOfObject(std::vector<Element> const& array, Element const& object)
{
    auto const found
        = std::find_if(array.begin(), array.end(), [&](auto const& element) { return isEqualElement(element, object); });
    return found == array.end() ? NSNotFound : static_cast<long>(found - array.begin());
}

}

/// The objects at the indexes, in ascending order; raises NSRangeException for an index beyond the array.
template <typename Element>
std::vector<Element> objectsAtIndexes(std::vector<Element> const& array, std::optional<NSIndexSet> const& indexes)
{
    std::vector<Element> objects;
    if (!indexes)
        return objects;
    auto const count = static_cast<long>(array.size());
    for (auto const& range : indexes->ranges()) {
        if (range.end() > count)
            raiseRangeException("objectsAtIndexes", std::max(range.location, count), count);
        objects.insert(objects.end(), array.begin() + range.location, array.begin() + range.end());
    }
    return objects;
}

/// Where each of the objects is first, by equality; NSNotFound is in the set for those that are not there. Empty where `objects` is
/// no array.
PLIX_EXPORT NSIndexSet indexesOfObjects(ObjectValue::Array const& array, ObjectValue const& objects);

/// The numbers' integers as indexes. Negative ones are none, and left out.
PLIX_EXPORT NSIndexSet indexSetFromRowNumbers(std::optional<ObjectValue::Array> const& numbers);

/// Inserts the objects from the index on; nothing happens for nil or an index beyond the count.
template <typename Element>
void insertObjects(
    std::vector<Element>& array, std::type_identity_t<std::optional<std::vector<Element>>> const& objects, long index)
{
    if (objects && index >= 0 && index <= static_cast<long>(array.size()))
        array.insert(array.begin() + index, objects->begin(), objects->end());
}

/// Removes every object that is itself, not only equal to, one of those.
template <typename Element>
void removeObjectsInArray_Optimized(
    std::vector<Element>& array, std::type_identity_t<std::optional<std::vector<Element>>> const& objects)
{
    if (!objects)
        return;
    auto const isToGo = [&](Element const& element) {
        return std::any_of(
            objects->begin(), objects->end(), [&](auto const& object) { return detail::isIdenticalElement(element, object); });
    };
    // The objects may call back while they go; until then the array is whole.
    std::vector<Element> rest;
    rest.reserve(array.size());
    std::copy_if(array.begin(), array.end(), std::back_inserter(rest), [&](auto const& element) { return !isToGo(element); });
    array.swap(rest);
}

/// Puts the new object where the first equal to the old one is. An object that is not there raises NSRangeException.
template <typename Element>
void replaceObject(
    std::vector<Element>& array, std::type_identity_t<Element> const& object, std::type_identity_t<Element> const& withObject)
{
    auto const index = detail::indexOfObject(array, object);
    if (index < 0) // never so: what is not found has the greatest index. That is meant.
        return;
    if (index >= static_cast<long>(array.size()))
        raiseRangeException("replaceObject", index, static_cast<long>(array.size()));
    array[static_cast<std::size_t>(index)] = withObject;
}

}
