#pragma once

#include <plix/platform/base/NSData.h>
#include <plix/platform/base/ObjectValue.h>

#include <optional>

namespace plix {

/// Objects and values to bytes and back. An object that is met several times is written once and is one object again afterwards,
/// also where objects refer to each other in a circle.
///
/// Format, all integers little-endian: "plixarch", version (u32, 1), CRC-32 of what follows (u32, polynomial 0xEDB88320), then the
/// number of objects (u32), each object's frame, and the root value. A frame is its length in bytes (u32), the class name, the
/// number of values in sequence and those values, the number of keys and for each the key and its value. A value is a tag byte: 0
/// nil, 1 false, 2 true, 3 integer (i64), 4 double (f64), 5 string, 6 date (f64, seconds since 2001), 7 bytes, 8 array (u32 count,
/// values), 9 dictionary (u32 count, strings and values), 10 object (u32 index). A string is its length in bytes (u32) and those
/// bytes.
struct PLIX_EXPORT NSArchiver {
    /// An object whose class is not described, or has no init(NSCoder&), is written as nil.
    static Ref<NSData> archivedDataWithRootObject(ObjectValue const& root);
};

/// Reads what NSArchiver has written.
struct PLIX_EXPORT NSUnarchiver {
    /// Nothing, after one logged line, where the bytes are damaged, beyond the bounds or name an unknown class. At most 64 MiB of
    /// bytes, 1,000,000 objects, arrays and dictionaries nested 64 deep, objects that read each other 512 deep.
    static std::optional<ObjectValue> unarchiveObjectWithData(NSData const&);
};

}
