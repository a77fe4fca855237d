#include <plix/format/collection_additions.h>

namespace plix {

NSIndexSet indexesOfObjects(ObjectValue::Array const& array, ObjectValue const& objects)
{
    NSIndexSet indexes;
    if (auto const* wanted = objects.array()) {
        for (auto const& object : *wanted)
            indexes.addIndex(detail::indexOfObject(array, object)); // NSNotFound too, which is meant
    }
    return indexes;
}

NSIndexSet indexSetFromRowNumbers(std::optional<ObjectValue::Array> const& numbers)
{
    NSIndexSet indexes;
    if (numbers) {
        for (auto const& number : *numbers)
            indexes.addIndex(number.intValue());
    }
    return indexes;
}

}
